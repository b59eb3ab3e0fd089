#include "bench/subject/floor_copy.h"

#include <array>
#include <cstring>

#include "bench/subject/pairs.h"
#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "pcc/pcc_config.h"
#include "plugin/names.h"

namespace {

// `version`, `enable` and padding, which a conversion does not move as bytes.
constexpr size_t kHeaderBytes = 8;

// Where the carried bytes of a record lie beside the record itself.
using Lists = std::vector<std::pair<const void*, size_t>>;

Lists ListsOf(const std::string& block, const void* record) {
  if (block == velaricolor::kPostBlendIGC || block == velaricolor::kPostBlendGC) {
    const auto& gamma = *static_cast<const tarn::GammaPostBlendConfig*>(record);
    Lists lists;
    for (const auto* list : {&gamma.c0, &gamma.c1, &gamma.c2}) {
      lists.emplace_back(list->data(), list->size() * sizeof(uint32_t));
    }
    return lists;
  }
  if (block == velaricolor::kPostBlendHdrBlob || block == velaricolor::kPostBlendGameBlob) {
    const auto& blob = *static_cast<const tarn::GameBlobPostBlendConfig*>(record);
    return {{blob.blob.data(), blob.blob.size()}};
  }
  return {};
}

// Room for a record of `bytes`, left as it comes.
template <size_t kBytes>
struct Raw {
  Raw() {}  // NOLINT(modernize-use-equals-default): a defaulted one would zero
  std::array<double, kBytes / sizeof(double)> room;
};

template <typename Record>
std::shared_ptr<void> MakeRaw() {
  return std::make_shared<Raw<sizeof(Record)>>();
}

std::shared_ptr<void> (*MakeFor(uint32_t bytes))() {
  switch (bytes) {
    case sizeof(tarn::GamutPostBlendConfig):
      return MakeRaw<tarn::GamutPostBlendConfig>;
    case sizeof(tarn::PaPostBlendConfig):
      return MakeRaw<tarn::PaPostBlendConfig>;
    case sizeof(tarn::PccPostBlendConfig):
      return MakeRaw<tarn::PccPostBlendConfig>;
    case sizeof(tarn::DitherPostBlendConfig):
      return MakeRaw<tarn::DitherPostBlendConfig>;
    case sizeof(tarn::GammaPostBlendConfig):
      return MakeRaw<tarn::GammaPostBlendConfig>;
    case sizeof(tarn::DePostBlendConfig):
      return MakeRaw<tarn::DePostBlendConfig>;
    default:
      return MakeRaw<tarn::HdrBlobPostBlendConfig>;
  }
}

}  // namespace

FloorCopy::FloorCopy(const std::vector<tarn::HwConfigPayload>& from,
                     const velaricolor::HwConfigOutputParams& to) {
  for (size_t i = 0; i < from.size() && i < to.payloads.size(); ++i) {
    void* const target = to.payloads[i].payload.get();
    const Lists sources = ListsOf(from[i].hw_block, from[i].payload.get());
    const Lists targets = ListsOf(from[i].hw_block, target);
    if (sources.empty()) {
      const auto* const carried = static_cast<const char*>(from[i].payload.get()) + kHeaderBytes;
      spans_.push_back(
          {carried, static_cast<char*>(target) + kHeaderBytes, from[i].len - kHeaderBytes});
    }
    for (size_t list = 0; list < sources.size(); ++list) {
      spans_.push_back(
          {sources[list].first, const_cast<void*>(targets[list].first), sources[list].second});
    }
  }
}

void FloorCopy::Run() const {
  for (const Span& span : spans_) std::memcpy(span.to, span.from, span.bytes);
  Keep(this);
}

FloorFresh::FloorFresh(const std::vector<tarn::HwConfigPayload>& from) {
  for (const auto& payload : from) {
    records_.push_back({.from = payload.payload.get(),
                        .bytes = payload.len,
                        .make = MakeFor(payload.len),
                        .lists = ListsOf(payload.hw_block, payload.payload.get())});
  }
}

void FloorFresh::Run() const {
  constexpr size_t kMostLists = 8;
  std::vector<std::shared_ptr<void>> output;
  output.reserve(records_.size());
  std::array<void*, kMostLists> rooms = {};
  size_t used = 0;
  for (const Record& record : records_) {
    output.push_back(record.make());
    if (record.lists.empty()) std::memcpy(output.back().get(), record.from, record.bytes);
    for (const auto& [from, bytes] : record.lists) {
      rooms[used] = ::operator new(bytes);
      std::memcpy(rooms[used++], from, bytes);
    }
  }
  Keep(&output);
  for (size_t i = 0; i < used; ++i) ::operator delete(rooms[i]);
}
