#!/usr/bin/env bash
# Runs the release plug-in on the platform's own log library, built for this machine.
# Usage: scripts/platform-log.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/install-deps.sh verify
scripts/build.sh release
exec tests/platform/log_test.py
