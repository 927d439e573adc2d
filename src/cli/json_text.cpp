// The parser behind requests. nlohmann's lexer does the work; the tree is built here, so that
// depth, size and keys given twice are seen before anything is stored.
#include "cli/json_text.h"

#include <cstdint>
#include <vector>

namespace vandpublic {
namespace {

constexpr int kNumberOutOfRange = 406;  // nlohmann's id for a number that no double can hold
constexpr std::size_t kLongestQuote = 80;

// Receives the parser's events. Returning false stops the parser.
class TreeBuilder {
 public:
  explicit TreeBuilder(Json& root) : root_(root) {}

  const std::string& problem() const { return problem_; }

  bool null() { return Add(nullptr); }
  bool boolean(bool value) { return Add(value); }
  bool number_integer(std::int64_t value) { return Add(value); }
  bool number_unsigned(std::uint64_t value) { return Add(value); }
  bool number_float(double value, const std::string&) { return Add(value); }
  bool string(std::string& value) { return Add(std::move(value)); }
  bool binary(Json::binary_t&) { return false; }
  bool start_object(std::size_t) { return Open(Json::object()); }
  bool start_array(std::size_t) { return Open(Json::array()); }
  bool end_object() { return Close(); }
  bool end_array() { return Close(); }

  bool key(std::string& name) {
    if (open_.back()->contains(name)) return Stop("key '" + Quoted(name) + "' is given twice");
    key_ = std::move(name);
    return Count();
  }

  bool parse_error(std::size_t position, const std::string&, const Json::exception& error) {
    if (error.id == kNumberOutOfRange) return Stop("bad JSON: a number is out of range");
    return Stop("bad JSON at byte " + std::to_string(position));
  }

 private:
  bool Stop(std::string problem) {
    problem_ = std::move(problem);
    return false;
  }

  bool Count() {
    if (++count_ <= kMostJsonValues) return true;
    return Stop("more than " + std::to_string(kMostJsonValues) + " values in one text");
  }

  Json* Place(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
      return &root_;
    }
    Json& parent = *open_.back();
    if (parent.is_object()) return &(parent[key_] = std::move(value));
    parent.push_back(std::move(value));
    return &parent.back();
  }

  bool Add(Json value) {
    Place(std::move(value));
    return Count();
  }

  bool Open(Json container) {
    if (open_.size() == kDeepestNesting) {
      return Stop("nested deeper than " + std::to_string(kDeepestNesting) + " levels");
    }
    open_.push_back(Place(std::move(container)));
    return Count();
  }

  bool Close() {
    open_.pop_back();
    return true;
  }

  Json& root_;
  // From the outermost to the innermost container. A container only grows while nothing inside it
  // is open, so the addresses hold.
  std::vector<Json*> open_;
  std::string key_;
  std::size_t count_ = 0;
  std::string problem_;
};

// Walks over the outermost object of a text that is known to be JSON.
class Walker {
 public:
  explicit Walker(std::string_view text) : text_(text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // the parser skips one in front
    if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
    Skip("{");
  }

  bool AtEnd() const { return at_ >= text_.size() || text_[at_] == '}'; }

  WrittenMember TakeMember() {
    const std::string_view key = TakeString();
    Skip(":");
    const std::string_view value = TakeValue();
    Skip(",");
    return {key, value};
  }

 private:
  // Moves to the next character that is neither white space nor one of these.
  void Skip(std::string_view also) {
    while (at_ < text_.size() && (IsSpace(text_[at_]) || also.find(text_[at_]) != also.npos))
      ++at_;
  }

  std::string_view TakeString() {
    const std::size_t start = at_++;
    while (text_[at_] != '"')
      at_ += text_[at_] == '\\' ? 2u : 1u;
    ++at_;
    return text_.substr(start, at_ - start);
  }

  std::string_view TakeValue() {
    const std::size_t start = at_;
    std::size_t depth = 0;
    do {
      if (text_[at_] == '"') {
        TakeString();
        continue;
      }
      if (IsOpening(text_[at_])) ++depth;
      if (IsClosing(text_[at_])) --depth;
      ++at_;
    } while (depth > 0 || !EndsValue(text_[at_]));
    return text_.substr(start, at_ - start);
  }

  static bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
  static bool IsOpening(char c) { return c == '{' || c == '['; }
  static bool IsClosing(char c) { return c == '}' || c == ']'; }
  static bool EndsValue(char c) { return IsSpace(c) || IsClosing(c) || c == ','; }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

Json ParseJson(std::string_view text) {
  // The lexer takes a zero byte for the end, and would not see what follows it.
  if (const std::size_t zero = text.find('\0'); zero != text.npos) {
    throw ProtocolError("bad JSON at byte " + std::to_string(zero + 1));
  }
  Json root;
  TreeBuilder builder(root);
  if (!Json::sax_parse(text, &builder)) throw ProtocolError(builder.problem());
  return root;
}

std::string_view RawMember(std::string_view text, std::string_view key) {
  Walker walker(text);
  while (!walker.AtEnd()) {
    const WrittenMember member = walker.TakeMember();
    if (member.key.substr(1, member.key.size() - 2) == key) return member.value;
  }
  return {};
}

std::vector<WrittenMember> WrittenMembers(std::string_view text) {
  std::vector<WrittenMember> members;
  for (Walker walker(text); !walker.AtEnd();)
    members.push_back(walker.TakeMember());
  return members;
}

Json JsonObject(std::string_view key, Json value) {
  Json object = Json::object();
  object[std::string(key)] = std::move(value);
  return object;
}

std::string Quoted(std::string_view text) {
  if (text.size() <= kLongestQuote) return std::string(text);
  std::size_t cut = kLongestQuote;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
    --cut;  // not inside a UTF-8 character
  return std::string(text.substr(0, cut)) + "...";
}

}  // namespace vandpublic
