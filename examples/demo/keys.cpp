// What a card application does with keys: a card's own key from the issuer's master key, a MAC
// over a message, a secret stored under a system key.
#include <vandpublic/runtime/coerce.h>

#include <iostream>

#include "demo.h"

using vandpublic::ByteArray;
using vandpublic::clsPublic;
using vandpublic::Integer;
using vandpublic::String;
using vandpublic::Variant;

namespace {

ByteArray Bytes(clsPublic& component, String digits) {
  ByteArray bytes;
  component.FillByteArrWithHexStr(bytes, digits, Integer{0});
  return bytes;
}

void Diversify(clsPublic& component, ByteArray& master_key) {
  ByteArray serial_number = Bytes(component, "0000000000000001");
  ByteArray card_key = ByteArray::WithBounds(0, 15);
  std::cout << "DiversifyKey(abyt_MasterKey, abyt_DivData, abyt_DivKey)   a card's own key\n";
  Show(component, "abyt_DivData  ", serial_number);
  component.DiversifyKey(master_key, serial_number, card_key);
  Show(component, "-> abyt_DivKey", card_key);
  std::cout << '\n';
}

void RetailMac(clsPublic& component, ByteArray& key) {
  ByteArray message = Bytes(component, "4E6F77206973207468652074696D6520666F7220616C6C20");
  ByteArray start = ByteArray::WithBounds(0, 7);
  ByteArray mac = ByteArray::WithBounds(0, 3);
  Integer length = 24;
  std::cout << "TMAC(rabyt_Key, rabyt_Src, iint_SrcLen, rabyt_Init, rabyt_MAC)   retail MAC\n";
  std::cout << "    rabyt_Src is \"Now is the time for all \"\n";
  component.TMAC(key, message, length, start, mac);
  Show(component, "-> rabyt_MAC", mac);
  std::cout << '\n';
}

void ProtectText(clsPublic& component, String system_key) {
  Variant secret = String("user=7;pin=1234");
  Variant stored;
  Variant restored;
  std::cout << "SystemEncrypt(istr_SystemKey, Source, Result), SystemDecrypt back\n";
  component.SystemEncrypt(system_key, secret, stored);
  Show("-> stored  ", vandpublic::ToText(stored));
  component.SystemDecrypt(system_key, stored, restored);
  Show("-> restored", vandpublic::ToText(restored));
  std::cout << '\n';
}

}  // namespace

void ShowKeys(clsPublic& component) {
  ByteArray master_key = Bytes(component, "0123456789ABCDEFFEDCBA9876543210");
  Diversify(component, master_key);
  RetailMac(component, master_key);
  ProtectText(component, "13579BDF02468ACEFDB97531ECA86420");
}
