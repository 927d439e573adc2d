// Reading and checking case files.
#include "runners/case_file.h"

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <set>
#include <stdexcept>

#include "cli/hex_text.h"

namespace vandpublic {
namespace {

using Keys = std::initializer_list<std::string_view>;

void Require(bool condition, const std::string& problem) {
  if (!condition) throw std::runtime_error(problem);
}

void AllowOnly(const Json& object, Keys keys, const std::string& where) {
  Require(object.is_object(), where + " must be an object");
  for (const auto& [key, value] : object.items()) {
    Require(std::find(keys.begin(), keys.end(), key) != keys.end(),
            where + ": unknown key '" + key + "'");
  }
}

void CheckExpected(const Json& expected) {
  AllowOnly(expected, {"result", "refs", "error", "protocol_error"}, "expect");
  const int outcomes = static_cast<int>(expected.contains("result")) +
                       static_cast<int>(expected.contains("error")) +
                       static_cast<int>(expected.contains("protocol_error"));
  Require(outcomes <= 1, "expect: one outcome at a time");
  Require(!expected.empty(), "expect: nothing is expected");
  if (!expected.contains("error")) return;
  AllowOnly(expected["error"], {"number", "hex", "source", "description"}, "error");
  Require(!expected["error"].empty(), "error: nothing is expected");
}

Step ReadStep(const Json& json) {
  Require(json.is_object(), "a step must be an object");
  Step step{json, std::nullopt};
  if (json.contains("expect")) {
    step.expected = json["expect"];
    CheckExpected(*step.expected);
    step.request.erase("expect");
  }
  return step;
}

std::vector<std::string> ReadTexts(const Json& list) {
  return list.get<std::vector<std::string>>();
}

void ReadSkipping(const Json& json, Case& made) {
  if (json.contains("only")) {
    made.surfaces = ReadTexts(json["only"]);
    made.skip_reason = "runs elsewhere only";
  }
  if (json.contains("skip")) made.skip_reason = json["skip"].get<std::string>();
  if (json.contains("reason")) made.skip_reason = json["reason"].get<std::string>();
  const bool skips = json.contains("only") || json.contains("skip");
  Require(skips == !made.skip_reason.empty(), "a reason and skipping go together");
}

Case ReadCase(const Json& json, int code_page) {
  AllowOnly(json,
            {"name", "codepage", "debug_mode", "steps", "log", "log_file", "folders", "files",
             "left", "registry_file", "only", "skip", "reason"},
            "the case");
  Case made;
  made.name = json.at("name").get<std::string>();
  made.code_page = json.value("codepage", code_page);
  made.debug_mode = json.value("debug_mode", made.debug_mode);
  for (const Json& step : json.at("steps"))
    made.steps.push_back(ReadStep(step));
  Require(!made.steps.empty(), "a case needs steps");
  if (json.contains("log")) made.log = json["log"].get<std::vector<std::vector<Json>>>();
  for (const auto& entry : made.log)
    Require(entry.size() == 2 || entry.size() == 3, "a log entry has two or three lines");
  made.log_file = json.value("log_file", made.log_file);
  if (json.contains("folders")) made.folders = ReadTexts(json["folders"]);
  if (json.contains("files")) made.files = json["files"].get<std::map<std::string, Json>>();
  made.left = json.contains("left") ? json["left"].get<std::map<std::string, Json>>() : made.files;
  made.registry_file = json.value("registry_file", "");
  Require(made.registry_file.empty() || made.files.contains(made.registry_file),
          "the registry file must be among the files");
  ReadSkipping(json, made);
  return made;
}

std::string Text(const Json& json, const Places& places) {
  const Json expanded = Expanded(json, places);
  Require(expanded.is_string(), "a text is needed: " + json.dump());
  return expanded.get<std::string>();
}

}  // namespace

bool Case::RunsOn(const std::string& surface) const {
  if (surfaces.empty()) return skip_reason.empty();
  return std::find(surfaces.begin(), surfaces.end(), surface) != surfaces.end();
}

std::vector<Case> ReadCaseFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  Require(bool(file), path + ": cannot be opened");
  std::string where = path;
  try {
    const Json json = Json::parse(file);
    AllowOnly(json, {"about", "codepage", "cases"}, "the file");
    std::vector<Case> cases;
    std::set<std::string> names;
    for (const Json& entry : json.at("cases")) {
      where = path + ": " + entry.value("name", "a case without a name");
      cases.push_back(ReadCase(entry, json.value("codepage", 1252)));
      Require(names.insert(cases.back().name).second, "the name is used twice");
    }
    where = path;
    Require(!cases.empty(), "there are no cases");
    return cases;
  } catch (const std::exception& error) {
    throw std::runtime_error(where + ": " + error.what());
  }
}

std::string FileBytes(const Json& content, const Places& places) {
  if (!content.is_object() || !content.contains("$hex")) return Text(content, places);
  const auto bytes = FromHexText(content["$hex"].get<std::string>());
  Require(bytes.has_value(), "hexadecimal digits are needed: " + content.dump());
  return {bytes->begin(), bytes->end()};
}

Json Expanded(const Json& value, const Places& places) {
  if (value.is_object() && value.size() == 1) {
    const std::string& key = value.begin().key();
    const Json& what = value.begin().value();
    if (key == "$log_folder") return places.log_folder;
    if (key == "$component_folder") return places.component_folder;
    if (key == "$repeat") {
      const std::string piece = Text(what.at(0), places);
      std::string text;
      for (int i = what.at(1).get<int>(); i > 0; --i)
        text += piece;
      return text;
    }
    if (key == "$concat") {
      std::string text;
      for (const Json& piece : what)
        text += Text(piece, places);
      return text;
    }
  }
  if (!value.is_structured()) return value;
  Json expanded = value;
  for (auto& item : expanded)
    item = Expanded(item, places);
  return expanded;
}

}  // namespace vandpublic
