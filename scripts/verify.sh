#!/usr/bin/env bash
# Every check: form, all tests on every preset, the platform's log, the ABI, the Android
# build files, the fuzzers' short run, coverage, some of the deliberate faults. Ends with a
# table of what ran, and fails where anything failed.
# Usage: scripts/verify.sh
# ZEL_FUZZ_SECONDS in the environment: how long to fuzz, default 60.
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

set +e  # a failing step is noted, and the next one runs

names=() results=() seconds=()
failed=0

step() {
  local name=$1 start=$SECONDS
  shift
  echo "== $name"
  if "$@"; then results+=(passed); else results+=(FAILED); failed=1; fi
  names+=("$name")
  seconds+=($((SECONDS - start)))
}

scripts/install-deps.sh verify || exit 1
step "tests, release" scripts/test.sh release
step "platform's log" scripts/platform-log.sh
step "ABI" scripts/abi.sh
step "Android build" scripts/android.sh
step "format and tidy" scripts/lint.sh
step "tests, asan" scripts/test.sh asan
step "tests, tsan" scripts/test.sh tsan
step "tests, arm64" scripts/test.sh arm64
step "fuzzing" scripts/fuzz.sh "${ZEL_FUZZ_SECONDS:-60}"
step "coverage" scripts/coverage.sh
step "deliberate faults" scripts/mutate.py --some 5

echo
printf '%-20s %-8s %8s\n' what result seconds
for i in "${!names[@]}"; do
  printf '%-20s %-8s %8d\n' "${names[$i]}" "${results[$i]}" "${seconds[$i]}"
done
passed=0
for result in "${results[@]}"; do [ "$result" = passed ] && passed=$((passed + 1)); done
echo "$passed passed, $((${#results[@]} - passed)) failed"
exit $failed
