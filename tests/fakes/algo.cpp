// SPDX-License-Identifier: Apache-2.0
#include "tests/support/fake_libraries.h"

__attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major_version,
                                                                                int minor_version) {
  return MakeFakeAlgo(major_version, minor_version);
}
