// SPDX-License-Identifier: Apache-2.0

// The mode parser's library object.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "devkit/reference/panel/panel.h"
#include "devkit/reference/parser/color_blocks.h"
#include "modes/mode_op_params.h"

namespace tarn::reference {

// Answers from a panel description, whose path Init takes. A call that can't
// be answered returns -22 and leaves one line on the log.
//
// A refused Init keeps the panel of an earlier one. Dimensions outlive Init and
// DeInit, as they do in the plug-in.
class ModeParser : public ModeParserIntf {
 public:
  int Init(const std::string& arg) override;
  int DeInit() override;
  int SetProperty(const TarnPayload& payload) override;
  int GetProperty(TarnPayload* payload) override;
  int ProcessOps(ZelOps op, const TarnPayload& in, TarnPayload* out) override;

 private:
  int GetModesList(TarnPayload* payload) const;
  int GetDither(TarnPayload* payload) const;
  const Mode* FindMode(const ColorMode& id) const;
  const Blocks& RenderIntent(const Mode& mode);
  void ForgetBlocks();

  std::optional<Panel> panel_;  // none before Init and after DeInit
  Dimensions dimensions_;

  // What the modes answer at these dimensions, by place; empty until one is asked. Their
  // records never change: every answer shares them.
  std::vector<Blocks> rendered_;
};

}  // namespace tarn::reference
