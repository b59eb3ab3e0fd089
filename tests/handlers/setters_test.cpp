// SPDX-License-Identifier: Apache-2.0
#include <cmath>
#include <limits>
#include <utility>

#include "convert/gamut_gamma_config.h"
#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

using velaricolor::ColorTransformMatrix;
using velaricolor::HwConfigOutputParams;
using velaricolor::PostBlendHwConfig;
using Line = std::string;

namespace {

class Setters : public PccTest {
 protected:
  // Gamma lists as long as the longest table, in every answer of the parser's.
  void SetUp() override {
    ParserAnswers({{}, {1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}, true);
    auto lists = std::make_shared<tarn::GammaPostBlendConfig>();
    lists->c0 = lists->c1 = lists->c2 = std::vector<uint32_t>(1024);
    for (const char* name : {"PostBlendGC", "PostBlendIGC"}) {
      Parser().blocks.push_back(Block(name, lists));
    }
    Platform().algo_opens = false;
  }

  // A render of what setters set: the PCC block, and the lengths of both tables.
  std::pair<Bytes, std::string> Rendered() {
    HwConfigOutputParams output;
    EXPECT_EQ(Render(&output), 0);
    std::string lengths;
    for (const char* name : {"PostBlendGC", "PostBlendIGC"}) {
      const auto* table = RecordNamed<velaricolor::GammaPostBlendConfig>(output, name);
      lengths += std::to_string(table->c0.size()) + " ";
    }
    return {BytesOf(*PccOf(output)), lengths};
  }
};

TEST_F(Setters, RefuseWithoutStoring) {
  PostBlendHwConfig dimensions = {.num_of_entries = 21};
  ColorTransformMatrix transform = {.matrix = {2}};
  const auto ltm = HostBlock({{}, {0, 7}, {0, 1}, {0, 0, 0, 5}}, true);
  double factor = 0.25;
  const struct {
    uint32_t prop;
    uint32_t len;
    const void* record;
    Line name;
  } setters[] = {{5, 68, &transform, "SetColorTransform"},
                 {6, 40, &dimensions, "SetPostBlendGamutConfig"},
                 {7, 40, &dimensions, "SetPostBlendGammaConfig"},
                 {8, 40, &dimensions, "SetPostBlendInvGammaConfig"},
                 {13, 280, ltm.get(), "SetLtmPccConfig"},
                 {2055, 8, &factor, "SetDimmingPcc"}};
  const auto set = [&](uint32_t prop, uint32_t len, const void* record) {
    return Plugin().SetProperty({.len = len, .prop = prop, .payload = const_cast<void*>(record)});
  };
  Start();
  for (const auto& s : setters) EXPECT_EQ(set(s.prop, s.len, s.record), 0);
  const auto before = Rendered();
  Platform().TakeEvents();
  const auto refused = [&](uint32_t prop, uint32_t len, const void* record, const Line& line) {
    SCOPED_TRACE(line);
    EXPECT_EQ(set(prop, len, record), -22);
    EXPECT_EQ(Platform().TakeLog(), Lines{line});
    EXPECT_EQ(Platform().TakeEvents(), Lines());
    EXPECT_FALSE(NeedsUpdate());
    EXPECT_EQ(Rendered(), before);
    Platform().TakeEvents();
  };

  dimensions.num_of_entries = 5;
  transform.matrix = {};
  ltm->enable = false;
  factor = 0.5;
  for (const auto& s : setters) {
    const Line line = "E " + s.name + ": len of Input params act ";
    const Line expected = " exp " + std::to_string(s.len);
    for (const uint32_t wrong : {0U, s.len - 1, s.len + 1}) {
      refused(s.prop, wrong, s.record, line + std::to_string(wrong) + expected);
    }
    refused(s.prop, s.len, nullptr, line + std::to_string(s.len) + expected);
  }
  transform.version = 67;
  refused(5, 68, &transform, "E VersionCheck: invalid version 67 expected 68");
  for (const auto& [n, shown] : {std::pair(0U, "0"), {1025U, "1025"}, {~0U, "-1"}}) {
    dimensions.num_of_entries = n;
    const Line line = Line("Config: Invalid of num_of_entries ") + shown;
    refused(7, 40, &dimensions, "E SetPostBlendGamma" + line);
    refused(8, 40, &dimensions, "E SetPostBlendInvGamma" + line);
  }
}

TEST_F(Setters, PassDimensionsOn) {
  const struct {
    uint32_t prop;
    uint32_t version;  // towards the parser
    uint32_t num_of_entries;
    int answer;
    Line tables;  // of gamma and inverse gamma, afterwards
  } cases[] = {{6, 117936, 0, 0, "1024 257 "}, {6, 117936, 5000, 9, "1024 257 "},
               {7, 88, 1, 0, "1 257 "},        {7, 88, 33, -5, "33 257 "},
               {8, 88, 1, 0, "33 1 "},         {8, 88, 1024, -5, "33 1024 "}};
  Start();
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.prop) + " with " + std::to_string(c.num_of_entries));
    Parser().set_result = c.answer;
    const PostBlendHwConfig wanted = {
        .version = 7,
        .num_of_entries = c.num_of_entries,
        .bit_depth = 77,
        .attributes = {{"a", true, {-1, 1L << 40}}, {"", false, {0, 0}}}};
    Platform().TakeEvents();
    EXPECT_EQ(Set(c.prop, wanted), c.answer);
    EXPECT_EQ(Platform().TakeEvents(), Lines{"parser SetProperty " + std::to_string(c.prop)});
    EXPECT_EQ(WordsOf(Parser().in), (Words{24, 40, c.prop, 0}));
    const tarn::PostBlendHwConfig& seen = Parser().dimensions;
    EXPECT_EQ(WordsOf(seen), (Words{c.version, c.num_of_entries, 77, 0}));
    EXPECT_EQ(seen.attributes, wanted.attributes);
    EXPECT_FALSE(NeedsUpdate());
    EXPECT_EQ(Rendered().second, c.tables);
  }

  // Without a parser they are kept until there is one.
  const auto modes = std::exchange(Parser().modes, {});
  ASSERT_EQ(Init(), 0);
  for (const uint32_t prop : {6U, 7U, 8U}) {
    EXPECT_EQ(Set(prop, PostBlendHwConfig{.num_of_entries = 12 + prop}), 0);
  }
  Parser().modes = modes;
  ASSERT_EQ(Init(), 0);
  EXPECT_EQ(Rendered().second, "19 20 ");
}

