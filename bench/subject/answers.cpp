#include "bench/subject/answers.h"

#include <algorithm>
#include <memory>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace {

constexpr size_t kBlobBytes = 4096;

template <typename T>
tarn::HwConfigPayload Block(const std::string& name, std::shared_ptr<T> record) {
  return {.hw_block = name, .payload = std::move(record), .len = sizeof(T)};
}

std::shared_ptr<tarn::GammaPostBlendConfig> MakeGamma(uint32_t entries) {
  auto gamma = std::make_shared<tarn::GammaPostBlendConfig>(entries);
  for (uint32_t i = 0; i < entries; ++i) {
    for (auto* list : {&gamma->c0, &gamma->c1, &gamma->c2}) list->push_back(i);
  }
  return gamma;
}

template <typename T>
std::shared_ptr<T> MakeBlob() {
  auto record = std::make_shared<T>();
  record->blob.assign(kBlobBytes, 'b');
  return record;
}

std::shared_ptr<tarn::PccPostBlendConfig> MakePcc() {
  auto pcc = std::make_shared<tarn::PccPostBlendConfig>();
  pcc->enable = true;
  pcc->coeffs.r = {0, 0.9, 0.1, 0};
  pcc->coeffs.g = {0, 0, 1, 0};
  pcc->coeffs.b = {0, 0, 0.1, 0.9};
  return pcc;
}

std::vector<tarn::HwConfigPayload> BuildBlocks() {
  return {
      Block(velaricolor::kPostBlendGamut, std::make_shared<tarn::GamutPostBlendConfig>()),
      Block(velaricolor::kPostBlendIGC, MakeGamma(257)),
      Block(velaricolor::kPostBlendGC, MakeGamma(1024)),
      Block(velaricolor::kPostBlendPCC, MakePcc()),
      Block(velaricolor::kPostBlendPa, std::make_shared<tarn::PaPostBlendConfig>()),
      Block(velaricolor::kPostBlendDither, std::make_shared<tarn::DitherPostBlendConfig>()),
      Block(velaricolor::kPostBlendPaDither, std::make_shared<tarn::PaDitherPostBlendConfig>()),
      Block(velaricolor::kPostBlendHdrBlob, MakeBlob<tarn::HdrBlobPostBlendConfig>()),
      Block(velaricolor::kPostBlendGameBlob, MakeBlob<tarn::GameBlobPostBlendConfig>()),
      Block(velaricolor::kPostBlendDE, std::make_shared<tarn::DePostBlendConfig>()),
  };
}

// The same without a share in the records, which live until the next set-up:
// counting references is the parser's cost, not the plug-in's.
std::vector<tarn::HwConfigPayload> Borrowed(std::vector<tarn::HwConfigPayload> blocks) {
  for (auto& block : blocks) block.payload = {std::shared_ptr<void>(), block.payload.get()};
  return blocks;
}

}  // namespace

BenchAnswers& TheAnswers() {
  static BenchAnswers answers;
  return answers;
}

std::vector<tarn::ColorMode> MakeModes(size_t count) {
  return std::vector<tarn::ColorMode>(
      count, {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"gamut_asset", "gamma_asset"}});
}

std::vector<tarn::HwConfigPayload> MakeBlocks() {
  static std::vector<tarn::HwConfigPayload> built;
  built = BuildBlocks();
  return Borrowed(built);
}

std::vector<tarn::HwConfigPayload> MakeManyBlocks(size_t count) {
  static const auto record = std::make_shared<tarn::DitherPostBlendConfig>();
  return Borrowed({count, Block(velaricolor::kPostBlendDither, record)});
}

std::vector<tarn::HwConfigPayload> MakeGammaBlock(uint32_t entries) {
  static std::vector<tarn::HwConfigPayload> built;
  built = {Block(velaricolor::kPostBlendGC, MakeGamma(entries))};
  return Borrowed(built);
}
