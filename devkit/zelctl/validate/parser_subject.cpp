// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/parser_subject.h"

#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/mode_selection.h"
#include "interface/payload.h"

namespace zelctl {
namespace {

bool SameRequest(const tarn::ModeRenderInputParams& a, const tarn::ModeRenderInputParams& b) {
  return a.version == b.version && a.hw_assets == b.hw_assets &&
         ModeIds(a.mode) == ModeIds(b.mode) && a.mode.hw_assets == b.mode.hw_assets &&
         a.mode.label == b.mode.label && a.aux_enable == b.aux_enable && a.aux_data == b.aux_data &&
         a.aux_word == b.aux_word;
}

bool SameSize(const tarn::PostBlendHwConfig& a, const tarn::PostBlendHwConfig& b) {
  return a.version == b.version && a.num_of_entries == b.num_of_entries &&
         a.bit_depth == b.bit_depth && a.attributes == b.attributes;
}

// As the plug-in makes it: the label stays empty.
tarn::ModeRenderInputParams RequestFor(const tarn::ColorMode& mode) {
  tarn::ModeRenderInputParams request = {.hw_assets = mode.hw_assets, .mode = mode, .aux_data = {}};
  request.mode.label.clear();
  return request;
}

}  // namespace

std::string Question::Title() const {
  if (!op) return "dither configuration";
  const char* name = *op == tarn::kZelModeRenderIntent ? "render intent" : "software assets";
  return std::string(name) + " of " + mode.label + " (" + ModeIds(mode) + ")";
}

std::vector<std::string> BlockTexts(const tarn::HwConfigOutputParams& answer) {
  std::vector<std::string> texts;
  for (const auto& block : answer.payloads) {
    texts.push_back(BlockJson(block).dump(-1, ' ', false, Json::error_handler_t::replace));
  }
  return texts;
}

void ParserSubject::NoteEnvelope(const tarn::TarnPayload& before, const tarn::TarnPayload& after,
                                 const std::string& call) {
  left_alone.See(SameEnvelope(before, after), call, "the envelope was written to");
}

int ParserSubject::FetchModes() {
  Doing("asking for the mode list");
  auto envelope = tarn::Wrap(&modes, tarn::kZelModesList);
  const auto before = envelope;
  const int code = OnOwnThread([&] { return object->GetProperty(&envelope); });
  NoteEnvelope(before, envelope, "mode list");
  left_alone.See(modes.version == tarn::ColorModeList::kVersion, "mode list",
                 "its version is now " + std::to_string(modes.version));
  return code;
}

int ParserSubject::Ask(const Question& question, tarn::HwConfigOutputParams* answer) {
  auto request = RequestFor(question.mode);
  const auto request_before = RequestFor(question.mode);
  auto in = tarn::Wrap(&request);  // not const, for a library may write to it
  auto out = tarn::Wrap(answer, question.op ? 0 : uint32_t{tarn::kZelPbDitherHwConfig});
  const auto in_before = in;
  const auto out_before = out;
  const std::string title = question.Title();
  Doing("asking for " + title);
  const int code =
      question.op ? object->ProcessOps(*question.op, in, &out) : object->GetProperty(&out);
  Doing("taking its answer to " + title);  // reading, then dropping what it made
  NoteEnvelope(in_before, in, title);
  NoteEnvelope(out_before, out, title);
  left_alone.See(SameRequest(request_before, request), title, "the request was written to");
  left_alone.See(answer->version == tarn::HwConfigOutputParams::kVersion, title,
                 "the list's version is now " + std::to_string(answer->version));
  return code;
}

int ParserSubject::SetSize(tarn::ZelProperty property, uint32_t version,
                           const zeltarn::TableDimensions& size) {
  tarn::PostBlendHwConfig config = {.version = version,
                                    .num_of_entries = size.num_of_entries,
                                    .bit_depth = size.bit_depth,
                                    .attributes = {}};
  const auto before = config;
  auto envelope = tarn::Wrap(&config, property);
  const auto envelope_before = envelope;
  const std::string call = "property " + std::to_string(property);
  Doing("setting " + call + " to " + std::to_string(size.num_of_entries) + " entries");
  const int code = object->SetProperty(envelope);
  NoteEnvelope(envelope_before, envelope, call);
  left_alone.See(SameSize(before, config), call, "the record was written to");
  return code;
}

}  // namespace zelctl
