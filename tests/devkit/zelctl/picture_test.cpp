// SPDX-License-Identifier: Apache-2.0

// Pictures that go through the blocks of the default panel's modes.
#include <gtest/gtest.h>
#include <png.h>

#include <array>
#include <filesystem>
#include <vector>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using Pixels = std::vector<std::array<uint8_t, 4>>;  // red, green, blue, alpha

std::string WritePicture(const Pixels& row) {
  std::string path = WriteFile("in.png", "");
  png_image image = {.version = PNG_IMAGE_VERSION, .height = 1, .format = PNG_FORMAT_RGBA};
  image.width = static_cast<png_uint_32>(row.size());
  EXPECT_TRUE(png_image_write_to_file(&image, path.c_str(), 0, row.data(), 0, nullptr));
  return path;
}

Pixels ReadPicture(const std::string& path) {
  png_image image = {.version = PNG_IMAGE_VERSION};
  EXPECT_TRUE(png_image_begin_read_from_file(&image, path.c_str())) << image.message;
  image.format = PNG_FORMAT_RGBA;
  Pixels pixels(size_t{image.width} * image.height);
  EXPECT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
  return pixels;
}

// With finer tables than a device's, so that 8-bit codes show what the mode does.
void ExpectRendered(const std::string& arguments, const std::string& in, const Pixels& expected) {
  SCOPED_TRACE(arguments);
  const std::string out = WriteFile("out.png", "replaced");
  const ZelctlRun run =
      RunZelctl("render --igc-bits 24 --igc-entries 1024 --gc-bits 16 --gamut-bits 24 --image " +
                in + " -o " + out + " " + arguments);
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadFile(out).find("gAMA"), std::string::npos) << "drive values, no colours of sRGB";
  const Pixels actual = ReadPicture(out);
  ASSERT_EQ(actual.size(), expected.size());
  for (size_t i = 0; i < actual.size(); ++i) ASSERT_EQ(actual[i], expected[i]) << "pixel " << i;
}

TEST(Picture, GoesIntoAPipeBehindALink) {
  const std::string pipe = WriteFile("pipe", "") + ".new";
  const std::string link = pipe + ".png";
  const std::string make = "mkfifo " + pipe + "; ln -s " + pipe + " " + link + ";";
  const ZelctlRun run = RunWithFake("render 0 --image " SAMPLE_PICTURE " -o " + link,
                                    make + "exec 9<>" + pipe + ";");  // so that it holds bytes
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(std::filesystem::is_symlink(link) && std::filesystem::is_fifo(pipe));
  std::filesystem::remove(link);
  std::filesystem::remove(pipe);
}

TEST(Picture, NativeModeLeavesItAsItIs) {
  ExpectRendered("native", SAMPLE_PICTURE, ReadPicture(SAMPLE_PICTURE));
}

// Expected: the panel's and the standards' figures in their published formulas,
// worked out outside this program.
TEST(Picture, KnownColoursComeOutAsTheModeSays) {
  const struct {
    const char* arguments;
    Pixels in;
    Pixels out;
  } cases[] = {
      {"srgb",
       {{255, 255, 255, 255}, {128, 128, 128, 255}, {255, 0, 0, 9}, {200, 120, 40, 255}},
       {{255, 255, 255, 255}, {127, 127, 127, 255}, {223, 58, 40, 9}, {181, 123, 61, 255}}},
      // Gamut mapping leaves what the panel has.
      {"display_p3",
       {{200, 120, 40, 255}, {90, 160, 210, 255}, {60, 180, 70, 0}},
       {{192, 119, 44, 255}, {103, 159, 209, 255}, {79, 177, 72, 0}}},
      // The nearest, found by trying out what the panel has.
      {"bt2020_st2084", {{255, 0, 0, 255}}, {{255, 0, 49, 255}}},
      // In linear light, and clipped to what the panel has.
      {"native --dimming 0.5", {{255, 0, 0, 255}}, {{186, 0, 0, 255}}},
      {"native --dimming 4", {{186, 20, 255, 255}}, {{255, 38, 255, 255}}},
      {"native --color-transform inversion", {{128, 0, 255, 255}}, {{228, 255, 0, 255}}},
  };
  for (const auto& test : cases) ExpectRendered(test.arguments, WritePicture(test.in), test.out);
}

}  // namespace