TEST_F(Setters, TurnAnyMatrixButTheIdentityIntoPcc) {
  Parser().blocks.clear();
  Start();
  const auto applied = [&](const ColorTransformMatrix& transform) {
    EXPECT_EQ(Set(velaricolor::kVcColorTransform, transform), 0);
    EXPECT_TRUE(NeedsUpdate());
    HwConfigOutputParams output;
    EXPECT_EQ(Render(&output), 0);
    return !output.payloads.empty();
  };
  const ColorTransformMatrix identity_matrix = {
      .matrix = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
  EXPECT_FALSE(applied(identity_matrix));
  for (size_t i = 0; i < 16; ++i) {
    SCOPED_TRACE(i);
    ColorTransformMatrix transform = identity_matrix;
    float& element = transform.matrix[i];
    const float identity = element;
    for (const float other :
         {std::nextafter(identity, 2.0F), -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
      element = other;
      EXPECT_TRUE(applied(transform)) << other;
    }
    element = identity == 0 ? -0.0F : identity;
    EXPECT_FALSE(applied(transform));
  }

  ColorTransformMatrix transform = {
      .matrix = {1.5, 2.5, 3.5, 9, 4.5, 5.5, 6.5, 9, 7.5, 8.5, 9.5, 9, 0.1F, -2, 0.25, 9}};
  ASSERT_EQ(Set(velaricolor::kVcColorTransform, transform), 0);
  HwConfigOutputParams output;
  ASSERT_EQ(Render(&output), 0);
  // In single precision 0.1 * 255 would be 25.5.
  const pcc_coeff_data expected = {
      {}, {25.50000037997961, 1.5, 4.5, 7.5}, {-510, 2.5, 5.5, 8.5}, {63.75, 3.5, 6.5, 9.5}};
  EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(expected));
}

}  // namespace
