// The program with the plug-in, the reference libraries and the default panel.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using nlohmann::json;

json Parsed(const std::string& arguments) {
  const ZelctlRun run = RunZelctl(arguments + " --json --log-level 0");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  return json::parse(run.out, nullptr, false);
}

json LastRows(const json& render) { return render["rounds"].back()["pcc"]["rows"]; }

TEST(WithPlugin, RendersEveryModeOfThePanel) {
  const json modes = Parsed("modes").at("modes");
  EXPECT_GE(modes.size(), 6);
  for (const json& mode : modes) {
    const json render = Parsed("render " + mode["index"].dump());
    EXPECT_EQ(render["mode"], mode);
    for (const json& block : render["blocks"]) {
      EXPECT_FALSE(block.contains("problem")) << block.dump();
    }
    EXPECT_TRUE(render["rounds"][0]["pcc"].is_object());
  }
}

TEST(WithPlugin, DimmingScalesTheBlockOncePerRound) {
  const json plain = LastRows(Parsed("render 1"));
  for (const char* arguments : {"render 1 --dimming 0.5", "render 1 --dimming 0.5 --repeat 3"}) {
    const json dimmed = LastRows(Parsed(arguments));
    for (const char* row : {"r", "g", "b"}) {
      for (size_t term = 0; term < plain[row].size(); ++term) {
        EXPECT_EQ(dimmed[row][term].get<double>(), 0.5 * plain[row][term].get<double>());
      }
    }
  }
}

TEST(WithPlugin, TransformIsAppliedAfterTheMode) {
  const json plain = LastRows(Parsed("render 1"));
  const json inverted = LastRows(Parsed("render 1 --color-transform inversion"));
  for (const char* row : {"r", "g", "b"}) {
    EXPECT_NEAR(inverted[row][0].get<double>(), 255, 1e-9);
    for (size_t term = 1; term < 4; ++term) {
      EXPECT_NEAR(inverted[row][term].get<double>(), -plain[row][term].get<double>(), 1e-12);
    }
  }
}

TEST(WithPlugin, TablesTakeTheSizeAskedFor) {
  const json blocks = Parsed("render 1 --igc-entries 33 --igc-bits 8 --gc-entries 65")["blocks"];
  size_t seen = 0;
  for (const json& block : blocks) {
    if (!block.contains("c0")) continue;
    ++seen;
    EXPECT_EQ(block["c0"].size(), block["name"] == "PostBlendIGC" ? 33 : 65);
    if (block["name"] == "PostBlendIGC") {
      EXPECT_EQ(block["c0"].back(), 255);
    }
  }
  EXPECT_EQ(seen, 2);
}

TEST(WithPlugin, LogLevelReachesThePlugin) {
  const struct {
    const char* level;
    bool start_up;
    bool everything;
  } cases[] = {{"0", false, false}, {"1", true, false}, {"2", true, true}};
  for (const auto& test : cases) {
    const ZelctlRun run = RunZelctl("render 1 --log-level " + std::string(test.level));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err.find("ZelTarnImpl created") != std::string::npos, test.start_up);
    EXPECT_EQ(run.err.find("Process Ops called") != std::string::npos, test.everything);
  }
}

// Copies of the plug-in in folders where something is missing.
TEST(WithPlugin, MissingPiecesStaySeen) {
  const std::string parser = "libtarn-json-mode-parser.so";
  const std::string broken_panel = WriteFile("broken.json", "{\n");
  const struct {
    std::vector<std::string> libraries;
    std::string arguments;
    int status;
    std::string line;
  } cases[] = {
      {{}, "modes", 1, "Failed to load = " + parser},
      {{}, "modes", 1, "answered -22 (EINVAL)"},
      {{parser}, "modes", 0, "Pcc merging not supported"},
      {{parser}, "render 1 --color-transform grayscale --log-level 2", 0, "3x3 pcc multiplication"},
      {{parser, "libtarn-algo.so"},
       "render 1 --color-transform grayscale --log-level 2",
       0,
       "pcc multiply by libtarn-algo"},
      {{parser}, "modes --panel " + broken_panel, 1, "failed to intialize mode parser"},
      {{parser}, "modes --panel " + broken_panel, 1, broken_panel},
  };
  const std::filesystem::path folder = WriteFile("lib", "") + ".d";
  for (const auto& test : cases) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    auto copied = test.libraries;
    for (const char* base : {"libzeltarn.so", "liblog.so", "libcutils.so"}) {
      copied.emplace_back(base);
    }
    for (const auto& name : copied) {
      std::filesystem::copy(std::filesystem::path(LIBRARY_FOLDER) / name, folder / name);
    }
    // A sanitizer opens libraries in the plug-in's place and looks beside zelctl.
    const ZelctlRun run =
        RunZelctl("--plugin " + (folder / "libzeltarn.so").string() + " " + test.arguments,
                  "LD_LIBRARY_PATH=" + folder.string());
    EXPECT_EQ(run.status, test.status) << run.err;
    EXPECT_NE(run.err.find(test.line), std::string::npos) << run.err;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
