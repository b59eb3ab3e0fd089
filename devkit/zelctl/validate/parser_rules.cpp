// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/parser_rules.h"

#include <set>

#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/validate/parser_answers.h"

namespace zelctl {
namespace {

Finding ListModes(ParserSubject& parser) {
  const int code = parser.FetchModes();
  if (code != 0) return {Verdict::kFailed, "GetProperty answered " + CodeText(code)};
  if (parser.modes.modes.empty()) return {Verdict::kFailed, "no modes"};
  parser.stage = Stage::kModes;
  return {Verdict::kPassed, std::to_string(parser.modes.modes.size()) + " modes"};
}

// The plug-in tells modes apart by these alone.
Finding CheckIds(ParserSubject& parser) {
  Tally tally;
  std::set<std::string> known;
  for (const auto& mode : parser.modes.modes) {
    tally.See(known.insert(ModeIds(mode)).second, mode.label,
              ModeIds(mode) + " is an earlier mode's");
  }
  return tally.Sum(Verdict::kFailed, "modes");
}

Finding CheckLabels(ParserSubject& parser) {
  Tally tally;
  std::set<std::string> known = {""};
  for (const auto& mode : parser.modes.modes) {
    tally.See(known.insert(mode.label).second, ModeIds(mode),
              "label '" + mode.label + "' is empty or an earlier mode's");
  }
  return tally.Sum(Verdict::kWarning, "modes");
}

}  // namespace

std::vector<Rule<ParserSubject>> ParserRules() {
  std::vector<Rule<ParserSubject>> rules = {
      {"lists its modes", Stage::kStarted, ListModes},
      {"mode ids unique", Stage::kModes, CheckIds},
      {"mode labels unique", Stage::kModes, CheckLabels},
      {"render intents", Stage::kModes, AskRenderIntents},
      // A refusal is allowed, but the tables must still be long enough.
      {"takes table sizes", Stage::kModes,
       [](ParserSubject& parser) {
         return parser.size_codes.Sum(Verdict::kWarning, "sizes taken");
       }},
      {"software assets", Stage::kModes, AskSwAssets},
      {"dither configuration", Stage::kModes, AskDither},
      {"same answer twice", Stage::kModes, AskAgain},
      {"records don't change", Stage::kModes, CompareRecords},
      {"unknown mode refused", Stage::kModes, AskUnknownMode},
  };
  for (size_t i = 0; i < AnswerChecks().size(); ++i) {
    const AnswerCheck& check = AnswerChecks()[i];
    rules.push_back({check.rule, Stage::kModes, [&check, i](ParserSubject& parser) {
                       parser.tallies.resize(AnswerChecks().size());
                       return parser.tallies[i].Sum(check.otherwise, check.things);
                     }});
  }
  rules.push_back({"records left alone", Stage::kModes, [](ParserSubject& parser) {
                     return parser.left_alone.Sum(Verdict::kFailed, "records");
                   }});
  return AroundRules(rules);
}

}  // namespace zelctl
