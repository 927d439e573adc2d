// Byte arrays of automation: worked on where they stand, with any lower bound, one array when it
// is one; arrays of variants as script engines make them.
#include "com/server_fixture.h"

namespace vandpublic {
namespace {

using Arrays = ComTest;
using Values = std::vector<unsigned>;

VARIANT Holding(SAFEARRAY* array, VARTYPE type = VT_UI1) {
  VARIANT variant{};
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
  variant.parray = array;
  return variant;
}

// VT_I2 numbers in variants; a negative one stands for an element that is Empty.
SAFEARRAY* ScriptArray(std::initializer_list<int> numbers, USHORT features = 0) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(numbers.size()), 0};
  SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, 1, &bound);
  array->fFeatures = static_cast<USHORT>(array->fFeatures | features);
  auto* element = static_cast<VARIANT*>(array->pvData);
  for (const int number : numbers) {
    if (number >= 0) *element = Number(static_cast<short>(number));
    ++element;
  }
  return array;
}

VARIANT Element(SAFEARRAY* array, std::size_t index) {
  return static_cast<VARIANT*>(array->pvData)[index];
}

const Values kCipher = {0x85, 0xE8, 0x13, 0x54, 0x0F, 0x0A, 0xB4, 0x05};

struct DesInput {
  Bytes key{{0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1}};
  Bytes data{{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};
  short length = 8;
};

TEST_F(Arrays, elements_are_written_where_they_stand) {
  DesInput in;
  Bytes result({0, 0, 0, 0, 0, 0, 0, 0});
  SAFEARRAY* const before = result.get();
  const void* const elements = result.get()->pvData;
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().DES(&in.key, &in.data, &in.length, &result, nullptr, &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_EQ(result.get(), before);
  EXPECT_EQ(result.get()->pvData, elements);
  EXPECT_EQ(result.values(), kCipher);
}

TEST_F(Arrays, the_same_array_twice_is_one_array) {
  DesInput in;
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().DES(&in.key, &in.data, &in.length, &in.data, nullptr, &done), S_OK);
  EXPECT_EQ(in.data.values(), kCipher);
  // Copied upwards one by one, the first byte runs through an array that overlaps itself.
  Bytes row({1, 2, 3, 4});
  short count = 3;
  VARIANT start = Number(1);
  short from = 0;
  EXPECT_EQ(object().CpyByteArray(&row, &row, &count, &start, &from, &done), S_OK);
  EXPECT_EQ(row.values(), (Values{1, 1, 1, 1}));
  EXPECT_EQ(start.iVal, 4);
}

TEST_F(Arrays, the_same_variable_twice_is_one_array) {
  Bytes row({1, 2, 3, 4});
  VARIANT variable = Holding(row.get());
  const auto outcome = Call(object(), L"CpyByteArray",
                            {Reference(variable), Reference(variable), Number(3), Number(1)});
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_EQ(row.values(), (Values{1, 1, 1, 1}));
}

TEST_F(Arrays, lower_bounds_are_respected) {
  Bytes target({0, 0, 0}, 5);
  Bytes source({7, 8, 9}, -1);
  short count = 3;
  VARIANT start = Number(5);
  short from = -1;
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().CpyByteArray(&target, &source, &count, &start, &from, &done), S_OK);
  EXPECT_EQ(target.values(), (Values{7, 8, 9}));
  EXPECT_EQ(target.lower(), 5);
  start = Number(4);
  EXPECT_EQ(static_cast<unsigned long>(
                object().CpyByteArray(&target, &source, &count, &start, &from, &done)),
            0x800A0009ul);
}

TEST_F(Arrays, what_was_written_before_a_failure_stays) {
  Bytes target({0, 0});
  Bytes source({7, 8, 9});
  short count = 3;
  VARIANT_BOOL done = 0;
  VARIANT start = Number(0);
  EXPECT_EQ(static_cast<unsigned long>(
                object().CpyByteArray(&target, &source, &count, &start, nullptr, &done)),
            0x800A0009ul);
  EXPECT_EQ(target.values(), (Values{7, 8}));
  EXPECT_EQ(start.iVal, 2);
}

TEST_F(Arrays, an_empty_variant_becomes_an_array) {
  VARIANT variable{};
  Text digits(L"0A0B0C");
  const auto outcome =
      Call(object(), L"FillByteArrWithHexStr", {Reference(variable), Borrowed(digits)});
  EXPECT_EQ(outcome.result, S_OK);
  ASSERT_EQ(variable.vt, VT_ARRAY | VT_UI1);
  EXPECT_EQ(variable.parray->rgsabound[0].cElements, 3u);
  EXPECT_EQ(static_cast<BYTE*>(variable.parray->pvData)[2], 0x0C);
  VariantClear(&variable);
}

TEST_F(Arrays, an_array_without_storage_gets_some) {
  Bytes array;
  Text digits(L"0A0B");
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().FillByteArrWithHexStr(&array, &digits, nullptr, nullptr, &done), S_OK);
  EXPECT_EQ(array.values(), (Values{0x0A, 0x0B}));
}

