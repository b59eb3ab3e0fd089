// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/algo_rules.h"

#include <array>
#include <bit>
#include <cstddef>
#include <limits>

#include "devkit/zelctl/validate/merge_samples.h"
#include "interface/payload.h"

namespace zelctl {
namespace {

template <typename T>
bool SameBits(const T& a, const T& b) {
  using Bytes = std::array<std::byte, sizeof(T)>;
  return std::bit_cast<Bytes>(a) == std::bit_cast<Bytes>(b);
}

// Merges, and compares with `expected`.
void SeeMerge(AlgoSubject& algo, const PccSample& trans, const PccSample& active,
              const pcc_coeff_data& expected, Tally* tally) {
  pcc_coeff_data result = {};
  const int code = algo.Merge(trans.pcc, active.pcc, &result);
  const std::string problem =
      code != 0 ? "answered " + CodeText(code) : FirstDifference(result, expected);
  tally->See(problem.empty(), trans.name + " after " + active.name, problem);
}

Finding MergeIdentity(AlgoSubject& algo) {
  auto samples = AffineSamples();
  samples.push_back(HigherOrderSample());
  Tally tally;
  for (const auto& sample : samples) {
    SeeMerge(algo, sample, Identity(), sample.pcc, &tally);
    SeeMerge(algo, Identity(), sample, sample.pcc, &tally);
  }
  return tally.Sum(Verdict::kFailed, "merges, to 1e-9");
}

// Calls `visit` with every two matrices, in both orders.
template <typename Visit>
void ForAffinePairs(Visit visit) {
  for (const auto& trans : AffineSamples()) {
    for (const auto& active : AffineSamples()) visit(trans, active);
  }
}

Finding MergeMatrices(AlgoSubject& algo) {
  Tally tally;
  ForAffinePairs([&](const PccSample& trans, const PccSample& active) {
    SeeMerge(algo, trans, active, MergeAffine(trans.pcc, active.pcc), &tally);
  });
  return tally.Sum(Verdict::kFailed, "merges, to 1e-9");
}

Finding RefuseInexact(AlgoSubject& algo) {
  PccSample no_number = {"a matrix that is not finite", Identity().pcc};
  no_number.pcc.g[2] = std::numeric_limits<double>::quiet_NaN();
  Tally tally;
  for (const auto& sample : {HigherOrderSample(), no_number}) {
    pcc_coeff_data result = {};
    const int code = algo.Merge(sample.pcc, sample.pcc, &result);
    tally.See(code != 0, sample.name + " after the same", "answered 0, though no result is exact");
  }
  return tally.Sum(Verdict::kFailed, "merges refused");
}

// Bit by bit, the second time from another thread: a host may call from any.
Finding MergeAgain(AlgoSubject& algo) {
  Tally tally;
  ForAffinePairs([&](const PccSample& trans, const PccSample& active) {
    pcc_coeff_data first = {};
    pcc_coeff_data second = {};
    const int code = algo.Merge(trans.pcc, active.pcc, &first);
    const int again = OnOwnThread([&] { return algo.Merge(trans.pcc, active.pcc, &second); });
    tally.See(code == again && SameBits(first, second), trans.name + " after " + active.name,
              "another answer the second time");
  });
  return tally.Sum(Verdict::kFailed, "answers from another thread");
}

// They are the library's own, so a warning: a host sees what it puts there.
Finding KeepReserved(AlgoSubject& algo) {
  pcc_coeff_data marked = Identity().pcc;
  marked.reserved = {1, 2, 3, 4, 5, 6, 7, 8};
  Tally tally;
  for (const bool mark_active : {false, true}) {
    pcc_coeff_data result = {};
    algo.Merge(mark_active ? Identity().pcc : marked, mark_active ? marked : Identity().pcc,
               &result);
    tally.See(result.reserved == marked.reserved || result.reserved == Identity().pcc.reserved,
              mark_active ? "active" : "trans", "its reserved bytes are neither kept nor zero");
  }
  return tally.Sum(Verdict::kWarning, "merges kept or cleared them");
}

// A warning only: the plug-in never asks.
Finding RefuseUnknownOperation(AlgoSubject& algo) {
  pcc_coeff_data result = {};
  const auto op = static_cast<tarn::ZelOps>(3);
  const int code = algo.Merge(Identity().pcc, Identity().pcc, &result, op);
  const auto verdict = code == 0 ? Verdict::kWarning : Verdict::kPassed;
  return {verdict, "operation 3 answered " + CodeText(code)};
}

}  // namespace

int AlgoSubject::Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active,
                       pcc_coeff_data* result, tarn::ZelOps op) {
  tarn::PccMergeInput operands = {.trans = trans, .active = active};
  const tarn::PccMergeInput operands_before = operands;
  tarn::PccMergeOutput merged;
  auto in = tarn::Wrap(&operands);  // not const, for a library may write to it
  auto out = tarn::Wrap(&merged);
  Doing("merging");
  const int code = object->ProcessOps(op, in, &out);
  left_alone.See(SameBits(operands, operands_before), "merge", "the operands were written to");
  left_alone.See(merged.version == tarn::PccMergeOutput::kVersion, "merge",
                 "the result's version is now " + std::to_string(merged.version));
  left_alone.See(SameEnvelope(in, tarn::Wrap(&operands)) && SameEnvelope(out, tarn::Wrap(&merged)),
                 "merge", "an envelope was written to");
  *result = merged.result;
  return code;
}

std::vector<Rule<AlgoSubject>> AlgoRules() {
  return AroundRules<AlgoSubject>({
      {"merges the identity", Stage::kStarted, MergeIdentity},
      {"merges matrices", Stage::kStarted, MergeMatrices},
      {"refuses the inexact", Stage::kStarted, RefuseInexact},
      {"same answer twice", Stage::kStarted, MergeAgain},
      {"reserved bytes", Stage::kStarted, KeepReserved},
      {"unknown operation", Stage::kStarted, RefuseUnknownOperation},
      {"records left alone", Stage::kStarted,
       [](AlgoSubject& algo) { return algo.left_alone.Sum(Verdict::kFailed, "records"); }},
  });
}

}  // namespace zelctl
