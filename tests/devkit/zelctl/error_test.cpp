// SPDX-License-Identifier: Apache-2.0

// Wrong input and failed calls: one line, the exit status, no file touched.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

// The path of that name where there is nothing yet.
std::string NewPath(const std::string& name) {
  std::string path = WriteFile(name, "");
  std::filesystem::remove(path);
  return path;
}

TEST(Error, IsToldInOneLineAndLeavesFilesAsTheyAre) {
  const std::string png = WriteFile("kept.png", "kept");
  const std::string few = WriteFile("few.json", R"({"r": [0, 1, 0]})");
  const std::string extra = WriteFile(
      "extra.json", R"({"r": [0, 1, 0, 0], "g": [0, 0, 1, 0], "b": [0, 0, 0, 1], "on": true})");
  const std::string cut = WriteFile("cut.png", ReadFile(SAMPLE_PICTURE).substr(0, 2000));
  const std::string pipe = NewPath("fifo");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string self = NewPath("self");
  std::filesystem::create_symlink(self, self);
  const std::string unit =
      WriteFile("unit.json", R"({"r": [0, 1, 0, 0], "g": [0, 0, 1, 0], "b": [0, 0, 0, 1]})");
  const std::string picture = NewPath("link.png");
  std::filesystem::create_symlink(SAMPLE_PICTURE, picture);
  const std::string read = ": it is one of the files to read";
  const std::string image = "render 0 --image " SAMPLE_PICTURE " -o ";
  const std::string no_mode = "; valid modes: 0 srgb (1:2:3), 1 twin (4:5:0), 2 twin (4:5:1)";
  const struct {
    std::string arguments;
    std::string line;
    int status = 2;
    std::string before = {};
  } cases[] = {
      {"", "which subcommand? See zelctl --help"},
      {"render", "MODE is required"},
      {"modes --json=no", "--json takes no value"},
      {"--panel= modes", "--panel needs PATH"},
      {"render 0 --from", "--from needs MODE"},
      {"render 0 --imge in.png -o " + png, "no option '--imge'; did you mean '--image'?"},
      {"render 0 --gc-bits 1 --gc-bits 2", "--gc-bits is given more than once"},
      {"modes --panel ''", "can't read panel '': No such file or directory"},
      {"modes --parser " + pipe, "can't read parser " + pipe + ": not a file"},
      {"export 0 --format cube --size -1 -o " + png,
       "--size: '-1' is not a whole number from 0 to 4294967295"},
      {"export 0 --format csv -o ''", "can't write '': No such file or directory"},
      {"export 0 --format csv -o -", "can't write -: standard output is /dev/stdout"},
      {"export 0 --format csv -o x.CLF",
       "--output: x.CLF ends as files of --format clf do, not csv"},
      {"export 0 --format json -o " + unit + " --ltm " + unit, "can't write " + unit + read},
      {"export 0 --format json -o " + unit + " --panel " + unit, "can't write " + unit + read},
      {"render 0 --image " SAMPLE_PICTURE " -o " + picture, "can't write " + picture + read},
      {"export 0 --format csv -o " + self,
       "can't write " + self + ": Too many levels of symbolic links"},
      {"report 0 --patches a.html", "--patches: a.html must end in .ti1"},
      {"import a.ti3 -o a.json --bit-depth 5",
       "--bit-depth: '5' is not a whole number from 6 to 16"},
      {"import a.ti3 -o a.json --targets srgb,srgb", "--targets: 'srgb' is named twice"},
      {"import a.ti3 -o a.json --targets sgrb",
       "--targets: no target 'sgrb'; did you mean 'srgb'? (there are: srgb, display_p3, dcip3, "
       "bt2020_hlg, bt2020_st2084)"},
      {"import a.ti3 -o a.json --name $(printf '\\377')", "--name: it is no UTF-8"},
      {"import a.ti3 -o a.json --name ''", "--name: it is empty"},
      {"import a.ti3 -o a.json", "import takes no --panel: it calls no library"},
      {"modes caps", "nothing takes 'caps'"},
      {"help", "no command 'help'; see zelctl --help"},
      {"modes --panel /nowhere", "can't read panel /nowhere: No such file or directory"},
      {"modes --panel /", "can't read panel /: Is a directory"},
      {"modes --plugin /etc/passwd", "can't load plug-in /etc/passwd: invalid ELF header"},
      {"render 3", "no mode '3'" + no_mode},
      {"render twin", "label 'twin' names 2 modes" + no_mode},
      {"render 0 --dimming 1x", "--dimming: '1x' is not a number"},
      {"render 0 --dimming ''", "--dimming: '' is not a number"},
      {"render 0 --dimming 1e999", "--dimming: '1e999' is not a finite number"},
      {"render 0 --color-transform 1,2",
       "--color-transform: a matrix takes 16 numbers, not 2: '1,2'"},
      {"render 0 --color-transform greyscale",
       "--color-transform: no colour transform 'greyscale'; there are night:KELVIN, deuteranomaly, "
       "grayscale, identity, inversion, protanomaly, tritanomaly, and 16 numbers; did you mean "
       "'grayscale'?"},
      {"render 0 --color-transform night:1666",
       "--color-transform: night light takes 1667 to 25000 kelvin, not 1666"},
      {"render 0 --ltm " + few, "--ltm: " + few + ": $.r: expected 4 or 11 numbers"},
      {"render 0 --ltm " + extra, "--ltm: " + extra + ": $: unknown key \"on\""},
      {"render 0 --igc-entries 0", "--igc-entries: '0' is not a whole number from 1 to 1024"},
      {"render 0 --repeat 1e2", "--repeat: '1e2' is not a whole number from 1 to 1000"},
      {"render 0 --gc-bits 4294967296",
       "--gc-bits: '4294967296' is not a whole number from 0 to 4294967295"},
      {"render 0 --tables", "--tables requires --json"},
      {"render 0 --repeat 2 --steps", "--repeat excludes --steps"},
      {"render 0 -o " + png, "--output requires --image"},
      {image + "out.jpg", "--output: out.jpg must end in .png"},
      {"render 0 --image /etc/passwd -o " + png, "can't read picture /etc/passwd: Not a PNG file"},
      {"render 0 --image " + cut + " -o " + png,
       "can't read picture " + cut + ": the file ends too early"},
      {image + png, "can't write " + png + ": File too large", 2, "trap '' XFSZ; ulimit -f 2;"},
      {"plot 0 -o a.pdf", "--output: a.pdf must end in .svg or .png"},
      {"plot 0 --what 2 -o " + png, "--what: expected all, gamut, curves or pcc"},
      {"plot 0 --what pcc -o " + png, "can't run gnuplot, of the package gnuplot-nox", 2,
       "PATH=/nowhere"},
      {"modes >/dev/full", "can't write to standard output", 1},
      {"modes", "GetVcPostBlendInterface(2, 0) gave no object", 1, "FAIL=Factory1"},
      {"modes", "Init(\"/dev/null\") answered -5 (EIO)", 1, "FAIL=Init-5"},
      {"dither", "GetProperty(kVcPbDitherHwConfig) answered -2 (ENOENT)", 1, "FAIL=GetProperty-2"},
      {"assets 0", "ProcessOps(kVcModeSwAssets) answered 7", 1, "FAIL=ProcessOps7"},
      {"render 0", "ProcessOps(kVcModeRenderIntent) answered -4095", 1, "FAIL=ProcessOps-4095"},
      {"render 0 --gamut-bits 9", "SetProperty(kVcPostBlendGamutHwConfig) answered -22 (EINVAL)", 1,
       "FAIL=SetProperty-22"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunWithFake(test.arguments, test.before);
    EXPECT_EQ(run.status, test.status) << run.err;
    EXPECT_EQ(run.out, "");
    const size_t own_line = std::min(run.err.find("zelctl: "), run.err.size());
    EXPECT_EQ(run.err.substr(own_line), "zelctl: " + test.line + '\n') << run.err;
  }
  EXPECT_EQ(ReadFile(png), "kept");
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(png).parent_path())) {
    EXPECT_NE(entry.path().string().rfind(png + ".", 0), 0) << entry.path() << " is left over";
  }
}

// To a file that is not there yet, and to a pipe, which has no name.
TEST(Error, ALinkStaysALink) {
  const std::string target = NewPath("target");
  const std::string link = NewPath("link");
  for (const auto& [leads_to, after] : {std::pair(target, ""), {"/proc/self/fd/1", "| cat"}}) {
    std::filesystem::create_symlink(leads_to, link);
    const ZelctlRun run = RunZelctl("export 1 --format csv -o " + link + after);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(std::filesystem::is_symlink(link)) << leads_to;
    std::filesystem::remove(link);
  }
  EXPECT_TRUE(ReadFile(target).starts_with("block,entry,"));
}

}  // namespace
