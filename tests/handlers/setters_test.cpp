#include <cmath>
#include <functional>
#include <limits>
#include <utility>

#include "convert/gamut_gamma_config.h"
#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

using velaricolor::ColorTransformMatrix;
using velaricolor::HwConfigOutputParams;
using velaricolor::PostBlendHwConfig;
using zeltarn::layout::HwAttributes;
using Line = std::string;

namespace {

class Setters : public PccTest {
 protected:
  bool NeedsUpdate() {
    bool needs_update = false;
    EXPECT_EQ(Get(velaricolor::kVcNeedsUpdate, &needs_update), 0);
    return needs_update;
  }
  // Entries per list after a conversion.
  size_t EntriesOf(const std::string& block) {
    Parser().dither = {Block(block, std::make_shared<tarn::GammaPostBlendConfig>())};
    auto* const record = static_cast<tarn::GammaPostBlendConfig*>(Parser().dither[0].payload.get());
    for (auto* list : {&record->c0, &record->c1, &record->c2}) list->resize(1024);
    HwConfigOutputParams output;
    EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), 0);
    const auto* const converted = RecordNamed<velaricolor::GammaPostBlendConfig>(output, block);
    return converted == nullptr ? 0 : converted->c0.size();
  }
};

TEST_F(Setters, RefuseWithoutStoring) {
  Start();
  const auto refused = [&](uint32_t prop, uint32_t len, const void* record, const Line& line) {
    SCOPED_TRACE(line);
    const velaricolor::VcPayload payload = {
        .len = len, .prop = prop, .payload = const_cast<void*>(record)};
    EXPECT_EQ(Plugin().SetProperty(payload), -22);
    EXPECT_EQ(Platform().TakeLog(), Lines{line});
    EXPECT_FALSE(NeedsUpdate());
  };
  const PostBlendHwConfig dimensions = {.num_of_entries = 5};
  const ColorTransformMatrix transform = {.matrix = {2}};
  const auto ltm = HostBlock({.reserved = {}, .r = {7}, .g = {}, .b = {}}, true);
  const double factor = 0.25;
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
  for (const auto& s : setters) {
    const Line line = "E " + s.name + ": len of Input params act ";
    const Line expected = " exp " + std::to_string(s.len);
    for (const uint32_t wrong : {0U, s.len - 1, s.len + 1, 2 * s.len}) {
      refused(s.prop, wrong, s.record, line + std::to_string(wrong) + expected);
    }
    refused(s.prop, s.len, nullptr, line + std::to_string(s.len) + expected);
  }
  const ColorTransformMatrix old = {.version = 67, .matrix = {2}};
  refused(5, 68, &old, "E VersionCheck: invalid version 67 expected 68");
  for (const auto& [n, shown] : {std::pair(0U, "0"), {1025U, "1025"}, {~0U, "-1"}}) {
    const PostBlendHwConfig wrong = {.num_of_entries = n};
    const Line line = Line("Config: Invalid of num_of_entries ") + shown;
    refused(7, 40, &wrong, "E SetPostBlendGamma" + line);
    refused(8, 40, &wrong, "E SetPostBlendInvGamma" + line);
  }
  EXPECT_TRUE(Platform().TakeEvents().empty());

  const pcc_coeff_data parsers = {.reserved = {}, .r = {0, 1}, .g = {0, 0, 1}, .b = {0, 0, 0, 1}};
  ParserAnswers(parsers, true);
  HwConfigOutputParams output;
  ASSERT_EQ(Render(&output), 0);
  EXPECT_EQ(BytesOf(PccOf(output)->coeffs), BytesOf(parsers));
  EXPECT_EQ(EntriesOf("PostBlendGC"), 1024U);
  EXPECT_EQ(EntriesOf("PostBlendIGC"), 257U);
}

