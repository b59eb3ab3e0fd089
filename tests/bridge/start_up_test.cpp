// SPDX-License-Identifier: Apache-2.0
#include <sched.h>

#include <chrono>
#include <functional>
#include <future>
#include <stdexcept>

#include "tests/support/plugin_host.h"
#include "tests/support/rows.h"

using namespace std::chrono_literals;

namespace {

std::string Joined(const Lines& lines) {
  std::string joined;
  for (const std::string& line : lines) joined += line + "; ";
  return joined;
}

class StartUp : public PluginTest {};

const std::string kParser = "open parser; parser factory 2 0; ";
const std::string kModes = kParser + "parser Init panel; parser GetProperty 1; ";
const std::string kOneMode = "I Init: Get 1 modes in mode list; ";
const std::string kNoMerging = "I thread_handler: Pcc merging not supported; " + kOneMode;

void AlgoThrowsIn(const std::string& event) {
  Algo().during_call = [event] {
    if (Platform().events.back() == event) throw std::runtime_error("no licence");
  };
}

struct StartUpCase {
  const char* name;
  std::function<void()> script;
  int result;
  std::string events;  // of Init
  std::string log;
  std::string end;  // events of the destruction
};

const StartUpCase kStartUpCases[] = {
    {"success", [] {}, 0, kModes + "open algo; algo factory 2 0; algo Init panel; ", kOneMode,
     "delete parser; delete algo; close algo; close parser; "},
    {"parser not found", [] { Platform().parser_opens = false; }, -22, "open parser; ",
     "E Init: Failed to load = libtarn-json-mode-parser.so; ", ""},
    {"parser without factory", [] { Platform().parser_path = "libcutils.so"; }, -22,
     "open parser; ",
     "E Init: Failed to retrieve = GetTarnZelInterface from libtarn-json-mode-parser.so; ",
     "close parser; "},
    {"parser refuses", [] { Parser().makes_object = false; }, -22, kParser,
     "E Init: Failed to get mode parser intf from libtarn-json-mode-parser.so; ", "close parser; "},
    {"no thread", [] { Platform().threads_start = false; }, -22, kParser + "delete parser; ", "",
     "close parser; "},
    {"parser fails", [] { Parser().init_result = -5; }, -5,
     kParser + "parser Init panel; delete parser; ",
     "E thread_handler: failed to intialize mode parser\n; ", "close parser; "},
    {"list fails", [] { Parser().list_result = 3; }, 3, kModes + "delete parser; ",
     "E thread_handler: Failed to get mode list, ret 3; "
     "I thread_handler: modes sz 1 parsing status 3\n; ",
     "close parser; "},
    {"no modes", [] { Parser().modes.clear(); }, 0,
     kModes + "open algo; algo factory 2 0; algo Init panel; delete parser; ",
     "I thread_handler: modes sz 0 parsing status 0\n; I Init: Get 0 modes in mode list; ",
     "delete algo; close algo; close parser; "},
    {"algo not found", [] { Platform().algo_opens = false; }, 0, kModes + "open algo; ",
     "I LoadTarnAlgoLib: Failed to load = libtarn-algo.so; " + kNoMerging,
     "delete parser; close parser; "},
    {"algo without factory", [] { Platform().algo_path = "libcutils.so"; }, 0,
     kModes + "open algo; ",
     "E LoadTarnAlgoLib: Failed to retrieve = GetTarnAlgoInterface from libtarn-algo.so; " +
         kNoMerging,
     "delete parser; close algo; close parser; "},
    {"algo refuses", [] { Algo().makes_object = false; }, 0,
     kModes + "open algo; algo factory 2 0; ",
     "E LoadTarnAlgoLib: Failed to get tarn algo intf from libtarn-algo.so; " + kNoMerging,
     "delete parser; close algo; close parser; "},
    {"algo factory throws", [] { Algo().during_call = [] { throw 1; }; }, 0, kModes + "open algo; ",
     kNoMerging, "delete parser; close algo; close parser; "},
    {"algo throws", [] { AlgoThrowsIn("algo Init panel"); }, 0,
     kModes + "open algo; algo factory 2 0; algo Init panel; delete algo; ", kNoMerging,
     "delete parser; close algo; close parser; "},
    {"algo fails", [] { Algo().init_result = 7; }, 0,
     kModes + "open algo; algo factory 2 0; algo Init panel; delete algo; ",
     "E LoadTarnAlgoLib: Failed to initialize tarn algo, ret = 7; " + kNoMerging,
     "delete parser; close algo; close parser; "},
};

class StartUpOf : public PluginTest, public testing::WithParamInterface<StartUpCase> {};
ZEL_TEST_ROWS(StartUpOf, kStartUpCases);

TEST_P(StartUpOf, LoadsBothLibrariesInOrderAndReportsEachFailure) {
  const StartUpCase& row = GetParam();
  row.script();
  if (!Platform().threads_start && !kThreadsCanFail) GTEST_SKIP();
  Load();
  EXPECT_EQ(Joined(Platform().TakeEvents()), "");
  Platform().TakeLog();
  EXPECT_EQ(Init(), row.result);
  EXPECT_EQ(Joined(Platform().TakeEvents()), row.events);
  EXPECT_EQ(Joined(Platform().TakeLog()), row.log);
  velaricolor::ColorModeList list = {.modes = {{}, {}}};
  EXPECT_EQ(Get(velaricolor::kVcModesList, &list), row.result == 0 ? 0 : -22);
  EXPECT_EQ(list.modes.size(), row.result == 0 ? Parser().modes.size() : 2);
  Unload();
  EXPECT_EQ(Joined(Platform().TakeEvents()), row.end);
}

TEST_F(StartUp, PassesOnWhatTheParserThrows) {
  for (const std::string event : {"parser Init panel", "parser GetProperty 1"}) {
    Load();
    Parser().during_call = [event] {
      if (Platform().events.back() == event) throw std::runtime_error("no panel");
    };
    EXPECT_THROW(Init(), std::runtime_error);
    EXPECT_EQ(Platform().TakeEvents().back(), "delete parser");
    Parser().during_call = nullptr;
    EXPECT_EQ(Init(), 0);
  }
}

TEST_F(StartUp, AsksForTheListOnAnOrdinaryThreadOfItsOwnName) {
  Load();
  uint32_t record_version = 0;
  Parser().during_call = [&] {
    if (Parser().out.payload == nullptr) return;
    record_version = static_cast<tarn::ColorModeList*>(Parser().out.payload)->version;
  };
  const sched_param none = {};
  ASSERT_EQ(sched_setscheduler(0, SCHED_BATCH, &none), 0);
  const int result = Init();
  EXPECT_EQ(sched_getscheduler(0), SCHED_BATCH);  // the host's own is left alone
  ASSERT_EQ(sched_setscheduler(0, SCHED_OTHER, &none), 0);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Parser().thread_name, "zel_mode_parser");
  EXPECT_EQ(Parser().scheduling, SCHED_OTHER);
  EXPECT_EQ(Parser().out.version, 24U);
  EXPECT_EQ(Parser().out.len, 32U);
  EXPECT_EQ(record_version, 96U);
}

TEST_F(StartUp, HostCallsWaitForIt) {
  Load();
  velaricolor::ColorModeList list;
  std::future<int> call;
  Parser().during_call = [&] {
    if (call.valid()) return;
    call = std::async(std::launch::async, [&] { return Get(velaricolor::kVcModesList, &list); });
    EXPECT_EQ(call.wait_for(100ms), std::future_status::timeout);
  };
  EXPECT_EQ(Init(), 0);
  EXPECT_EQ(call.get(), 0);
  EXPECT_EQ(list.modes.size(), 1U);
}

}  // namespace
