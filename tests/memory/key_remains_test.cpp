// No key, subkey or plain text is left in memory by the calls that work with them, whether they
// succeed or fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "crypto/kernels/table_kernel.h"
#include "memory/watched_memory.h"
#include "runtime/coerce.h"
#include "support/slow_build.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

constexpr std::string_view kKeyDigits = "13579BDF02468ACEFDB97531ECA86420";
constexpr std::string_view kPlainText = "Attack the dawn at once, with 8!";  // 32 characters
constexpr std::string_view kPlainDigits =
    "41747461636B20746865206461776E206174206F6E63652C2077697468203821";

std::vector<Byte> BytesOf(const void* memory, std::size_t size) {
  const auto* const first = static_cast<const Byte*>(memory);
  return {first, first + size};
}

std::vector<Byte> UnitsOf(std::string_view text) {
  const std::u16string units(text.begin(), text.end());
  return BytesOf(units.data(), 2 * units.size());
}

// Builds that are not optimised, or that sanitizers check, keep single words on the stack that the
// build that is shipped holds in registers.
constexpr bool kBuiltAsShipped = !kSlowBuild;

// The halves of the key, and what the table kernels make of the first.
std::vector<Secret> KeySecrets() {
  const ByteArray key = FromHex(kKeyDigits);
  std::vector<Secret> secrets = {{"first key half", BytesOf(key.Elements().data(), 8)},
                                 {"second key half", BytesOf(key.Elements().data() + 8, 8)}};
  if (!kBuiltAsShipped) return secrets;
  des::PassKeys subkeys{};
  subkeys.Fill({key.Elements().data(), true});
  for (const int i : {0, 1, 5, 16})
    secrets.push_back({"subkeys " + std::to_string(i), BytesOf(&subkeys.word[i], 8)});
  return secrets;
}

// The plain text as bytes and as characters.
std::vector<Secret> PlainSecrets() {
  return {{"plain text", BytesOf(kPlainText.data() + 9, 8)},
          {"plain characters", UnitsOf(kPlainText.substr(9, 8))},
          {"plain text as digits", UnitsOf(kPlainDigits.substr(18, 12))}};
}

std::vector<Secret> AllSecrets() {
  std::vector<Secret> secrets = KeySecrets();
  for (Secret& secret : PlainSecrets())
    secrets.push_back(std::move(secret));
  return secrets;
}

// With values for the random filler.
struct SeededComponent : TestComponent {
  SeededComponent() { services.random->values.assign(64, 0.5); }
};

// What the caller holds: not searched, since it is freed after the call only.
struct Caller {
  SeededComponent component;
  clsPublic& object = component.object;
  ByteArray key = FromHex(kKeyDigits);
  ByteArray data = FromHex(kPlainDigits);
  ByteArray block = ByteArray::WithBounds(0, 15);
  ByteArray result = ByteArray::WithBounds(0, 31);
  String key_text{kKeyDigits};
  String data_text{kPlainDigits};
  String text_result;
  Variant source;
  Variant value_result;
  Raised raised;
};

using Step = void (*)(Caller&);

struct CallCase {
  const char* name;
  Step prepare;  // not searched
  Step call;
  bool succeeds = true;
};

void PrintTo(const CallCase& c, std::ostream* out) { *out << c.name; }

std::string NameOf(const ::testing::TestParamInfo<CallCase>& info) { return info.param.name; }

// The call after one that warms up what is made once (kernels, code pages, the log). The log entry
// of a failure is part of the call.
std::vector<std::string> RemainsOf(const CallCase& c, const std::vector<Secret>& secrets) {
  Caller warm;
  c.prepare(warm);
  warm.raised = RaisedBy([&] { c.call(warm); });
  Caller caller;
  c.prepare(caller);
  auto remains = Remains(secrets, [&] { caller.raised = RaisedBy([&] { c.call(caller); }); });
  EXPECT_EQ(caller.component.LogLines().empty(), c.succeeds) << caller.component.Log();
  return remains;
}

TEST(KeyRemains, The_search_finds_what_a_careless_call_leaves) {
  const ByteArray key = FromHex(kKeyDigits);
  const auto remains = Remains(KeySecrets(), [&] {
    const std::vector<Byte> copy(key.Elements().begin(), key.Elements().end());
    Byte local[16];
    std::memcpy(local, copy.data(), sizeof local);
    des::PassKeys subkeys;
    subkeys.Fill({local, true});
    asm volatile("" : : "r"(local), "r"(&subkeys) : "memory");
  });
  EXPECT_THAT(remains, Contains("heap: second key half"));
  EXPECT_THAT(remains, Contains("stack: second key half"));
  if (kBuiltAsShipped) {
    EXPECT_THAT(remains, Contains("stack: subkeys 5"));
  }
}

class KeyRemainsCipher : public ::testing::TestWithParam<CallCase> {};

TEST_P(KeyRemainsCipher, nothing_of_the_key) {
  EXPECT_THAT(RemainsOf(GetParam(), KeySecrets()), IsEmpty());
}

void Nothing(Caller&) {}

void ShortenResult(Caller& c) { c.result.Redimension(0, 12); }

void MuchData(Caller& c) {
  c.data = ByteArray::WithBounds(0, 32759);
  c.result = ByteArray::WithBounds(0, 32759);
}

void OddData(Caller& c) { c.data.Redimension(0, 12); }

void ShortFactor(Caller& c) { c.data_text = String("0123456789ABCDEF"); }

void BadText(Caller& c) { c.data_text = String("0123456789ABCDEG"); }

