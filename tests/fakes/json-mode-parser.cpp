// SPDX-License-Identifier: Apache-2.0
#include "tests/support/fake_libraries.h"

__attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(
    int major_version, int minor_version) {
  return MakeFakeParser(major_version, minor_version);
}