TEST_F(Setters, PassDimensionsOn) {
  const HwAttributes attributes = {{"a", true, {-1, 1L << 40}}, {"", false, {0, 0}}};
  const struct {
    uint32_t prop;
    uint32_t version;  // towards the parser
    const char* block;
    uint32_t num_of_entries;
    int answer;
  } cases[] = {{6, 117936, nullptr, 0, 0},       {6, 117936, nullptr, 5000, 9},
               {7, 88, "PostBlendGC", 1, 0},     {7, 88, "PostBlendGC", 1024, 0},
               {7, 88, "PostBlendGC", 33, -5},   {8, 88, "PostBlendIGC", 1, 0},
               {8, 88, "PostBlendIGC", 1024, -5}};
  Start();
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.prop) + " with " + std::to_string(c.num_of_entries));
    Parser().set_result = c.answer;
    const PostBlendHwConfig wanted = {.version = 7,
                                      .num_of_entries = c.num_of_entries,
                                      .bit_depth = 77,
                                      .attributes = attributes};
    EXPECT_EQ(Set(c.prop, wanted), c.answer);
    EXPECT_EQ(Platform().TakeEvents(), Lines{"parser SetProperty " + std::to_string(c.prop)});
    EXPECT_EQ(EnvelopeOf(Parser().in), (Envelope{24, 40, c.prop}));
    const tarn::PostBlendHwConfig& seen = Parser().dimensions;
    EXPECT_EQ(seen.version, c.version);
    EXPECT_EQ(seen.num_of_entries, c.num_of_entries);
    EXPECT_EQ(seen.bit_depth, 77U);
    EXPECT_EQ(seen.attributes, attributes);
    if (c.block != nullptr) EXPECT_EQ(EntriesOf(c.block), c.num_of_entries);
    EXPECT_FALSE(NeedsUpdate());
    Platform().TakeEvents();
  }
  EXPECT_TRUE(Platform().TakeLog().empty());

  // Without a parser they are kept until there is one.
  const auto modes = std::exchange(Parser().modes, {});
  ASSERT_EQ(Init(), 0);
  Platform().TakeEvents();
  for (const uint32_t prop : {6U, 7U, 8U}) {
    EXPECT_EQ(Set(prop, PostBlendHwConfig{.num_of_entries = 12 + prop}), 0);
  }
  EXPECT_TRUE(Platform().TakeEvents().empty());
  Parser().modes = modes;
  ASSERT_EQ(Init(), 0);
  EXPECT_EQ(EntriesOf("PostBlendGC"), 19U);
  EXPECT_EQ(EntriesOf("PostBlendIGC"), 20U);
}

TEST_F(Setters, TurnAnyMatrixButTheIdentityIntoPcc) {
  Start();
  const auto applied = [&](const ColorTransformMatrix& transform) {
    EXPECT_EQ(Set(velaricolor::kVcColorTransform, transform), 0);
    EXPECT_TRUE(NeedsUpdate());
    HwConfigOutputParams output;
    EXPECT_EQ(Render(&output), 0);
    return !output.payloads.empty();
  };
  EXPECT_FALSE(applied({}));
  for (size_t i = 0; i < 16; ++i) {
    SCOPED_TRACE(i);
    ColorTransformMatrix transform;
    float& element = transform.matrix[i];
    const float identity = element;
    for (const float other :
         {std::nextafter(identity, 2.0F), -1.0F, 0.5F, std::numeric_limits<float>::quiet_NaN()}) {
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

TEST_F(Setters, SayWhatTheyGot) {
  Platform().log_level = "2";
  Start();
  const auto ltm = [&](bool enable) {
    auto record = *HostBlock({}, enable);
    record.version = 0;  // not looked at
    return Set(velaricolor::kVcLtmPccConfig, record);
  };
  const auto dim = [&](double factor) { return Set(velaricolor::kVcDimmingPcc, factor); };
  const auto calibrate = [&](uintptr_t address, uint32_t len) {
    return Plugin().SetProperty(
        {.len = len, .prop = 12, .payload = reinterpret_cast<void*>(address)});
  };
  const struct {
    std::function<int()> set;
    const char* line;
    bool needs_update;
  } cases[] = {
      {[&] { return ltm(true); }, "I SetLtmPccConfig: Set ltm PCC config enable 1", true},
      {[&] { return ltm(false); }, "I SetLtmPccConfig: Set ltm PCC config enable 0", true},
      {[&] { return dim(0.5); }, "I SetDimmingPcc: pcc attenuation factor is 0.500000", true},
      {[&] { return dim(-2); }, "I SetDimmingPcc: pcc attenuation factor is -2.000000", true},
      {[&] { return dim(std::nan("")); }, "I SetDimmingPcc: pcc attenuation factor is nan", true},
      {[&] { return calibrate(0, 0); }, "I NotifyDisplayCalibrationMode: Payload value: 0", false},
      {[&] { return calibrate(UINTPTR_MAX, 99); },
       "I NotifyDisplayCalibrationMode: Payload value: 18446744073709551615", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    HwConfigOutputParams output;
    ASSERT_EQ(Render(&output), 0);
    EXPECT_FALSE(NeedsUpdate());
    Platform().TakeLog();
    EXPECT_EQ(c.set(), 0);
    EXPECT_EQ(Platform().TakeLog(), Lines{c.line});
    EXPECT_EQ(NeedsUpdate(), c.needs_update);
    EXPECT_EQ(NeedsUpdate(), c.needs_update);  // asking doesn't clear it
    ASSERT_EQ(Run(velaricolor::kVcModeSwAssets, {}, &output), 0);
    EXPECT_EQ(NeedsUpdate(), c.needs_update);
  }
}

}  // namespace
