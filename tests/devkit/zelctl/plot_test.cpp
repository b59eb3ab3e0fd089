// The plots of a mode.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "devkit/zelctl/plot/gamut_diagram.h"
#include "devkit/zelctl/plot/spectral_locus.h"
#include "plugin/names.h"
#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using tarn::color::Chromaticity;
using tarn::color::LuminanceWeights;
using tarn::color::Primaries;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Plot, NamesTheAxesOfItsPlots) {
  const std::vector<std::string> gamut = {">x<", ">y<", ">panel<", ">target<", ">white shown<"};
  const std::vector<std::string> curves = {"signal (1: full)", "linear light (1: peak)",
                                           "IGC: 33 entries of 12 bits"};
  const std::vector<std::string> pcc = {"linear light out (1: peak)", "+ dimming", "PCC: green in"};
  const struct {
    const char* what;
    std::vector<std::vector<std::string>> shown;
    std::vector<std::vector<std::string>> not_shown;
  } cases[] = {{"", {gamut, curves, pcc}, {}},
               {"--what gamut", {gamut}, {curves, pcc}},
               {"--what curves", {curves}, {gamut, pcc}},
               {"--what pcc", {pcc}, {gamut, curves}}};
  for (const auto& test : cases) {
    const std::string path = WriteFile("plot.svg", "");
    const ZelctlRun run = RunZelctl("plot srgb --dimming 0.5 --igc-entries 33 --log-level 0 -o " +
                                    path + " " + test.what);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
    const std::string svg = ReadFile(path);
    EXPECT_TRUE(Contains(svg, "<svg"));
    for (const auto& texts : test.shown) {
      for (const auto& text : texts) EXPECT_TRUE(Contains(svg, text)) << test.what << ": " << text;
    }
    for (const auto& texts : test.not_shown) EXPECT_FALSE(Contains(svg, texts.back()));
  }
}

TEST(Plot, DrawsEveryModeAndSetting) {
  const std::string path = WriteFile("plot.png", "");
  for (const char* arguments :
       {"0", "1", "2", "3", "4", "5", "6", "1 --dimming 0", "1 --color-transform inversion",
        "1 --igc-entries 2 --igc-bits 1 --gc-entries 2"}) {
    WriteFile("plot.png", "");
    const ZelctlRun run = RunZelctl("plot --log-level 0 -o " + path + " " + std::string(arguments));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(ReadFile(path).substr(0, 8), "\x89PNG\r\n\x1a\n");
  }
}

TEST(Plot, PccAxisStaysReadableForLargeValues) {
  for (const char* factor : {"1", "8", "-30", "1e6"}) {
    const std::string path = WriteFile("plot.svg", "");
    RunZelctl("plot 1 --what pcc --log-level 0 --dimming=" + std::string(factor) + " -o " + path);
    const std::string svg = ReadFile(path);
    size_t texts = 0;  // titles, and the ticks of four plots
    for (size_t at = 0; (at = svg.find("<text", at)) != std::string::npos; ++at) ++texts;
    EXPECT_GT(texts, 20) << factor;
    EXPECT_LT(texts, 60) << factor;
  }
}

// gnuplot expands texts in some quotes, and runs what stands in backquotes.
TEST(Plot, ShowsALabelAsItIs) {
  const std::string panel = WriteFile("two\nlines.json", R"({"format": 1, "name": "n", "panel": {
    "primaries": {"red": [0.64, 0.33], "green": [0.3, 0.6], "blue": [0.15, 0.06]},
    "white": [0.3127, 0.329], "luminance": {"peak": 500}, "transfer": "srgb"},
    "modes": [{"label": "a'b`false`\"@x\\n{_2}", "gamut": 0, "gamma": 0, "intent": 0}]})");
  const std::string path = WriteFile("plot.svg", "");
  const ZelctlRun run = RunZelctl("plot 0 --log-level 0 --panel '" + panel + "' -o " + path);
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string svg = ReadFile(path);
  EXPECT_TRUE(Contains(svg, "a'b`false`\"@x\\n{_2}")) << svg.substr(0, 4000);
  EXPECT_TRUE(Contains(svg, "two lines")) << svg.substr(0, 4000);
}

