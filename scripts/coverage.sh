#!/usr/bin/env bash
# Which lines of the plug-in its tests run; prints a summary per file, and the
# lines that no test runs. Fails where fewer than 97 % run.
# Usage: scripts/coverage.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/build.sh coverage
build=build/coverage
rm -rf "$build/profiles"
mkdir -p "$build/profiles"
LLVM_PROFILE_FILE="$PWD/$build/profiles/%p.profraw" \
  ctest --preset coverage --output-log "$build/ctest.log" --quiet || {
  cat "$build/ctest.log" >&2
  exit 1
}
find "$build/profiles" -name '*.profraw' >"$build/profiles/list"
llvm-profdata merge -sparse -f "$build/profiles/list" -o "$build/profile"
report=$(llvm-cov report "$build/lib/libzeltarn.so" -instr-profile="$build/profile" \
  --show-region-summary=false --show-branch-summary=false)
echo "$report"
echo "Lines that no test runs:"
llvm-cov show "$build/lib/libzeltarn.so" -instr-profile="$build/profile" |
  awk '/^\/.*:$/ { folder = $0; gsub(/:$/, "", folder); n = split(folder, p, "/"); name = p[n-1] "/" p[n] }
       /^ *[0-9]+\| *0\|/ { line = $0; sub(/\|.*/, "", line); gsub(/ /, "", line)
                            text = $0; sub(/^[^|]*\|[^|]*\|/, "", text); print "  " name ":" line ": " text }'
least=97
awk -v least="$least" '$1 == "TOTAL" { share = $NF + 0; found = 1 }
  END { if (!found || share < least) { print "coverage: " share " %, below " least " %"; exit 1 } }' \
  <<<"$report"
