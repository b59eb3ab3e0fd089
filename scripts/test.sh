#!/usr/bin/env bash
# Builds everything and runs all tests; ends with ctest's summary.
# Usage: scripts/test.sh [PRESET] [CTEST OPTION ...]
#   PRESET   release (default), asan, tsan, arm64 or coverage
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

preset=${1:-release}
shift || true
scripts/build.sh "$preset"
ctest --preset "$preset" "$@"