TEST(Plot, BadRequestsAreRefusedAndWriteNothing) {
  const std::string kept = WriteFile("kept.svg", "kept");
  const struct {
    std::string arguments;
    const char* environment;
    std::string line;
  } cases[] = {
      {"1", "", "--output is required"},
      {"1 -o plot.pdf", "", "--output: plot.pdf must end in .svg or .png"},
      {"1 -o /nowhere/plot.svg", "", "can't write /nowhere/plot.svg: No such file or directory"},
      {"vivid2 -o " + kept, "", "no mode 'vivid2'; valid modes: "},
      {"1 --what hue -o " + kept, "", "--what: expected all, gamut, curves or pcc\n"},
      {"1 --what 2 -o " + kept, "", "--what: expected all, gamut, curves or pcc\n"},
      {"1 --json -o " + kept, "", "plot takes no --json: it prints nothing\n"},
      {"1 -o " + kept, "PATH=/nowhere", "can't run gnuplot, of the package gnuplot-nox\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunZelctl("plot --log-level 0 " + test.arguments, test.environment);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err.find("zelctl: " + test.line), 0) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_EQ(ReadFile(kept), "kept");
  }
}

// Distance to the nearest of the corners.
double Nearest(const std::vector<Chromaticity>& corners, const Chromaticity& point) {
  double nearest = 1;
  for (const Chromaticity& corner : corners) {
    nearest = std::min(nearest, std::hypot(corner.x - point.x, corner.y - point.y));
  }
  return nearest;
}

// A PCC block that takes sRGB to a BT.2020 panel makes the panel show sRGB.
TEST(GamutDiagram, ShowsTheGamutThatThePccBlockMakes) {
  const Primaries& wide = tarn::color::kBt2020;
  const Primaries& small = tarn::color::kSrgb;
  const struct {
    bool pcc;
    Primaries shown;
  } cases[] = {{false, wide}, {true, small}};
  for (const auto& test : cases) {
    auto record = std::make_shared<velaricolor::PccPostBlendConfig>();
    record->enable = test.pcc;
    record->coeffs = {};
    const auto matrix = ConversionMatrix(small, wide, false);
    std::copy_n(matrix[0].begin(), 3, record->coeffs.r.begin() + 1);
    std::copy_n(matrix[1].begin(), 3, record->coeffs.g.begin() + 1);
    std::copy_n(matrix[2].begin(), 3, record->coeffs.b.begin() + 1);
    velaricolor::HwConfigOutputParams output;
    output.payloads.push_back(
        {.hw_block = velaricolor::kPostBlendPCC, .payload = record, .len = sizeof *record});

    tarn::reference::Panel panel;
    panel.primaries = wide;
    panel.luminance.peak = 500;
    const auto diagram = zelctl::MakeGamutDiagram(panel, {.primaries = small},
                                                  zelctl::BlockPipeline(output, 12, 10));
    for (const Chromaticity& corner : {test.shown.red, test.shown.green, test.shown.blue}) {
      EXPECT_LT(Nearest(diagram.shown, corner), 1e-9);
    }
    for (const Chromaticity& point : diagram.shown) {
      const auto [r, g, b] =
          LuminanceWeights({test.shown.red, test.shown.green, test.shown.blue, point});
      EXPECT_GT(std::min({r, g, b}), -1e-9) << point.x << ' ' << point.y << " lies outside";
    }
    ASSERT_EQ(diagram.shown_white.size(), 1);
    EXPECT_LT(Nearest(diagram.shown_white, tarn::color::kD65), 1e-9);
  }
}

// ITU-R BT.2020's primaries are monochromatic: 630, 532 and 467 nm.
TEST(SpectralLocus, HoldsTheMonochromaticPrimaries) {
  const struct {
    double nanometres;
    Chromaticity xy;
  } cases[] = {{630, tarn::color::kBt2020.red},
               {532, tarn::color::kBt2020.green},
               {467, tarn::color::kBt2020.blue}};
  for (const auto& test : cases) {
    const double position = (test.nanometres - 380) / 5;
    const auto& low = zelctl::kSpectralLocus.at(static_cast<size_t>(position));
    const auto& high = zelctl::kSpectralLocus.at(static_cast<size_t>(position) + 1);
    EXPECT_EQ(low.nanometres, 5 * std::floor(test.nanometres / 5));
    const double share = position - std::floor(position);
    EXPECT_NEAR((1 - share) * low.xy.x + share * high.xy.x, test.xy.x, 0.0015);
    EXPECT_NEAR((1 - share) * low.xy.y + share * high.xy.y, test.xy.y, 0.0015);
  }
}

}  // namespace
