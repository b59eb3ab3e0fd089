// SPDX-License-Identifier: Apache-2.0

// Somebody's own libraries: the ones that --parser and --algo name, and answers of theirs
// that a host does not get whole.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"
#include "tests/support/rows.h"

namespace {

using nlohmann::json;

// With both libraries of bad_libraries.cpp. Of what is said, zelctl's own lines.
ZelctlRun RunOwn(const std::string& arguments, const std::string& fault) {
  ZelctlRun run = RunZelctl(
      "--parser " BAD_LIBRARIES " --algo " BAD_LIBRARIES " --panel /dev/null " + arguments,
      "ASAN_OPTIONS=handle_segv=0:handle_abort=0 FAULT='" + fault + "'");
  std::istringstream said(run.err);
  run.err.clear();
  for (std::string line; std::getline(said, line);) {
    if (line.starts_with("zelctl: ")) run.err += line.substr(8) + '\n';
  }
  return run;
}

TEST(OwnLibraries, AreUsedUnderWhateverName) {
  const ZelctlRun run = RunOwn("modes", "");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(
      run.out.ends_with("   0  one        1      1       0\n   1  two        2      1       0\n"))
      << run.out;
  // The fault is the algorithm library's alone: its merge is what counts.
  const auto rows = [](const std::string& fault) {
    const ZelctlRun merged =
        RunOwn("render 0 --json --color-transform grayscale --ltm " +
                   WriteFile("twice.json", R"({"r": [0, 2, 0, 0], "g": [0, 0, 3, 0],
                                                                "b": [0, 0, 0, 4]})"),
               fault);
    return json::parse(merged.out)["rounds"][0]["pcc"]["rows"]["g"];
  };
  EXPECT_NE(rows(""), rows("wrong order"));
}

// The loader looks where the library says, not where zelctl does.
TEST(OwnLibraries, FindTheirNeighbours) {
  const std::string own = WriteFile("own.so", ReadFile(BAD_LIBRARIES));
  const std::string modes = "modes --panel /dev/null --parser " + own;
  EXPECT_EQ(RunZelctl(modes, "FAULT='needs a neighbour'").status, 1);
  WriteFile("libneighbour.so", ReadFile(FAKE_PLUGIN));
  EXPECT_EQ(RunZelctl(modes, "FAULT='needs a neighbour'").status, 0);
}

const std::string kRender = "the render intent of mode 1:1:0";
struct ProblemCase {
  std::string arguments;
  std::string name;  // of the fault
  std::string problem;
};
const ProblemCase kProblems[] = {
    {"render 0", "none", ""},
    {"render 0", "render fails", "the mode parser answered -5 (EIO) to " + kRender},
    {"render 0", "unknown name",
     "block Odd? of " + kRender +
         " did not arrive: there is no block of this name; nor did the 2 after it"},
    {"render 0", "no record",
     "block PostBlendDE of " + kRender + " did not arrive: it has no record"},
    {"render 0", "short list",
     "block PostBlendIGC of " + kRender +
         " did not arrive: a list has 256 entries instead of 257; nor did the 3 after it"},
    {"render 0 --igc-entries 300", "forgets sizes",
     "block PostBlendIGC of " + kRender +
         " did not arrive: a list has 257 entries instead of 300; nor did the 3 after it"},
    {"render 0", "not a number", "block PostBlendPCC holds a number that is not finite"},
    {"dither", "unknown dither",
     "block Dither of the dither configuration did not arrive: there is no block of this name"},
    {"assets 0", "assets fail",
     "the mode parser answered -5 (EIO) to the software assets of mode 1:1:0"},
};

class OwnLibrariesProblem : public testing::TestWithParam<ProblemCase> {};
ZEL_TEST_ROWS(OwnLibrariesProblem, kProblems);

TEST_P(OwnLibrariesProblem, IsSaidAndFailsAStrictRun) {
  const auto& [arguments, fault, problem] = GetParam();
  const ZelctlRun run = RunOwn(arguments, fault);
  EXPECT_EQ(run.err.substr(0, run.err.find('\n')), problem);
  if (arguments.starts_with("render")) EXPECT_EQ(run.status, 0) << "the plug-in answers 0";
  const ZelctlRun strict = RunOwn(arguments + " --strict --json", fault);
  EXPECT_EQ(strict.status, problem.empty() ? 0 : 1);
  const json report = json::parse(strict.out, nullptr, false);
  ASSERT_TRUE(report.is_object()) << strict.out;
  const json problems = problem.empty() ? json::array() : json::array({problem});
  if (report.contains("problems")) EXPECT_EQ(report["problems"], problems);
}

