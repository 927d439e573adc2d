// Two-key triple DES on hex text, with a published key and data.
#include <iostream>

#include "demo.h"

using vandpublic::clsPublic;
using vandpublic::Integer;
using vandpublic::String;

namespace {

// Display text holds a blank after every byte; FstrUDES3 takes it as it is.
String Encipher(clsPublic& component, String key, String data) {
  Integer length = 0;
  std::cout << "FstrDES3(istr_Key, istr_Src, iDataLen)   two-key triple DES\n";
  Show("istr_Key", key);
  Show("istr_Src", data);
  String result = component.FstrDES3(key, data, length);
  Show("-> result  ", result);
  std::cout << "    -> iDataLen   = " << length << "   (by reference: the bytes enciphered)\n\n";
  return result;
}

void Decipher(clsPublic& component, String key, String data) {
  Integer length = 0;
  std::cout << "FstrUDES3(istr_Key, istr_Src, iDataLen)\n";
  const String result = component.FstrUDES3(key, data, length);
  Show("-> result  ", result);
  Show("-> istr_Src", data);
  std::cout << "    (by reference: the member removed the blanks)\n\n";
}

}  // namespace

void ShowCiphers(clsPublic& component) {
  const String key = "0123456789ABCDEFFEDCBA9876543210";
  const String enciphered = Encipher(component, key, "0123456789ABCDE7");
  Decipher(component, key, enciphered);
}
