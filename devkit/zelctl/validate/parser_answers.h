// SPDX-License-Identifier: Apache-2.0

// The rules that ask a mode parser for blocks. The answers are checked by the way.
#pragma once

#include "devkit/zelctl/validate/parser_subject.h"

namespace zelctl {

// Of every mode: before any table size is set, at other sizes, at the usual ones.
Finding AskRenderIntents(ParserSubject& parser);

// Of every mode.
Finding AskSwAssets(ParserSubject& parser);

// A panel need not have one: an error then reaches the host.
Finding AskDither(ParserSubject& parser);

// All of the above once more, from other threads: a host may call from any.
Finding AskAgain(ParserSubject& parser);

// Records that were handed out must stay as they were, for answers may share them.
Finding CompareRecords(ParserSubject& parser);

Finding AskUnknownMode(ParserSubject& parser);

}  // namespace zelctl
