#!/usr/bin/env bash
# The gates on form: clang-format and clang-tidy, both without a finding.
# Usage: scripts/lint.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/build.sh release
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
# What it says besides findings (how many it suppressed) is shown only when it fails.
noise=$(mktemp)
trap 'rm -f "$noise"' EXIT
git ls-files '*.cpp' | xargs -P "$(nproc)" -n 1 clang-tidy -p build/release --quiet 2>"$noise" || {
  grep -v 'warnings generated' "$noise" >&2
  exit 1
}
echo "clang-format and clang-tidy: clean"
