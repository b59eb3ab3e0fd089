// Wrong input and failed calls: one line, and the exit status.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

// The program's own lines, without what the plug-in wrote.
std::vector<std::string> OwnLines(const std::string& err) {
  std::vector<std::string> lines;
  for (size_t start = 0; start < err.size();) {
    const size_t end = err.find('\n', start);
    const std::string line = err.substr(start, end - start);
    if (line.rfind("zelctl: ", 0) == 0) lines.push_back(line.substr(8));
    start = end + 1;
  }
  return lines;
}

void ExpectOneLine(const ZelctlRun& run, int status, const std::string& line) {
  EXPECT_EQ(run.status, status) << run.err;
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(OwnLines(run.err), std::vector<std::string>{line}) << run.err;
}

TEST(Error, WrongInputIsRefusedWithStatus2) {
  const std::string modes = "0 native (0:0:0), 1 srgb (1:2:3), 2 twin (4:5:0), 3 twin (4:5:1)";
  const std::string number16 = "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,";
  const std::string no_transform = " is neither the name of a colour transform nor 16 numbers";
  const struct {
    std::string arguments;
    std::string line;
  } cases[] = {
      {"", "which subcommand? See zelctl --help"},
      {"paint", "The following argument was not expected: paint"},
      {"modes 1", "The following argument was not expected: 1"},
      {"modes --log-level 3", "--log-level: Value 3 not in range 0 to 2"},
      {"modes --panel /nowhere", "can't read panel /nowhere: No such file or directory"},
      {"modes --panel /", "can't read panel /: Is a directory"},
      {"modes --plugin /nowhere", "can't read plug-in /nowhere: No such file or directory"},
      {"modes --plugin /etc/passwd", "can't load plug-in /etc/passwd: invalid ELF header"},
      {"render", "MODE is required"},
      {"render vivid", "no mode 'vivid'; valid modes: " + modes},
      {"render 4", "no mode '4'; valid modes: " + modes},
      {"assets 1:2:4", "no mode '1:2:4'; valid modes: " + modes},
      {"render twin", "label 'twin' names 2 modes; valid modes: " + modes},
      {"render 0 --from x", "no mode 'x'; valid modes: " + modes},
      {"render 0 --dimming half", "--dimming: 'half' is not a number"},
      {"render 0 --dimming ''", "--dimming: '' is not a number"},
      {"render 0 --dimming 1e999", "--dimming: '1e999' is not a finite number"},
      {"render 0 --dimming nan", "--dimming: 'nan' is not a finite number"},
      {"render 0 --color-transform sepia", "--color-transform: 'sepia'" + no_transform},
      {"render 0 --color-transform 1,2,3", "--color-transform: '1,2,3'" + no_transform},
      {"render 0 --color-transform " + number16 + "x", "--color-transform: 'x' is not a number"},
      {"render 0 --color-transform " + number16 + "NaN",
       "--color-transform: 'NaN' is not a finite number"},
      {"render 0 --color-transform night:1666",
       "--color-transform: night light takes 1667 to 25000 kelvin, not 1666"},
      {"render 0 --igc-entries 0", "--igc-entries: Value 0 not in range 1 to 1024"},
      {"render 0 --gc-entries 1025", "--gc-entries: Value 1025 not in range 1 to 1024"},
      {"render 0 --gc-bits -1", "Could not convert: --gc-bits = -1"},
      {"render 0 --repeat 0", "--repeat: Value 0 not in range 1 to 1000"},
      {"render 0 --repeat 2 --steps", "--repeat excludes --steps"},
      {"render 0 --image in.png", "--image requires --output"},
      {"render 0 -o out.png", "--output requires --image"},
      {"render 0 --image '' -o out.png", "can't read picture : No such file or directory"},
      {"render 0 --image in.png -o out.jpg", "--output: out.jpg must end in .png"},
      {"render 0 --image /nowhere -o out.png",
       "can't read picture /nowhere: No such file or directory"},
      {"render 0 --image /etc/passwd -o out.png", "can't read picture /etc/passwd: Not a PNG file"},
  };
  for (const auto& test : cases) ExpectOneLine(RunWithFake(test.arguments), 2, test.line);
}

TEST(Error, WrongLtmFileIsRefusedWithPlaceAndReason) {
  const struct {
    const char* text;
    const char* reason;
  } cases[] = {
      {"[1]", "$: expected an object"},
      {R"({"r":[0,1,0,0],"g":[0,0,1,0]})", "$: key \"b\" is missing"},
      {R"({"r":[0,1,0],"g":[0,0,1,0],"b":[0,0,0,1]})", "$.r: expected 4 or 11 numbers"},
      {R"({"r":[0,1,0,0],"g":[0,0,"1",0],"b":[0,0,0,1]})", "$.g[2]: expected a number"},
      {R"({"r":[0,1,0,0],"g":[0,0,1,0],"b":4})", "$.b: expected an array"},
      {R"({"enable":1,"r":[0,1,0,0],"g":[0,0,1,0],"b":[0,0,0,1]})",
       "$.enable: expected true or false"},
      {R"({"on":1,"r":[0,1,0,0],"g":[0,0,1,0],"b":[0,0,0,1]})", "$: unknown key \"on\""},
      {"{\n\"r\":[0,1,0,0],\"r\":1}", "line 2: key \"r\" stands twice in one object"},
      {R"({"r":[0,1e999,0,0]})", "line 1: number overflow parsing '1e999'"},
  };
  for (const auto& test : cases) {
    const std::string path = WriteFile("ltm.json", test.text);
    ExpectOneLine(RunWithFake("render 0 --ltm " + path), 2, "--ltm: " + path + ": " + test.reason);
  }
  ExpectOneLine(RunWithFake("render 0 --ltm /nowhere"), 2,
                "--ltm: /nowhere: No such file or directory");
}

TEST(Error, FailedCallIsNamedWithItsCode) {
  const struct {
    const char* arguments;
    const char* fail;
    const char* line;
  } cases[] = {
      {"modes", "Factory 1", "GetVcPostBlendInterface(2, 0) gave no object"},
      {"modes", "Init -5", "Init(\"/dev/null\") answered -5 (EIO)"},
      {"modes", "GetProperty -22", "GetProperty(kVcModesList) answered -22 (EINVAL)"},
      {"dither", "GetProperty 7", "GetProperty(kVcPbDitherHwConfig) answered 7"},
      {"assets 0", "ProcessOps -95", "ProcessOps(kVcModeSwAssets) answered -95 (EOPNOTSUPP)"},
      {"render 0", "ProcessOps -4095", "ProcessOps(kVcModeRenderIntent) answered -4095"},
      {"render 0 --dimming 1", "SetProperty -22",
       "SetProperty(kVcDimmingPcc) answered -22 (EINVAL)"},
  };
  for (const auto& test : cases) {
    const std::string fail = "FAKE_FAIL='" + std::string(test.fail) + "'";
    ExpectOneLine(RunWithFake(test.arguments, fail), 1, test.line);
  }
}

TEST(Error, LostOutputIsReported) {
  const ZelctlRun run = RunWithFake("modes >/dev/full");
  ExpectOneLine(run, 1, "can't write to standard output");
}

}  // namespace
