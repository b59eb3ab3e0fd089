# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=bash

# Sourced first by every script here: stops at the first error, makes the repository
# the working folder, and answers -h with the comment at the script's head.
set -euo pipefail
case ${1:-} in
  -h | --help)
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
esac
cd "$(dirname "$0")/.."