// Length is that of the data to be worked on.
template <Integer kLength, auto kMember>
void Cipher(Caller& c) {
  Integer length = kLength;
  (c.object.*kMember)(c.key, c.data, length, c.result, u"");
}

// The blocks overwrite the key while they are made.
void DesOntoTheKey(Caller& c) {
  Integer length = 16;
  c.object.DES(c.key, c.data, length, c.key);
}

template <auto kMember>
void Mac(Caller& c) {
  Integer length = 30;
  (c.object.*kMember)(c.key, c.data, length, c.block, c.result, u"");
}

void ShortenMac(Caller& c) { c.result.Redimension(0, 2); }

void Diversify(Caller& c) { c.object.DiversifyKey(c.key, c.data, c.result); }

void EncipherText(Caller& c) { c.text_result = c.object.FstrDES3(c.key_text, c.data_text); }
void DecipherText(Caller& c) { c.text_result = c.object.FstrUDES3(c.key_text, c.data_text); }
void DiversifyText(Caller& c) {
  c.text_result = c.object.FstrDiversifyKey(c.key_text, c.data_text);
}
void MacOfText(Caller& c) {
  String start("0000000000000000");
  c.text_result = c.object.FstrTMAC(c.key_text, c.data_text, start);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, KeyRemainsCipher,
    ::testing::Values(
        CallCase{"DES", &Nothing, &Cipher<32, &clsPublic::DES>},
        CallCase{"DES_short_result", &ShortenResult, &Cipher<32, &clsPublic::DES>, false},
        CallCase{"DES_onto_the_key", &Nothing, &DesOntoTheKey},
        CallCase{"UDES", &Nothing, &Cipher<8, &clsPublic::UDES>},
        CallCase{"DES3", &Nothing, &Cipher<32, &clsPublic::DES3>},
        CallCase{"DES3_many_blocks", &MuchData, &Cipher<32760, &clsPublic::DES3>},
        CallCase{"UDES3_short_result", &ShortenResult, &Cipher<32, &clsPublic::UDES3>, false},
        CallCase{"MAC", &Nothing, &Mac<&clsPublic::MAC>},
        CallCase{"TMAC", &Nothing, &Mac<&clsPublic::TMAC>},
        CallCase{"TMAC_short_result", &ShortenMac, &Mac<&clsPublic::TMAC>, false},
        CallCase{"DiversifyKey", &Nothing, &Diversify},
        CallCase{"DiversifyKey_odd_data", &OddData, &Diversify, false},
        CallCase{"FstrDES3", &Nothing, &EncipherText},
        CallCase{"FstrUDES3_bad_text", &BadText, &DecipherText, false},
        CallCase{"FstrDiversifyKey", &ShortFactor, &DiversifyText},
        CallCase{"FstrTMAC", &Nothing, &MacOfText}),
    &NameOf);

class KeyRemainsSystemCipher : public ::testing::TestWithParam<CallCase> {};

TEST_P(KeyRemainsSystemCipher, nothing_of_the_key_or_the_plain_text) {
  EXPECT_THAT(RemainsOf(GetParam(), AllSecrets()), IsEmpty());
}

void PlainText(Caller& c) { c.source = String(kPlainText); }
void PlainArray(Caller& c) { c.source = c.data; }

// 320 bytes do not fit a length byte.
void TooMuchText(Caller& c) {
  std::string text;
  for (int i = 0; i < 10; ++i)
    text += kPlainText;
  c.source = String(text);
}

template <bool kArrays, bool kLength>
void Encrypt(Caller& c) {
  c.object.SystemEncrypt(c.key_text, c.source, c.value_result, kArrays, kArrays, kLength);
}

template <bool kArrays, bool kLength>
void Decrypt(Caller& c) {
  c.object.SystemDecrypt(c.key_text, c.source, c.value_result, kArrays, kArrays, kLength);
}

template <bool kArrays, bool kLength>
void CipherText(Caller& c) {
  SeededComponent other;
  String key(kKeyDigits);
  Variant plain = String(kPlainText);
  other.object.SystemEncrypt(key, plain, c.source, false, kArrays, kLength);
  if (kArrays) return;
  String digits = ToText(c.source);
  digits.EditUnits([](std::u16string& units) {
    std::erase_if(units, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; });
  });
  c.source = digits;
}

// Without its last block the length byte points behind the end.
void CipherTextCutShort(Caller& c) {
  CipherText<true, true>(c);
  ByteArray cut = *c.source.AsByteArray();
  cut.RedimensionPreserving(31);
  c.source = cut;
}

INSTANTIATE_TEST_SUITE_P(
    Calls, KeyRemainsSystemCipher,
    ::testing::Values(
        CallCase{"SystemEncrypt", &PlainText, &Encrypt<false, true>},
        CallCase{"SystemEncrypt_arrays", &PlainArray, &Encrypt<true, true>},
        CallCase{"SystemEncrypt_no_length", &PlainText, &Encrypt<false, false>},
        CallCase{"SystemEncrypt_too_much", &TooMuchText, &Encrypt<false, true>, false},
        CallCase{"SystemDecrypt", &CipherText<false, true>, &Decrypt<false, true>},
        CallCase{"SystemDecrypt_arrays", &CipherText<true, true>, &Decrypt<true, true>},
        CallCase{"SystemDecrypt_no_length", &CipherText<false, false>, &Decrypt<false, false>},
        CallCase{"SystemDecrypt_cut_short", &CipherTextCutShort, &Decrypt<true, true>, false}),
    &NameOf);

}  // namespace
}  // namespace vandpublic
