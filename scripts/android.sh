#!/usr/bin/env bash
# Android.bp and the preset "android", as far as they can be proven without a platform
# tree or an NDK: the platform's build tool reads the one, CMake the other with a stand-in
# for the NDK, and both must build the same in the same way.
# Usage: scripts/android.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/install-deps.sh verify
scripts/arm64-sysroot.sh
exec tests/android/android_test.py
