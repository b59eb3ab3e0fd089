// SPDX-License-Identifier: Apache-2.0

// The rules for a mode parser.
#pragma once

#include <vector>

#include "devkit/zelctl/validate/parser_subject.h"

namespace zelctl {

std::vector<Rule<ParserSubject>> ParserRules();

}  // namespace zelctl
