// SPDX-License-Identifier: Apache-2.0

// A mode parser under examination, and the calls that the plug-in makes of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "devkit/zelctl/validate/answer_checks.h"
#include "devkit/zelctl/validate/library_rules.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"

namespace zelctl {

// Something that a parser answers with blocks.
struct Question {
  std::optional<tarn::ZelOps> op;  // none: the panel's dither configuration
  tarn::ColorMode mode = {};

  std::string Title() const;
};

struct ParserSubject : LibrarySubject<tarn::ModeParserIntf> {
  static constexpr const char* kLibrary = "parser";
  static constexpr const char* kFile = tarn::kModeParserLibrary;
  static constexpr const char* kSymbol = tarn::kModeParserSymbol;
  static constexpr bool kMadeAtStartUp = false;

  using LibrarySubject::LibrarySubject;

  static bool MayBeMissing() { return false; }

  // Each returns the parser's code and notes what it did to records that it must
  // leave alone.
  int FetchModes();
  int Ask(const Question& question, tarn::HwConfigOutputParams* answer);
  int SetSize(tarn::ZelProperty property, uint32_t version, const zeltarn::TableDimensions& size);

  tarn::ColorModeList modes;
  TableSizes sizes;  // as last set
  Tally size_codes;
  Tally left_alone;
  AnswerTallies tallies;

  // What was asked so far, with the answer and its blocks as text.
  struct Asked {
    Question question;
    int code;
    std::vector<std::string> blocks;
    tarn::HwConfigOutputParams answer;  // shares the records until they have been compared
  };
  std::vector<Asked> asked;

 private:
  void NoteEnvelope(const tarn::TarnPayload& before, const tarn::TarnPayload& after,
                    const std::string& call);
};

// The blocks of an answer as text, one for each.
std::vector<std::string> BlockTexts(const tarn::HwConfigOutputParams& answer);

}  // namespace zelctl
