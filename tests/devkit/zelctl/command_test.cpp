// Every subcommand against the fake plug-in, as tables and as JSON.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using nlohmann::json;

TEST(Command, PrintsTables) {
  const struct {
    const char* arguments;
    const char* out;
  } cases[] = {
      {"modes",
       "MODE  LABEL   GAMUT  GAMMA  INTENT  ASSETS\n"
       "   0  native      0      0       0\n"
       "   1  srgb        1      2       3  a b\n"
       "   2  twin        4      5       0\n"
       "   3  twin        4      5       1\n"},
      {"caps",
       "CAPABILITY       VALUE\n"
       "needs update     no\n"
       "tone mapping     no\n"
       "dimming          yes\n"
       "hardware assets  One Two\n"},
      {"assets 0",
       "BLOCK        ON  HASH      CONTENTS\n"
       "Strange      -   bc4cb63f  unknown block\n"
       "PostBlendDE  -   5373ba0a  its record is missing or of another version\n"},
      {"dither",
       "BLOCK            ON  HASH      CONTENTS\n"
       "PostBlendDither  no  a3a6dd87  params 88 B\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunWithFake(test.arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, test.out);
    EXPECT_NE(run.err.find("DeInit\ndestroyed\n"), std::string::npos) << run.err;
  }
}

TEST(Command, PrintsJson) {
  const struct {
    const char* arguments;
    const char* pointer;
    const char* value;
  } cases[] = {
      {"modes --json", "/modes/1",
       R"({"index":1,"gamut":1,"gamma":2,"intent":3,"label":"srgb","hw_assets":["a","b"]})"},
      {"--json modes", "/modes/3/index", "3"},
      {"caps --json", "",
       R"({"needs_update":false,"tone_mapping":false,"dimming":true,"hw_assets":["One","Two"]})"},
      {"dither --json", "/blocks/0/bytes", "96"},
      {"assets 0 --json", "/blocks/0", R"({"name":"Strange","bytes":0,"problem":"unknown block"})"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunWithFake(test.arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(json::parse(run.out).at(json::json_pointer(test.pointer)), json::parse(test.value))
        << test.arguments;
  }
}

TEST(Command, SendsTheModeMeant) {
  const struct {
    const char* arguments;
    const char* request;
  } cases[] = {
      {"render 1", "op 0 len 2912/32 mode srgb 1:2:3 assets 2\n"},
      {"render native", "op 0 len 2912/32 mode native 0:0:0 assets 0\n"},
      {"assets 4:5:1", "op 1 len 2912/32 mode twin 4:5:1 assets 0\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunWithFake(test.arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.err.find(test.request), std::string::npos) << run.err;
  }
}

TEST(Command, HelpShowsExamples) {
  const ZelctlRun run = RunZelctl("--help");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_NE(run.out.find("zelctl render srgb"), std::string::npos);
}

}  // namespace
