// Many reports on management records leave nothing behind.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <memory>

#include "base/runtime_error.h"
#include "notify/inventory_properties.h"
#include "platform/windows/inventory/wmi_rig.h"
#include "platform/windows/support/own_handles.h"
#include "platform/windows/system/com_apartment.h"
#include "support/wait.h"

#undef GetObject

namespace velmora::tests::windows {
namespace {

using velmora::windows::ComApartment;
using velmora::windows::systemWmi;
using velmora::windows::WindowsWmi;
using namespace std::chrono_literals;

/// Reads all that the report on processes reads; the number of the records.
int readProcesses(WindowsWmi& wmi) {
    const std::vector<std::string> names(inventory_properties::process.begin(),
                                         inventory_properties::process.end());
    const auto services = wmi.GetObject(R"(winmgmts:\\\\.\root\cimv2)");
    const auto records = services->ExecQuery("Select * from Win32_Process", "WQL", 48);
    int count = 0;
    while (const auto record = records->Next()) {
        record->Properties(names);
        ++count;
    }
    return count;
}

/// What the process holds more after doing something so often than before.
struct Growth {
    int handles = 0;
    int threads = 0;
};

template <typename Action>
Growth growthOver(int times, Action action) {
    // The first ones load libraries.
    for (int i = 0; i < 5; ++i) action();
    const int handles = ownHandles();
    const int threads = ownThreads();
    for (int i = 0; i < times; ++i) action();
    return {.handles = ownHandles() - handles, .threads = ownThreads() - threads};
}

class WmiLeak : public testing::Test {
  protected:
    void SetUp() override {
        if (!countsHandles()) GTEST_SKIP() << "the system doesn't count handles";
    }

    // As the program's thread has it.
    ComApartment com;
};

TEST_F(WmiLeak, AThousandReportsOfAScriptedSourceLeaveNothing) {
    const auto script = std::make_shared<WmiScript>();
    script->records.resize(2, {{L"Name", wmiText(L"a.exe")}});
    WindowsWmi wmi{sourceOf(script), 30s};
    const Growth growth = growthOver(1000, [&] { ASSERT_EQ(readProcesses(wmi), 2); });
    // Less than nothing when something of another test has just ended.
    EXPECT_LE(growth.handles, 0);
    EXPECT_LE(growth.threads, 0);
    EXPECT_EQ(script->census->alive(), 0);
}

// More reports than the 64 things that a thread of the system can wait for. Wine itself loses
// handles at each binding, so that bindings alone are counted too.
TEST_F(WmiLeak, AHundredReportsOfTheSystemLeaveNoMoreThanTheirBindings) {
    constexpr int times = 100;
    const auto source = systemWmi();
    const Growth ofBindings = growthOver(times, [&] {
        source.bind(LR"(winmgmts:\\\\.\root\cimv2)");
        ASSERT_TRUE(source.bind(LR"(winmgmts:\\.\root\cimv2)"));
    });
    WindowsWmi wmi{source, 30s};
    const Growth ofReports = growthOver(times, [&] { ASSERT_GT(readProcesses(wmi), 0); });
    // The system may start threads of its own meanwhile, but not one for each report.
    EXPECT_LT(ofReports.handles, ofBindings.handles + times / 10);
    EXPECT_LT(ofReports.threads, times / 10);
}

TEST_F(WmiLeak, AStuckSourceLeavesNothingOnceItReturns) {
    const int threads = ownThreads();
    const auto script = std::make_shared<WmiScript>();
    script->nextWaits = std::make_shared<Barrier>();
    {
        WindowsWmi wmi{sourceOf(script), 700ms};
        const auto services = wmi.GetObject("winmgmts:");
        const auto records = services->ExecQuery("Select * from Any", "WQL", 48);
        EXPECT_THROW(records->Next(), RuntimeError);
    }
    EXPECT_GT(script->census->alive(), 0) << "the thread still has them";
    script->nextWaits->open();
    EXPECT_TRUE(waitUntil([&] { return ownThreads() <= threads; }));
    EXPECT_EQ(script->census->alive(), 0);
}

}  // namespace
}  // namespace velmora::tests::windows
