// What tells one mode operation from the other; all else they share.
#pragma once

#include "bridge/zel_ids.h"

namespace velaricolor {

struct ModeOp {
  tarn::ZelOps parser_op;
  const char* function;  // logs under this name
  const char* name;      // the operation, as logged
};

}  // namespace velaricolor
