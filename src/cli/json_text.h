// JSON as the tool reads it: any text is safe to parse, however it is made.
#ifndef VANDPUBLIC_CLI_JSON_TEXT_H
#define VANDPUBLIC_CLI_JSON_TEXT_H

#include <cstddef>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// Objects keep the order of their keys.
using Json = nlohmann::ordered_json;

// A request that is no call at all. The text tells the client why.
class ProtocolError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline constexpr std::size_t kDeepestNesting = 64;
// Counts every string, number, array, object and key; byte arrays are one string each.
inline constexpr std::size_t kMostJsonValues = 10000;

// Parses one JSON text. Raises ProtocolError for what is not JSON in UTF-8, for a key given twice
// in one object, and beyond the two limits above.
Json ParseJson(std::string_view text);

// The value of a key of the outermost object exactly as it is written in the text; empty when
// there is no such key. The text must be an object that ParseJson accepts.
//
//   RawMember(R"({"id":1.50,"show":"a"})", "id")  is  "1.50"
std::string_view RawMember(std::string_view text, std::string_view key);

// All members of such an object as they are written, in their order.
struct WrittenMember {
  std::string_view key;  // in its quotes
  std::string_view value;
};
std::vector<WrittenMember> WrittenMembers(std::string_view text);

// {KEY: value}. Braces alone would take a pair of texts for an array.
Json JsonObject(std::string_view key, Json value);

// The text inside the quotes of a JSON string, shortened when it is long, for messages.
std::string Quoted(std::string_view text);

}  // namespace vandpublic

#endif
