#!/usr/bin/env bash
# Fuzzes the host's calls, the reference parser's panel descriptions, and the profiles and
# measurements that zelctl imports, starting from the seed corpora. Prints the executions; fails on any finding, whose input
# stays in build/fuzz. What a run discovers there, the next one starts from too.
# Usage: scripts/fuzz.sh [SECONDS]
#   SECONDS   for all targets, host calls beside the others; default 60
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

seconds=${1:-60}
build=build/fuzz

# Runs TARGET for SECONDS on its own discoveries and on the seeds in the FOLDERs.
fuzz() {
  local target=$1 seconds=$2 log=$build/$1.log
  shift 2
  mkdir -p "$build/corpus/$target"
  if ! "$build/fuzz/$target" "$build/corpus/$target" "$@" -max_total_time="$seconds" \
    -len_control=0 -timeout=20 -rss_limit_mb=3000 -print_final_stats=1 \
    -artifact_prefix="$build/$target-" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "$target: FAILED" >&2
    return 1
  fi
  awk -v target="$target" '/number_of_executed_units/ { runs = $2 } / cov: / { cov = $4 }
    END { print target ": " runs " executions, " cov " branches covered, no finding" }' "$log"
}

scripts/build.sh fuzz
failed=0
fuzz fuzz_host_calls "$seconds" fuzz/corpus/host_calls -max_len=512 &
third=$(((seconds + 2) / 3))
fuzz fuzz_panel $((2 * third)) fuzz/corpus/panel devkit/panels -max_len=8192 || failed=1
fuzz fuzz_import "$third" fuzz/corpus/import -max_len=8192 || failed=1
wait $! || failed=1
exit $failed