TEST(OwnLibraries, GiveNoPictureOfWhatIsNoNumber) {
  for (const char* draws : {"render 0 --image " SAMPLE_PICTURE " -o ", "plot 0 --what pcc -o "}) {
    const ZelctlRun run = RunOwn(draws + WriteFile("nan.png", ""), "not a number");
    EXPECT_NE(run.err.find("PostBlendPCC: a coefficient is no finite number\n"), std::string::npos);
    EXPECT_EQ(run.status, 1);
  }
  EXPECT_EQ(RunZelctl("render 0 --dimming -1").err,
            "zelctl: --dimming -1 is not from 0 to 1: negative light is shown as none\n");
  const ZelctlRun nan = RunOwn("render 0 --json", "not a number");
  EXPECT_EQ(json::parse(nan.out)["rounds"][0]["pcc"]["rows"]["b"][10], "nan");
}

TEST(OwnLibraries, DontEndZelctlInSilence) {
  const std::string more = "; zelctl validate says more\n";
  const struct {
    const char* arguments;
    const char* fault;
    std::string line;
  } cases[] = {
      {"modes", "crashes", "killed by signal 11 while calling Init of the mode parser" + more},
      {"render 0", "aborts in a render intent",
       "killed by signal 6 while asking the mode parser for the render intent of mode 1:1:0" +
           more},
      {"modes", "exits", "the process was ended while calling Init of the mode parser" + more},
      {"assets 0", "exits in DeInit",
       "the process was ended while calling DeInit of the mode parser" + more},
      {"modes", "_exits", "the process was ended while calling Init of the mode parser" + more},
      {"modes", "Init throws",
       "an exception left the library while calling Init of the mode parser: no panel\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunOwn(test.arguments, test.fault);
    EXPECT_EQ(run.err, test.line);
    if (test.line.find("killed") == 0) continue;  // the signal is the status
    EXPECT_EQ(run.status, 1) << test.fault;
    EXPECT_EQ(run.out, test.arguments == std::string("assets 0") ? "no blocks\n" : "");
  }
}

TEST(OwnLibraries, AreNamedWhereTheyDoNotAnswer) {
  const ZelctlRun run = RunZelctl("modes --panel /dev/null --parser " BAD_LIBRARIES,
                                  "FAULT=hangs timeout -s KILL 12");
  EXPECT_EQ(run.err.substr(0, run.err.find('\n')),
            "zelctl: no answer for 10 s while calling Init of the mode parser; waiting on");
}

TEST(OwnLibraries, GetTheTextThatTheUserGives) {
  const ZelctlRun run = RunZelctl("modes --arg " PANELS "odd.json --panel /nowhere");
  EXPECT_NE(run.out.find(" paper_exact "), std::string::npos) << run.err;
  EXPECT_EQ(RunOwn("modes", "its child ends").err, "") << "that is none of its calls";
}

TEST(OwnLibraries, SayInTheLoadersWordsWhyTheyCantBeUsed) {
  const struct {
    std::string arguments;
    std::string line;
  } cases[] = {
      {"--parser " UNDEFINED_SYMBOL_LIBRARY " modes",
       "can't use mode parser " UNDEFINED_SYMBOL_LIBRARY ": undefined symbol: NobodyDefinesThis"},
      {"--algo " UNDEFINED_SYMBOL_LIBRARY " modes",
       "can't use algorithm library " UNDEFINED_SYMBOL_LIBRARY
       ": undefined symbol: NobodyDefinesThis"},
      {"--parser " ZELTARN_LIBRARY " modes",
       "can't use mode parser " ZELTARN_LIBRARY ": it exports no GetTarnZelInterface"},
      {"--parser /nowhere modes", "can't read parser /nowhere: No such file or directory"},
#ifdef LIBSTDCXX_LIBRARY
      {"--algo " LIBSTDCXX_LIBRARY " modes", "can't use algorithm library " LIBSTDCXX_LIBRARY
                                             ": linked to another C++ runtime, libstdc++.so.6: "
                                             "records hold strings and vectors of libc++"},
#endif
      {"--panel /dev/null modes --parser " BAD_LIBRARIES,
       "mode parser " BAD_LIBRARIES ": Init(\"/dev/null\") answered -5 (EIO)"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunZelctl(test.arguments + " --json", "FAULT='Init fails'");
    EXPECT_NE(run.err.find("zelctl: " + test.line + '\n'), std::string::npos) << run.err;
    const json error = json::parse(run.out)["error"];
    EXPECT_EQ(error["message"], test.line);
    EXPECT_EQ(error["status"], run.status);
    EXPECT_EQ(run.status, test.line.find("can't read") == 0 ? 2 : 1);
  }
}

}  // namespace
