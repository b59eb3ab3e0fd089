// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/library_listener.h"

#include <algorithm>

#include "convert/gamut_gamma_config.h"
#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/mode_selection.h"
#include "modes/mode_op_params.h"
#include "plugin/block_names.h"

namespace zelctl {
namespace {

// Why the plug-in refuses a block, and with it those after it; empty where it does not.
std::string WhyRefused(const tarn::HwConfigPayload& block, const LibraryNotes& notes) {
  if (RecordBytes(block.hw_block) == 0) return "there is no block of this name";
  if (block.payload == nullptr) return "it has no record";
  const bool igc = block.hw_block == velaricolor::kPostBlendIGC;
  if (!igc && block.hw_block != velaricolor::kPostBlendGC) return "";
  const auto& table = *static_cast<const tarn::GammaPostBlendConfig*>(block.payload.get());
  const size_t shortest = std::min({table.c0.size(), table.c1.size(), table.c2.size()});
  const uint32_t needed = igc ? notes.igc_entries : notes.gc_entries;
  if (shortest >= needed) return "";
  return "a list has " + std::to_string(shortest) + " entries instead of " + std::to_string(needed);
}

void NoteAnswer(const std::string& question, int code, const tarn::TarnPayload& answer,
                LibraryNotes* notes) {
  if (code != 0) {
    notes->problems.push_back("the mode parser answered " + CodeText(code) + " to " + question);
  }
  const auto& blocks = static_cast<const tarn::HwConfigOutputParams*>(answer.payload)->payloads;
  for (size_t i = 0; i < blocks.size(); ++i) {
    const std::string why = WhyRefused(blocks[i], *notes);
    if (why.empty()) continue;
    const size_t after = blocks.size() - i - 1;
    notes->problems.push_back(
        "block " + OneLine(blocks[i].hw_block) + " of " + question + " did not arrive: " + why +
        (after == 0 ? "" : "; nor did the " + std::to_string(after) + " after it"));
    return;
  }
}

}  // namespace

int ParserListener::Init(const std::string& arg) {
  const int code = Watched("calling Init" + Of(), [&] { return Object().Init(arg); });
  if (code != 0) Notes().parser_start_up = "Init(\"" + arg + "\") answered " + CodeText(code);
  return code;
}

int ParserListener::GetProperty(tarn::TarnPayload* payload) {
  const bool list = payload->prop == tarn::kZelModesList;
  const char* question = list ? "the mode list" : "the dither configuration";
  const int code = Watched(std::string("asking the mode parser for ") + question,
                           [&] { return Object().GetProperty(payload); });
  if (list && code != 0) {
    Notes().parser_start_up = "GetProperty(kZelModesList) answered " + CodeText(code);
  }
  if (!list && code == 0) NoteAnswer(question, code, *payload, &Notes());
  return code;
}

int ParserListener::ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in,
                               tarn::TarnPayload* out) {
  const auto& mode = static_cast<const tarn::ModeRenderInputParams*>(in.payload)->mode;
  const std::string question = (op == tarn::kZelModeRenderIntent ? "the render intent of mode "
                                                                 : "the software assets of mode ") +
                               ModeIds(mode);
  const int code = Watched("asking the mode parser for " + question,
                           [&] { return Object().ProcessOps(op, in, out); });
  NoteAnswer(question, code, *out, &Notes());
  return code;
}

// The plug-in goes on without the library, and says nothing of an exception.
int AlgoListener::Init(const std::string& arg) {
  int code = 0;
  try {
    code = Watched("calling Init" + Of(), [&] { return Object().Init(arg); });
  } catch (const std::exception& e) {
    Notes().problems.pop_back();
    Notes().algo_start_up = e.what();
    throw;
  }
  if (code != 0) Notes().algo_start_up = "Init(\"" + arg + "\") answered " + CodeText(code);
  return code;
}

int AlgoListener::GetProperty(tarn::TarnPayload* payload) {
  return Watched("calling GetProperty" + Of(), [&] { return Object().GetProperty(payload); });
}

int AlgoListener::ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) {
  const int code =
      Watched("merging in the algorithm library", [&] { return Object().ProcessOps(op, in, out); });
  if (code != 0) {
    Notes().problems.push_back("the algorithm library answered " + CodeText(code) +
                               " to a merge: the PCC block holds the last transform alone");
  }
  return code;
}

}  // namespace zelctl