TEST_F(Arrays, numbers_in_variants_are_taken_and_written_back) {
  DesInput in;
  VARIANT key = Holding(ScriptArray({0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1}), VT_VARIANT);
  VARIANT data = Holding(ScriptArray({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}), VT_VARIANT);
  VARIANT result =
      Holding(ScriptArray({-1, -1, -1, -1, -1, -1, -1, -1}, FADF_FIXEDSIZE), VT_VARIANT);
  const auto outcome = Call(object(), L"DES",
                            {Reference(VT_ARRAY | VT_VARIANT, &key.parray), Reference(data),
                             Number(8), Reference(result)});
  ASSERT_EQ(outcome.result, S_OK);
  EXPECT_EQ(result.vt, VT_ARRAY | VT_VARIANT);
  for (std::size_t i = 0; i < kCipher.size(); ++i) {
    EXPECT_EQ(Element(result.parray, i).vt, VT_UI1);
    EXPECT_EQ(Element(result.parray, i).bVal, kCipher[i]);
  }
  EXPECT_EQ(Element(data.parray, 1).vt, VT_I2);  // untouched
  for (VARIANT* variable : {&key, &data, &result})
    VariantClear(variable);
}

TEST_F(Arrays, elements_that_are_no_bytes_are_refused) {
  DesInput in;
  VARIANT key = Holding(ScriptArray({0x13, 300}), VT_VARIANT);
  auto outcome = Call(object(), L"DispBytes", {Reference(key)});
  EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
  EXPECT_EQ(outcome.bad_argument, 0u);
  VariantClear(&key);
  SAFEARRAYBOUND bound{2, 0};
  VARIANT longs = Holding(SafeArrayCreate(VT_I4, 1, &bound), VT_I4);
  EXPECT_EQ(Call(object(), L"DispBytes", {Reference(longs)}).result, DISP_E_TYPEMISMATCH);
  // ... but their size can be asked for.
  EXPECT_EQ(Call(object(), L"ArraySize", {Reference(longs)}).value.get().lVal, 2);
  VariantClear(&longs);
  EXPECT_EQ(Call(object(), L"DispBytes", {Number(5)}).result, DISP_E_TYPEMISMATCH);
}

TEST_F(Arrays, a_fixed_array_is_not_replaced) {
  SAFEARRAYBOUND bound{1, 0};
  VARIANT variable = Holding(SafeArrayCreate(VT_UI1, 1, &bound));
  variable.parray->fFeatures |= FADF_FIXEDSIZE;
  static_cast<BYTE*>(variable.parray->pvData)[0] = 0xAA;
  Text digits(L"0B");
  VARIANT start = Number(0);
  EXPECT_EQ(Call(object(), L"FillByteArrWithHexStr",
                 {Reference(variable), Borrowed(digits), Reference(start)})
                .result,
            S_OK);
  EXPECT_EQ(static_cast<BYTE*>(variable.parray->pvData)[0], 0x0B);
  VariantClear(&variable);
}

TEST_F(Arrays, tables_of_two_dimensions_keep_their_order) {
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {16, 0}};
  SAFEARRAY* table = SafeArrayCreate(VT_UI1, 2, bounds);
  Bytes seed({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
  short keys = 2;
  VARIANT_BOOL done = 0;
  ASSERT_EQ(object().GenOrigalityKey(&seed, &keys, &table, nullptr, &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  // The same through an array of variants.
  VARIANT variants = Holding(SafeArrayCreate(VT_VARIANT, 2, bounds), VT_VARIANT);
  VARIANT seed_variable = Holding(seed.get());
  ASSERT_EQ(
      Call(object(), L"GenOrigalityKey", {Reference(seed_variable), Number(2), Reference(variants)})
          .result,
      S_OK);
  bool any = false;
  for (LONG row = 0; row < 2; ++row) {
    for (LONG column = 0; column < 16; ++column) {
      LONG place[] = {row, column};
      BYTE byte = 0;
      OwnedVariant element;
      SafeArrayGetElement(table, place, &byte);
      SafeArrayGetElement(variants.parray, place, element.Receive());
      ASSERT_EQ(element.get().vt, VT_UI1);
      EXPECT_EQ(element.get().bVal, byte);
      any = any || byte != 0;
    }
  }
  EXPECT_TRUE(any);
  SafeArrayDestroy(table);
  VariantClear(&variants);
}

TEST_F(Arrays, an_array_in_a_variant_parameter_is_an_array_of_bytes) {
  Text key(L"0123456789ABCDEFFEDCBA9876543210");
  VARIANT source = Holding(ScriptArray({1, 2, 3}), VT_VARIANT);
  VARIANT result{};
  const auto outcome =
      Call(object(), L"SystemEncrypt",
           {Borrowed(key), Reference(source), Reference(result), Truth(true), Truth(true)});
  ASSERT_EQ(outcome.result, S_OK);
  EXPECT_EQ(outcome.value.get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(result.vt, VT_ARRAY | VT_UI1);
  VARIANT back{};
  Call(object(), L"SystemDecrypt",
       {Borrowed(key), Reference(result), Reference(back), Truth(true), Truth(true)});
  ASSERT_EQ(back.vt, VT_ARRAY | VT_UI1);
  EXPECT_EQ(static_cast<BYTE*>(back.parray->pvData)[2], 3);
  for (VARIANT* variable : {&source, &result, &back})
    VariantClear(variable);
}

}  // namespace
}  // namespace vandpublic
