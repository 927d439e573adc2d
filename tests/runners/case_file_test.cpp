#include "runners/case_file.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace vandpublic {
namespace {

// What reading a file with this text raises, or nothing.
std::string Problem(const std::string& text) {
  const TempFolder folder;
  folder.Write("cases.json", text);
  std::string problem;
  try {
    ReadCaseFile((folder.path() / "cases.json").string());
  } catch (const std::runtime_error& error) {
    problem = error.what();
  }
  return problem;
}

std::string CaseProblem(const std::string& rest) {
  return Problem(R"({"cases":[{"name":"n",)" + rest + "}]}");
}

TEST(CaseFile, takes_what_the_format_says) {
  EXPECT_EQ(CaseProblem(R"("steps":[{"show":"a"}])"), "");
  EXPECT_EQ(CaseProblem(R"("steps":[{"show":"a","expect":{"result":1,"refs":{}}}],)"
                        R"("log":[["a","b"],["a","b","c"]],"only":["cpp"],"reason":"r")"),
            "");
}

// A mistyped key would leave something unchecked.
TEST(CaseFile, refuses_unknown_keys) {
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a"}],"lgo":[])"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a","expect":{"reslt":1}}])"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a","expect":{"error":{"nmber":1}}}])"), "");
  EXPECT_NE(Problem(R"({"cases":[],"codpage":1})"), "");
}

TEST(CaseFile, refuses_cases_that_check_nothing) {
  EXPECT_NE(CaseProblem(R"("steps":[])"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a","expect":{}}])"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a","expect":{"error":{}}}])"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a","expect":{"error":{"number":1},"result":1}}])"),
            "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a"}],"log":[["heading"]])"), "");
  EXPECT_NE(Problem(R"({"cases":[]})"), "");
  EXPECT_NE(Problem("{"), "");
}

TEST(CaseFile, refuses_a_name_used_twice_and_skipping_without_a_reason) {
  EXPECT_NE(Problem(R"({"cases":[{"name":"n","steps":[{"show":"a"}]},)"
                    R"({"name":"n","steps":[{"show":"a"}]}]})"),
            "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a"}],"reason":"r")"), "");
  EXPECT_NE(CaseProblem(R"("steps":[{"show":"a"}],"skip":"")"), "");
}

TEST(CaseFile, a_case_runs_where_it_says) {
  Case test;
  EXPECT_TRUE(test.RunsOn("cpp"));
  test.skip_reason = "r";
  EXPECT_FALSE(test.RunsOn("cpp"));
  test.surfaces = {"cpp"};
  EXPECT_TRUE(test.RunsOn("cpp"));
  EXPECT_FALSE(test.RunsOn("pipe"));
}

TEST(CaseFile, placeholders_stand_for_texts) {
  const Places places{"/log", "/bin"};
  const auto expanded = [&](const char* json) {
    return Expanded(Json::parse(json), places).dump();
  };
  EXPECT_EQ(expanded(R"({"$repeat":["ab",3]})"), "\"ababab\"");
  EXPECT_EQ(expanded(R"({"$concat":["a",{"$repeat":["b",2]},{"$log_folder":true}]})"),
            "\"abb/log\"");
  EXPECT_EQ(expanded(R"([{"x":{"$component_folder":true}},1,null])"), R"([{"x":"/bin"},1,null])");
  EXPECT_EQ(expanded(R"({"bytes":{"$repeat":["00",2]}})"), R"({"bytes":"0000"})");
  EXPECT_THROW(expanded(R"({"$concat":[1]})"), std::runtime_error);
}

}  // namespace
}  // namespace vandpublic
