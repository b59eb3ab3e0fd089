// SPDX-License-Identifier: Apache-2.0

// zelctl validate with the reference libraries, and with libraries that have one fault.
#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"
#include "tests/support/rows.h"

namespace {

using nlohmann::json;

// "RULE: RESULT" of the rules that are neither passed nor skipped, and the status.
std::string Complaints(const ZelctlRun& run) {
  std::string text;
  const json report = json::parse(run.out, nullptr, false);
  for (const json& rule : report.at("rules")) {
    if (rule["result"] == "passed" || rule["result"] == "skipped") continue;
    text += rule["rule"].get<std::string>() + ": " + rule["result"].get<std::string>() + ", ";
  }
  return text + "status " + std::to_string(run.status);
}

ZelctlRun Validate(const std::string& library, const std::string& fault) {
  return RunZelctl("validate --json --" + library + " " BAD_LIBRARIES " --arg x",
                   "FAULT='" + fault + "'");
}

TEST(Validate, ReferenceLibrariesKeepEveryRule) {
  for (const std::string panel : {"phone-oled", "lcd-srgb", "odd"}) {
    const ZelctlRun run = RunZelctl("validate --panel " PANELS + panel + ".json");
    EXPECT_EQ(run.status, 0) << run.out;
    EXPECT_NE(run.out.find(" passed, 0 failed, 0 warnings, 0 skipped\n"), std::string::npos)
        << run.out;
  }
}

const std::string kFailed = ": FAILED, status 1";
const std::string kWarning = ": warning, status 0";
struct FaultCase {
  std::string library;
  std::string fault;
  std::string complaints;
  std::string name = library + " " + fault;
};
const FaultCase kFaults[] = {
    {"parser", "", "status 0"},
    {"parser", "no object", "makes an object" + kFailed},
    {"parser", "any version", "refuses other versions" + kWarning},
    {"parser", "Init fails", "initialises" + kFailed},
    {"parser", "Init throws", "initialises" + kFailed},
    {"parser", "list fails", "lists its modes" + kFailed},
    {"parser", "no modes", "lists its modes" + kFailed},
    {"parser", "ids twice", "mode ids unique" + kFailed},
    {"parser", "label twice", "mode labels unique" + kWarning},
    {"parser", "label empty", "mode labels unique" + kWarning},
    {"parser", "render fails", "render intents" + kFailed},
    {"parser", "refuses sizes", "takes table sizes" + kWarning},
    {"parser", "assets fail", "software assets" + kFailed},
    {"parser", "no dither", "status 0"},
    {"parser", "unknown dither", "block names" + kFailed},
    {"parser", "unsteady", "same answer twice" + kFailed},
    {"parser", "one thread", "same answer twice" + kFailed},
    {"parser", "one record", "records don't change" + kFailed},
    {"parser", "any mode", "unknown mode refused" + kWarning},
    {"parser", "entry version", "entry versions" + kFailed},
    {"parser", "unknown name", "block names" + kFailed},
    {"parser", "name twice", "no block twice" + kFailed},
    {"parser", "no record", "records there" + kFailed},
    {"parser", "len", "record lengths" + kFailed},
    {"parser", "record version", "record versions" + kFailed},
    {"parser", "short list", "gamma list lengths" + kFailed},
    {"parser", "forgets sizes", "gamma list lengths" + kFailed},
    {"parser", "sizes swapped", "gamma list lengths" + kFailed},
    {"parser", "code too large", "gamma codes fit depth" + kWarning},
    {"parser", "codes fall", "gamma codes don't fall" + kWarning},
    {"parser", "not a number", "PCC numbers finite" + kFailed},
    {"parser", "writes request", "records left alone" + kFailed},
    {"parser", "writes envelope", "records left alone" + kFailed},
    {"parser", "writes answer version", "records left alone" + kFailed},
    {"parser", "writes list version", "records left alone" + kFailed},
    {"parser", "writes size", "records left alone" + kFailed},
    {"parser", "ends once", "ends" + kFailed},
    {"parser", "starts once", "starts again" + kFailed},
    {"algo", "", "status 0"},
    {"algo", "no object", "makes an object" + kFailed},
    {"algo", "Init fails", "initialises" + kFailed},
    {"algo", "identity scales", "merges the identity" + kFailed},
    {"algo", "wrong order", "merges matrices" + kFailed},
    {"algo", "offset lost", "merges matrices" + kFailed},
    {"algo", "any merge", "refuses the inexact" + kFailed},
    {"algo", "unsteady", "same answer twice" + kFailed},
    {"algo", "own reserved", "reserved bytes" + kWarning},
    {"algo", "any operation", "unknown operation" + kWarning},
    {"algo", "writes operands", "records left alone" + kFailed},
    {"algo", "writes result version", "records left alone" + kFailed},
};

class ValidateFault : public testing::TestWithParam<FaultCase> {};
ZEL_TEST_ROWS(ValidateFault, kFaults);

TEST_P(ValidateFault, BreaksOneRule) {
  const ZelctlRun run = Validate(GetParam().library, GetParam().fault);
  EXPECT_EQ(Complaints(run), GetParam().complaints) << run.out << run.err;
}

// Of an answer's blocks, the one at fault, what it costs, and how often.
TEST(Validate, SaysWhatWasSeen) {
  const struct {
    const char* fault;
    const char* line;
  } cases[] = {
      {"unknown name",
       "render intent of one (1:1:0), Odd?: not a block; lost after it: PostBlendPCC "
       "PostBlendDE; 7 more\n"},
      {"forgets sizes",
       "render intent of one (1:1:0) at 1024 IGC and 1024 GC entries, PostBlendIGC c0: entries 257 "
       "instead of 1024; 5 more\n"},
      {"render fails", "render intent of one (1:1:0): answered -5 (EIO); 7 more\n"},
      {"Init throws", "an exception left a call: no panel\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run =
        RunZelctl("validate --parser " BAD_LIBRARIES, "FAULT='" + std::string(test.fault) + "'");
    EXPECT_NE(run.out.find(test.line), std::string::npos) << run.out;
  }
}

// The guide's example, whose lines follow each other but where it says "...".
TEST(Validate, PrintsWhatTheGuideShows) {
  const std::string guide = ReadFile(LIBRARY_GUIDE);
  const size_t prompt = guide.find("$ zelctl validate ");
  const size_t start = guide.find('\n', prompt) + 1;
  std::istringstream shown(guide.substr(start, guide.find("```", start) - start));
  const std::string out =
      RunZelctl("validate --parser " BAD_LIBRARIES " --arg x", "FAULT='forgets sizes'").out;
  size_t lines = 0;
  size_t place = 0;
  bool next = true;  // the line before is shown too
  for (std::string line; std::getline(shown, line); ++lines) {
    if (line == "...") {
      next = false;
      continue;
    }
    const size_t found = out.find(line + '\n', place);
    ASSERT_NE(found, std::string::npos) << line << '\n' << out;
    if (next) EXPECT_EQ(found, place) << line;
    place = found + line.size() + 1;
    next = true;
  }
  EXPECT_EQ(place, out.size());
  EXPECT_GE(lines, 5);
}

// One line says the cause; the rules after it have results, and JSON is whole.
struct EndCase {
  std::string library;
  std::string fault;
  std::string rule;
  std::string cause;
  std::string name = library + " " + fault;
};
const EndCase kEnds[] = {
    {"parser", "crashes in the factory", "makes an object",
     "killed by signal 11 (SIGSEGV) while calling the factory"},
    {"parser", "crashes", "initialises", "killed by signal 11 (SIGSEGV) while calling Init"},
    {"parser", "aborts in a render intent", "render intents",
     "killed by signal 6 (SIGABRT) while asking for render intent of one (1:1:0)"},
    {"parser", "hangs", "initialises", "no answer in " TIMEOUT " s while calling Init"},
    {"parser", "hangs in software assets", "software assets",
     "no answer in " TIMEOUT " s while asking for software assets of one (1:1:0)"},
    {"parser", "exits", "initialises", "ended the process with status 0 while calling Init"},
    {"parser", "exits in DeInit", "ends", "ended the process with status 7 while calling DeInit"},
    {"parser", "is killed", "software assets",
     "killed by signal 9 (SIGKILL) while asking for software assets of one (1:1:0)"},
    {"parser", "closes files", "initialises", "closed files of zelctl's while calling Init"},
    {"algo", "hangs", "initialises", "no answer in " TIMEOUT " s while calling Init"},
};

class ValidateEnd : public testing::TestWithParam<EndCase> {};
ZEL_TEST_ROWS(ValidateEnd, kEnds);

TEST_P(ValidateEnd, OfALibrarysProcessIsOutlived) {
  const EndCase& test = GetParam();
  const ZelctlRun run = RunZelctl(
      "validate --json --timeout " TIMEOUT " --" + test.library + " " BAD_LIBRARIES " --arg x",
      "ASAN_OPTIONS=handle_segv=0:handle_abort=0 FAULT='" + test.fault + "'");
  EXPECT_EQ(run.status, 1);
  const json report = json::parse(run.out, nullptr, false);
  ASSERT_TRUE(report.is_object()) << run.out;
  EXPECT_EQ(report["counts"]["failed"], 1) << run.out;
  EXPECT_EQ(report["rules"].size(), test.library == "parser" ? 28U : 14U);
  for (const json& rule : report["rules"]) {
    if (rule["result"] != "FAILED") continue;
    EXPECT_EQ(rule["rule"], test.rule);
    EXPECT_EQ(rule["seen"], test.cause);
  }
  if (test.rule == "software assets") {
    EXPECT_EQ(report["counts"]["skipped"], 0) << "the rules after it need nothing of it";
  }
}

// The limit is for a call, not for all that a rule asks.
TEST(Validate, WaitsForASlowLibrary) {
  const ZelctlRun run =
      RunZelctl("validate --timeout " TIMEOUT " --parser " BAD_LIBRARIES " --arg x", "FAULT=slow");
  EXPECT_EQ(run.status, 0) << run.out;
}

// A process that has ended may still have its number, until its parent asks.
bool Runs(const std::string& pid) {
  const std::string state = ReadFile("/proc/" + pid + "/stat");
  return !state.empty() && state.find(") Z ") == std::string::npos;
}

// When it ended by itself, and when somebody ended it.
TEST(Validate, LeavesNoProcess) {
  const std::string later = std::to_string(std::stoi(TIMEOUT) + 1);
  for (const auto& end : {std::string(), "timeout -s INT " + later}) {
    const std::string file = WriteFile("pid", "");
    RunZelctl("validate --timeout " + std::string(end.empty() ? TIMEOUT : "60") +
                  " --algo " BAD_LIBRARIES " --arg x",
              "FAULT='hangs, having started a process' PID_FILE=" + file + " " + end);
    const std::string pid = ReadFile(file);
    ASSERT_NE(pid, "");
    for (int i = 0; i < 100 && Runs(pid); ++i) usleep(20'000);
    EXPECT_FALSE(Runs(pid)) << end;
  }
}

TEST(Validate, NeedsNoStandardStreams) {
  EXPECT_EQ(RunZelctl("validate <&- >&-").err, "zelctl: can't write to standard output\n");
  const ZelctlRun run = RunZelctl("validate <&- 2>&-");
  EXPECT_EQ(run.status, 0) << run.out;
}

// What the library prints is no line of the report.
TEST(Validate, KeepsTheLibrarysOwnLinesApart) {
  const ZelctlRun quiet = RunZelctl("validate --json --algo " BAD_LIBRARIES, "FAULT='prints'");
  EXPECT_TRUE(json::accept(quiet.out)) << quiet.out;
  EXPECT_EQ(quiet.err, "");
  const ZelctlRun failed = RunZelctl("validate --algo " BAD_LIBRARIES, "FAULT='prints and fails'");
  EXPECT_EQ(failed.err, "    the library: no licence for x\nzelctl: 1 rule failed\n");
  const ZelctlRun all = RunZelctl("validate --log-level 2 --algo " BAD_LIBRARIES, "FAULT='prints'");
  EXPECT_NE(all.err.find("    the library: hello\n"), std::string::npos);
  EXPECT_EQ(all.status, 0);
}

TEST(Validate, SkippedRulesShareALine) {
  const ZelctlRun run = RunZelctl("validate --parser " BAD_LIBRARIES, "FAULT='Init fails'");
  EXPECT_TRUE(
      run.out.ends_with("parser     initialises             FAILED   Init answered -5 (EIO)\n"
                        "parser     23 rules                skipped  not initialised\n"
                        "4 passed, 1 failed, 0 warnings, 23 skipped\n"))
      << run.out;
}

TEST(Validate, FilesThatAreNoLibrary) {
  const struct {
    const char* arguments;
    std::string complaints;
  } cases[] = {
      {"--parser /etc/passwd", "opens: FAILED, status 1"},
      {"--algo " ZELTARN_LIBRARY, "exports its factory: FAILED, status 1"},
#ifdef LIBSTDCXX_LIBRARY
      {"--algo " LIBSTDCXX_LIBRARY, "opens: FAILED, status 1"},
#endif
      {"--parser " UNDEFINED_SYMBOL_LIBRARY, "opens: FAILED, status 1"},
      {"--plugin /nowhere/libzeltarn.so", "opens: FAILED, opens: warning, status 1"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run =
        RunZelctl("validate --json " + std::string(test.arguments), "LD_LIBRARY_PATH=");
    EXPECT_EQ(Complaints(run), test.complaints) << run.out;
  }
#ifdef LIBSTDCXX_LIBRARY
  EXPECT_NE(RunZelctl("validate --algo " LIBSTDCXX_LIBRARY)
                .out.find("linked to another C++ runtime, libstdc++.so.6"),
            std::string::npos);
#endif
  EXPECT_NE(RunZelctl("validate --parser " UNDEFINED_SYMBOL_LIBRARY)
                .out.find("undefined symbol: NobodyDefinesThis"),
            std::string::npos);
  for (const char* arguments :
       {"--timeout 0", "--parser /nowhere", "--algo /", "--panel /nowhere", "extra"}) {
    EXPECT_EQ(RunZelctl("validate " + std::string(arguments)).status, 2) << arguments;
  }
}

}  // namespace
