// SPDX-License-Identifier: Apache-2.0
#include "fuzz/model.h"

#include <map>

#include "handlers/post_blend_hw_config.h"

namespace zeltarn::fuzz {

using velaricolor::ColorTransformMatrix;
using velaricolor::VcPayload;

namespace {

constexpr int kInvalid = -22;
constexpr int kUnsupported = -95;

struct Handler {
  bool sets;
  uint32_t len;  // of the record; 0: not looked at
};
const std::map<uint32_t, Handler> kHandlers = {
    {1, {false, 32}},    {2, {false, 1}},    {5, {true, 68}},  {6, {true, 40}},   {7, {true, 40}},
    {8, {true, 40}},     {9, {false, 1}},    {12, {true, 0}},  {13, {true, 280}}, {14, {false, 32}},
    {2048, {false, 24}}, {2054, {false, 1}}, {2055, {true, 8}}};

bool Carries(const VcPayload& payload, uint32_t len) {
  return payload.len == len && payload.payload != nullptr;
}

// What both property calls check before their handlers do.
int Admit(bool init_done, bool sets, const VcPayload* payload) {
  if (!init_done || payload == nullptr || payload->version != 24) return kInvalid;
  const uint32_t prop = payload->prop;
  const auto handler = kHandlers.find(prop);
  if (handler == kHandlers.end() || handler->second.sets != sets) {
    return prop >= 513 && prop <= 1023 ? kUnsupported : kInvalid;
  }
  const uint32_t len = handler->second.len;
  return len == 0 || Carries(*payload, len) ? 0 : kInvalid;
}

template <typename T>
const T& In(const VcPayload& payload) {
  return *static_cast<const T*>(payload.payload);
}

Block* Find(const std::string& name, List* list) {
  for (Block& block : list->blocks) {
    if (block.name == name) return &block;
  }
  return nullptr;
}

// `active` first, then the 3x3 part of `transform`.
pcc_coeff_data Product(const pcc_coeff_data& transform, const pcc_coeff_data& active) {
  pcc_coeff_data product = transform;
  for (zeltarn::PccRow* row : {&product.r, &product.g, &product.b}) {
    const zeltarn::PccRow t = *row;
    for (size_t j = 0; j < 11; ++j) {
      (*row)[j] = (t[1] * active.r[j] + t[2] * active.g[j]) + t[3] * active.b[j];
    }
  }
  return product;
}

}  // namespace

int Model::Init() {
  const Libraries& script = TheLibraries();
  parser_ = algo_ = algo_ready_ = false;
  modes_ = 0;
  if (script.parser.lacks != Library::kNothing) return kInvalid;
  ++calls_;  // Init
  if (script.parser.init_result != 0) return script.parser.init_result;
  ++calls_;  // the modes
  if (script.list_result != 0) return script.list_result;
  modes_ = script.modes;
  parser_ = modes_ > 0;
  if (script.algo.lacks == Library::kNothing) {
    ++calls_;
    algo_ = algo_ready_ = script.algo.init_result == 0;
  }
  init_done_ = true;
  return 0;
}

int Model::DeInit() {
  calls_ += (parser_ ? 1 : 0) + (algo_ ? 1 : 0);
  algo_ready_ = false;
  init_done_ = false;
  return 0;
}

int Model::SetProperty(const VcPayload& payload) {
  if (const int ret = Admit(init_done_, true, &payload); ret != 0) return ret;
  if (payload.prop == 12) return 0;
  if (payload.prop == 6) return SetDimensions(payload, nullptr);
  if (payload.prop == 7) return SetDimensions(payload, &gc_entries_);
  if (payload.prop == 8) return SetDimensions(payload, &igc_entries_);
  if (payload.prop == 5 && In<ColorTransformMatrix>(payload).version != 68) return kInvalid;

  needs_update_ = true;
  if (payload.prop == 5) SetTransform(In<ColorTransformMatrix>(payload));
  if (payload.prop == 13) ltm_ = In<velaricolor::PccPostBlendConfig>(payload);
  if (payload.prop == 2055) dimming_ = In<double>(payload);
  return 0;
}

void Model::SetTransform(const ColorTransformMatrix& transform) {
  const auto& m = transform.matrix;
  transform_active_ = false;
  for (size_t i = 0; i < 16; ++i) {
    if (!(m[i] == (i % 5 == 0 ? 1.0F : 0.0F))) transform_active_ = true;
  }
  transform_ = {.reserved = {},
                .r = {double{m[12]} * 255.0, m[0], m[4], m[8]},
                .g = {double{m[13]} * 255.0, m[1], m[5], m[9]},
                .b = {double{m[14]} * 255.0, m[2], m[6], m[10]}};
}

int Model::SetDimensions(const VcPayload& payload, uint32_t* entries) {
  const uint32_t wanted = In<velaricolor::PostBlendHwConfig>(payload).num_of_entries;
  if (entries != nullptr) {
    if (wanted < 1 || wanted > 1024) return kInvalid;
    *entries = wanted;
  }
  if (!parser_) return 0;
  ++calls_;
  return TheLibraries().result;
}

int Model::GetProperty(const VcPayload* payload, List* list) {
  if (const int ret = Admit(init_done_, false, payload); ret != 0) return ret;
  if (payload->prop == 1 && In<velaricolor::ColorModeList>(*payload).version != 96) return kInvalid;
  if (payload->prop != 14 || !parser_) return 0;
  ++calls_;
  return TheLibraries().result != 0 ? TheLibraries().result : Convert(list);
}

int Model::ProcessOps(uint32_t op, const VcPayload& in, const VcPayload* out, List* list) {
  if (out == nullptr || !init_done_) return kInvalid;
  if (op > 1) return kUnsupported;
  if (!parser_) return 0;
  if (!Carries(in, 2912) || !Carries(*out, 32)) return kInvalid;
  if (In<velaricolor::ModeRenderInputParams>(in).version != 2912) return kInvalid;
  if (list->version != 32) return kInvalid;
  ++calls_;
  Convert(list);
  if (op == 1) return TheLibraries().result;

  merges_ = 0;
  if (transform_active_) Fold(true, transform_, list);
  if (ltm_.enable || last_ltm_enable_) Fold(ltm_.enable, ltm_.coeffs, list);
  last_ltm_enable_ = ltm_.enable;
  if (Block* const pcc = Find("PostBlendPCC", list); pcc != nullptr && pcc->content != nullptr) {
    pcc_coeff_data& coeffs = pcc->content->coeffs;
    for (zeltarn::PccRow* row : {&coeffs.r, &coeffs.g, &coeffs.b}) {
      for (double& term : *row) term = term * dimming_;
    }
    pcc->content->enable = 1;
  }
  needs_update_ = false;
  return 0;
}

void Model::Fold(bool enable, const pcc_coeff_data& transform, List* list) {
  Block* const pcc = Find("PostBlendPCC", list);
  if (pcc == nullptr) {
    const auto content = std::make_shared<Content>();
    content->enable = enable ? 1 : 0;
    if (enable) content->coeffs = transform;
    list->blocks.push_back({.name = "PostBlendPCC", .content = content, .len = 280});
    return;
  }
  if (!enable) return;
  if (pcc->content == nullptr) {  // an entry without a record is given a blank one
    pcc->content = std::make_shared<Content>();
    pcc->len = 280;
  }
  Content& block = *pcc->content;
  pcc_coeff_data result = transform;
  if (block.enable != 0 && algo_ready_) {
    ++calls_;
    if (TheLibraries().merge_results.at(merges_++) == 0) result = Merged(transform, block.coeffs);
  } else if (block.enable != 0 && transform.r[0] == 0 && transform.g[0] == 0 &&
             transform.b[0] == 0) {
    result = Product(transform, block.coeffs);
  }
  block.coeffs = result;
  block.enable = 1;
}

// Stops at the first block that can't be converted.
int Model::Convert(List* list) const {
  if (list->version != 32) return kInvalid;
  for (const Block& from : TheLibraries().blocks) {
    Block* const known = Find(from.name, list);
    Block fresh;
    if (ConvertBlock(from, known == nullptr ? &fresh : known) != 0) return kInvalid;
    if (known == nullptr) list->blocks.push_back(fresh);
  }
  return 0;
}

int Model::ConvertBlock(const Block& from, Block* to) const {
  if (!IsKnown(from.name) || to->version != 56 || from.content == nullptr) return kInvalid;
  Content content = *from.content;
  content.enable = content.enable != 0 ? 1 : 0;
  if (from.name == "PostBlendIGC" || from.name == "PostBlendGC") {
    const uint32_t wanted = from.name == "PostBlendIGC" ? igc_entries_ : gc_entries_;
    for (size_t& entries : content.entries) {
      if (entries < wanted) return kInvalid;
      entries = wanted;
    }
  }
  to->name = from.name;
  to->len = from.len;
  if (to->content == nullptr) to->content = std::make_shared<Content>();
  *to->content = content;
  return 0;
}

}  // namespace zeltarn::fuzz
