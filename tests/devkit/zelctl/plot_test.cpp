// SPDX-License-Identifier: Apache-2.0

// The plots of a mode.
#include <gtest/gtest.h>

#include <string>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

std::string Drawn(const std::string& ending, const std::string& arguments) {
  const std::string path = WriteFile("plot" + ending, "");
  const ZelctlRun run = RunZelctl("plot --log-level 0 -o " + path + " " + arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "") << arguments;
  return ReadFile(path);
}

size_t Count(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
  return count;
}

TEST(Plot, ShowsTheWholeOrAPart) {
  for (const std::string what : {"all", "gamut", "curves", "pcc"}) {
    const std::string svg = Drawn(".svg", "srgb --dimming 0.5 --igc-entries 33 --what " + what);
    const auto wanted = [&what](const char* part) { return what == "all" || what == part; };
    EXPECT_EQ(Count(svg, ">white shown<") > 0, wanted("gamut")) << what;
    EXPECT_EQ(Count(svg, "IGC: 33 entries of 12 bits") > 0, wanted("curves")) << what;
    EXPECT_EQ(Count(svg, ">+ dimming<") == 4, wanted("pcc")) << what;
  }
}

TEST(Plot, DrawsExtremes) {
  for (const char* arguments :
       {"bt2020_st2084", "1 --dimming 0", "1 --igc-entries 1 --igc-bits 1"}) {
    EXPECT_TRUE(Drawn(".png", arguments).starts_with("\x89PNG\r\n\x1a\n")) << arguments;
  }
  for (const char* factor : {"1", "8", "-30", "1e6"}) {
    const std::string svg = Drawn(".svg", "1 --what pcc --dimming=" + std::string(factor));
    EXPECT_GT(Count(svg, "<text"), 20) << factor;  // titles, and the ticks of four plots
    EXPECT_LT(Count(svg, "<text"), 60) << factor;
  }
}

// On the narrowest page two lines take what one has no room for.
TEST(Plot, TitleFitsThePage) {
  const std::string settings = "1 --dimming 0.5 --color-transform night:3400 --what ";
  const std::string wide = Drawn(".svg", settings + "all");
  const std::string line = "Mode 1 srgb (1:1:0)";
  const std::string rest = "of 6.4 inch wide-gamut OLED phone panel + transform + dimming";
  EXPECT_EQ(Count(wide, ">" + line + " " + rest + "<"), 2) << "title of document and page";
  const std::string narrow = Drawn(".svg", settings + "gamut");
  EXPECT_EQ(Count(narrow, ">" + line + "<"), 1);
  EXPECT_EQ(Count(narrow, ">" + rest + "<"), 1);
}

// gnuplot expands texts in some quotes, and runs what stands in backquotes.
TEST(Plot, ShowsALabelAsItIs) {
  const std::string label = R"(a'b`false`\"@x\\n{_2})";
  std::string description = ReadFile(PANELS "phone-oled.json");
  description.replace(description.find("native"), 6, label);
  const std::string panel = WriteFile("panel.json", description);
  const std::string svg = Drawn(".svg", "0 --panel '" + panel + "'");
  EXPECT_GE(Count(svg, "a'b`false`\"@x\\n{_2}"), 2) << "in the title and below the bars";
  EXPECT_EQ(Count(svg, "(0:0:0) of 6.4 inch wide-gamut OLED phone panel</"), 2);
  EXPECT_EQ(Count(svg, "<title>Gnuplot"), 0);
}

// A character of no script: no font has it. Letters that are too long are cut.
TEST(Plot, FallsBackToTheIndexWhereFontsLackALabel) {
  std::string description = ReadFile(PANELS "phone-oled.json");
  description.replace(description.find("native"), 6, "\xf4\x8f\xbf\xbd");
  description.replace(description.find("\"srgb\""), 6, "\"" + std::string(60, 'x') + "\"");
  const std::string panel = " --panel " + WriteFile("panel.json", description);
  const std::string out = WriteFile("plot.png", "");
  const ZelctlRun png = RunZelctl("plot 0 -o " + out + panel);
  EXPECT_EQ(png.status, 0);
  EXPECT_EQ(png.err,
            "zelctl: no font here has all characters of '\xf4\x8f\xbf\xbd': shown as 'mode 0'\n");
  const std::filesystem::path alone =
      WriteFile("gnuplot", "#!/bin/sh\nPATH=/usr/bin:/bin exec gnuplot \"$@\"\n");
  std::filesystem::permissions(alone, std::filesystem::perms::owner_all);
  const ZelctlRun unknown =
      RunZelctl("plot 0 -o " + out + panel, "PATH=" + alone.parent_path().string());
  EXPECT_EQ(unknown.status, 0);
  EXPECT_EQ(unknown.err,
            "zelctl: can't run fc-list, of the package fontconfig, to see whether fonts have all "
            "characters of '\xf4\x8f\xbf\xbd': shown as 'mode 0'\n");
  EXPECT_GE(Count(Drawn(".svg", "1" + panel), "xxxxxxxxxxxxx\xe2\x80\xa6"), 4);
}

// The sample panel is not the panel of somebody's own parser.
TEST(Plot, NeedsThePanelOfAnotherParser) {
  const std::string own = "--parser " BAD_LIBRARIES " plot 0 -o " + WriteFile("plot.svg", "");
  const std::string ask =
      ": say with --panel which description its panel has, for the gamut; "
      "--what curves and --what pcc need none\n";
  const ZelctlRun refused = RunZelctl(own);
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "zelctl: the mode parser is " BAD_LIBRARIES + ask);
  EXPECT_EQ(RunZelctl("plot 0 --arg x -o a.svg").err,
            "zelctl: the mode parser is given --arg" + ask);
  EXPECT_EQ(RunZelctl(own + " --what curves").status, 0);
  EXPECT_EQ(RunZelctl(own + " --panel " PANELS "phone-oled.json").status, 0);
  const std::string sample =
      "$(dirname " ZELTARN_LIBRARY ")/../share/zeltarn/panels/phone-oled.json";
  EXPECT_EQ(RunZelctl(own + " --panel " + sample).status, 0) << "it was asked for";

  const std::string copy = WriteFile("libtarn-json-mode-parser.so", "");
  std::filesystem::copy_file(
      std::filesystem::path(ZELTARN_LIBRARY).replace_filename("libtarn-json-mode-parser.so"), copy,
      std::filesystem::copy_options::overwrite_existing);
  const std::string found = "LD_LIBRARY_PATH=" + std::filesystem::path(copy).parent_path().string();
  const std::string plot = "plot 0 -o " + WriteFile("plot.svg", "");
  EXPECT_EQ(RunZelctl(plot, found).err, "zelctl: the mode parser is " + copy + ask);
  EXPECT_EQ(RunZelctl(plot + " --what pcc", found).status, 0);
}

}  // namespace
