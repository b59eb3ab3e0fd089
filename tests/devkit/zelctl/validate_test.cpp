// zelctl validate with the reference libraries, and with libraries that have one fault.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"

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

TEST(Validate, OneFaultBreaksOneRule) {
  const std::string failed = ": FAILED, status 1";
  const std::string warning = ": warning, status 0";
  const struct {
    const char* library;
    const char* fault;
    std::string complaints;
  } cases[] = {
      {"parser", "", "status 0"},
      {"parser", "no object", "makes an object" + failed},
      {"parser", "any version", "refuses other versions" + warning},
      {"parser", "Init fails", "initialises" + failed},
      {"parser", "Init throws", "initialises" + failed},
      {"parser", "list fails", "lists its modes" + failed},
      {"parser", "no modes", "lists its modes" + failed},
      {"parser", "ids twice", "mode ids unique" + failed},
      {"parser", "label twice", "mode labels unique" + warning},
      {"parser", "label empty", "mode labels unique" + warning},
      {"parser", "render fails", "render intents" + failed},
      {"parser", "refuses sizes", "takes table sizes" + warning},
      {"parser", "assets fail", "software assets" + failed},
      {"parser", "no dither", "status 0"},
      {"parser", "unknown dither", "block names" + failed},
      {"parser", "unsteady", "same answer twice" + failed},
      {"parser", "one thread", "same answer twice" + failed},
      {"parser", "any mode", "unknown mode refused" + warning},
      {"parser", "entry version", "entry versions" + failed},
      {"parser", "unknown name", "block names" + failed},
      {"parser", "name twice", "no block twice" + failed},
      {"parser", "no record", "records there" + failed},
      {"parser", "len", "record lengths" + failed},
      {"parser", "record version", "record versions" + failed},
      {"parser", "short list", "gamma list lengths" + failed},
      {"parser", "forgets sizes", "gamma list lengths" + failed},
      {"parser", "sizes swapped", "gamma list lengths" + failed},
      {"parser", "code too large", "gamma codes fit depth" + warning},
      {"parser", "codes fall", "gamma codes don't fall" + warning},
      {"parser", "not a number", "PCC numbers finite" + failed},
      {"parser", "writes request", "records left alone" + failed},
      {"parser", "writes envelope", "records left alone" + failed},
      {"parser", "writes answer version", "records left alone" + failed},
      {"parser", "writes list version", "records left alone" + failed},
      {"parser", "writes size", "records left alone" + failed},
      {"parser", "ends once", "ends" + failed},
      {"parser", "starts once", "starts again" + failed},
      {"algo", "", "status 0"},
      {"algo", "no object", "makes an object" + failed},
      {"algo", "Init fails", "initialises" + failed},
      {"algo", "identity scales", "merges the identity" + failed},
      {"algo", "wrong order", "merges matrices" + failed},
      {"algo", "offset lost", "merges matrices" + failed},
      {"algo", "any merge", "refuses the inexact" + failed},
      {"algo", "unsteady", "same answer twice" + failed},
      {"algo", "own reserved", "reserved bytes" + warning},
      {"algo", "any operation", "unknown operation" + warning},
      {"algo", "writes operands", "records left alone" + failed},
      {"algo", "writes result version", "records left alone" + failed},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = Validate(test.library, test.fault);
    EXPECT_EQ(Complaints(run), test.complaints) << test.fault << '\n' << run.out << run.err;
  }
}

// Of an answer's blocks, the one at fault, what it costs, and how often.
TEST(Validate, SaysWhatWasSeen) {
  const struct {
    const char* fault;
    const char* line;
  } cases[] = {
      {"unknown name",
       "render intent of one (1:1:0), Odd?: not a block; behind it are lost: PostBlendPCC "
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

TEST(Validate, LinesBeforeACrashAreThere) {
  const ZelctlRun run = RunZelctl("validate --parser " BAD_LIBRARIES, "FAULT=crashes");
  const size_t last = run.out.rfind('\n', run.out.size() - 2) + 1;
  EXPECT_EQ(run.out.substr(last), "parser     takes table sizes       passed   3 sizes taken\n");
}

TEST(Validate, FilesThatAreNoLibrary) {
  const struct {
    const char* arguments;
    std::string complaints;
  } cases[] = {
      {"--parser /etc/passwd", "opens: FAILED, status 1"},
      {"--algo " ZELTARN_LIBRARY, "exports its factory: FAILED, status 1"},
      {"--plugin /nowhere/libzeltarn.so", "opens: FAILED, opens: warning, status 1"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run =
        RunZelctl("validate --json " + std::string(test.arguments), "LD_LIBRARY_PATH=");
    EXPECT_EQ(Complaints(run), test.complaints) << run.out;
  }
  for (const char* arguments : {"--parser /nowhere", "--algo /", "--panel /nowhere", "extra"}) {
    EXPECT_EQ(RunZelctl("validate " + std::string(arguments)).status, 2) << arguments;
  }
}

}  // namespace
