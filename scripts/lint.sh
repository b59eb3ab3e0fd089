#!/usr/bin/env bash
# The gates on form: clang-format, clang-tidy and shellcheck, all without a finding.
# Usage: scripts/lint.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/install-deps.sh verify
scripts/build.sh release
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
# Its other output (how many findings it suppressed) is shown only when it fails.
noise=$(mktemp)
trap 'rm -f "$noise"' EXIT
git ls-files '*.cpp' | xargs -P "$(nproc)" -n 1 clang-tidy -p build/release --quiet 2>"$noise" || {
  grep -v 'warnings generated' "$noise" >&2
  exit 1
}
shellcheck -x -P scripts scripts/*.sh .ci/run
shellcheck -s bash devkit/zelctl/completion/zelctl
echo "clang-format, clang-tidy and shellcheck: clean"
