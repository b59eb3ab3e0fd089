// Pictures that go through the blocks of the default panel's modes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "tests/devkit/zelctl/png_pixels.h"
#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

// Finer than a device's tables, so that 8-bit codes show what the mode does.
constexpr const char* kFine = " --igc-bits 24 --igc-entries 1024 --gc-bits 16 --gamut-bits 24";

Pixels Rendered(const std::string& arguments, const Pixels& row) {
  const std::string in = WriteFile("in.png", PngOf(row));
  const std::string out = WriteFile("out.png", "");
  const ZelctlRun run =
      RunZelctl("--log-level 0 render " + arguments + kFine + " --image " + in + " -o " + out);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadFile(out).find("gAMA"), std::string::npos) << "drive values, no colours of sRGB";
  return ReadPixels(out);
}

void ExpectNear(const Pixels& actual, const Pixels& expected, int tolerance) {
  ASSERT_EQ(actual.size(), expected.size());
  for (size_t i = 0; i < actual.size(); ++i) {
    EXPECT_EQ(actual[i][3], expected[i][3]) << "alpha of pixel " << i;
    for (size_t channel = 0; channel < 3; ++channel) {
      EXPECT_LE(std::abs(actual[i][channel] - expected[i][channel]), tolerance)
          << "channel " << channel << " of pixel " << i;
    }
  }
}

TEST(Picture, NativeModeLeavesItAsItIs) {
  Pixels row;
  for (int i = 0; i < 256; ++i) {
    const auto code = static_cast<uint8_t>(i);
    const auto other = static_cast<uint8_t>(255 - i);
    row.push_back({code, code, code, 255});
    row.push_back({code, other, 77, other});
  }
  ExpectNear(Rendered("native", row), row, 1);
}

// Expected: the panel's and the standards' figures in their published formulas,
// worked out outside this program.
TEST(Picture, KnownColoursComeOutAsTheModeSays) {
  const struct {
    const char* arguments;
    Pixel in;
    Pixel out;
  } cases[] = {
      {"srgb", {255, 255, 255, 255}, {255, 255, 255, 255}},
      {"srgb", {128, 128, 128, 255}, {127, 127, 127, 255}},
      {"srgb", {255, 0, 0, 9}, {223, 58, 40, 9}},
      {"srgb", {0, 255, 0, 255}, {131, 249, 78, 255}},
      {"srgb", {200, 120, 40, 255}, {181, 123, 61, 255}},
      // Gamut mapping: beyond the panel without it.
      {"bt2020_st2084", {255, 0, 0, 255}, {255, 37, 70, 255}},
      {"bt2020_st2084", {0, 255, 0, 255}, {0, 252, 100, 255}},
      // In linear light, and clipped to what the panel has.
      {"native --dimming 0.5", {255, 0, 0, 255}, {186, 0, 0, 255}},
      {"native --dimming 4", {186, 20, 255, 255}, {255, 38, 255, 255}},
      {"native --color-transform inversion", {128, 0, 255, 255}, {228, 255, 0, 255}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.arguments);
    ExpectNear(Rendered(test.arguments, {test.in}), {test.out}, 1);
  }
}

TEST(Picture, WhatCanNotBeWrittenLeavesWhatWasThere) {
  Pixels row(2000);  // noise: of more bytes than the limit below allows
  std::minstd_rand random;
  for (Pixel& pixel : row) pixel = {static_cast<uint8_t>(random() >> 8), 0, 0, 255};
  const std::string in = WriteFile("in.png", PngOf(row));
  const std::string out = WriteFile("out.png", "kept");
  const auto render = [&](const char* before) {
    return RunZelctl("--log-level 0 render 1 --image " + in + " -o " + out, before);
  };
  const ZelctlRun run = render("trap '' XFSZ; ulimit -f 2;");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelctl: can't write " + out + ": File too large\n");
  EXPECT_EQ(ReadFile(out), "kept");
  for (const auto& entry : std::filesystem::directory_iterator(testing::TempDir())) {
    EXPECT_NE(entry.path().string().rfind(out + ".", 0), 0) << entry.path();
  }
  EXPECT_EQ(render("").status, 0);
  EXPECT_EQ(ReadPixels(out).size(), row.size());
  std::filesystem::remove(out);
  std::filesystem::create_symlink("/dev/full", out);
  EXPECT_EQ(render("").err, "zelctl: can't write " + out + ": No space left on device\n");
  EXPECT_TRUE(std::filesystem::is_symlink(out));
  std::filesystem::remove(out);
}

TEST(Picture, BlocksThatCanNotBeComputedWithAreNamed) {
  const std::string in = WriteFile("in.png", PngOf({{1, 2, 3, 255}}));
  const struct {
    const char* arguments;
    const char* line;
  } cases[] = {
      {"", "zelctl: PostBlendIGC c2: 0 entries, which is no table\n"},
      {"--igc-bits 2", "zelctl: PostBlendIGC c0: code 5 in a table of 2 bits\n"},
      {"--igc-bits 33", "zelctl: PostBlendIGC c0: codes of 33 bits\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run =
        RunWithFake("render 0 --image " + in + " -o " + in + " " + test.arguments);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(test.line), std::string::npos) << run.err;
  }
}

}  // namespace
