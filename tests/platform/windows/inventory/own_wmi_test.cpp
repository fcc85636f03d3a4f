// The management records of the system that the tests run on.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/errors.h"
#include "notify/inventory_properties.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/inventory/windows_wmi.h"

#undef GetObject

namespace velmora::tests::windows {
namespace {

using velmora::windows::isUnderWine;
using velmora::windows::systemWmi;
using velmora::windows::WindowsWmi;

const std::vector<std::string> processNames(inventory_properties::process.begin(),
                                            inventory_properties::process.end());

using NamedTexts = std::map<std::string, std::string>;

/// The properties that are texts.
NamedTexts textsOf(WmiObject& record) {
    const auto values = record.Properties(processNames);
    NamedTexts texts;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].isText()) texts[processNames[i]] = values[i].text;
    }
    return texts;
}

class OwnWmi : public testing::Test {
  protected:
    std::unique_ptr<WmiServices> connect() { return wmi.GetObject(R"(winmgmts:\\\\.\root\cimv2)"); }
    std::unique_ptr<WmiObjectSet> query(WmiServices& services, const std::string& className) {
        return services.ExecQuery("Select * from " + className, "WQL", 48);
    }
    /// The texts of the process that runs this test; none when it isn't among the records.
    NamedTexts ownProcess(WmiServices& services) {
        const std::string id = std::to_string(GetCurrentProcessId());
        const auto records = query(services, "Win32_Process");
        while (const auto record = records->Next()) {
            NamedTexts texts = textsOf(*record);
            if (texts["ProcessId"] == id) return texts;
        }
        return {};
    }

    // A busy machine must not look like a stuck source.
    WindowsWmi wmi{systemWmi(), std::chrono::seconds(30)};
};

TEST_F(OwnWmi, TheProcessOfThisTestIsAmongTheRecords) {
    const auto services = connect();
    NamedTexts texts = ownProcess(*services);
    for (const char* name : {"Caption", "Description", "Name"})
        EXPECT_EQ(texts[name], "test_platform.exe") << name;
    EXPECT_EQ(texts["Handle"], std::to_string(GetCurrentProcessId()));
    ASSERT_FALSE(texts["ThreadCount"].empty());
    EXPECT_GE(std::stoi(texts["ThreadCount"]), 2) << "this one and that of the connection";
}

TEST_F(OwnWmi, WineKnowsEightOfTheReportsProperties) {
    if (!isUnderWine()) GTEST_SKIP() << "another system knows more of them";
    const auto services = connect();
    std::vector<std::string> known;
    for (const auto& [name, text] : ownProcess(*services)) known.push_back(name);
    const std::vector<std::string> expected{"Caption",     "Description",     "Handle",
                                            "Name",        "ParentProcessId", "ProcessId",
                                            "ThreadCount", "WorkingSetSize"};
    EXPECT_EQ(known, expected);
}

TEST_F(OwnWmi, TheLocatorGivesTheSameRecords) {
    const auto services = wmi.ConnectServer(".", R"(root\cimv2)");
    const auto records = services->ExecQuery("Select * from Win32_Process", "WQL", 32);
    EXPECT_NE(records->Next(), nullptr);
    EXPECT_FALSE(ownProcess(*services).empty());
}

TEST_F(OwnWmi, ClassesThatWineDoesNotHaveGiveNoRecords) {
    if (!isUnderWine()) GTEST_SKIP() << "another system has them";
    const auto services = connect();
    for (const char* className : {"Win32_NTLogEvent", "Win32_PerfRawData_PerfOS_Memory",
                                  "Win32_LoggedOnUser", "Win32_ScheduledJob"}) {
        int count = 0;
        const int failure = errorOf([&] {
            const auto records = query(*services, className);
            while (records->Next()) ++count;
        });
        EXPECT_EQ(count, 0) << className;
        EXPECT_TRUE(failure == 0 || failure == 440) << className << ' ' << failure;
    }
}

TEST_F(OwnWmi, WhatIsNotThereIsAnError) {
    EXPECT_EQ(errorOf([&] { wmi.GetObject("nothing: at all"); }), 440);
    const auto services = connect();
    EXPECT_EQ(errorOf([&] { services->ExecQuery("no query", "WQL", 48)->Next(); }), 440);
    EXPECT_EQ(errorOf([&] { services->Get("no path"); }), 440);
}

}  // namespace
}  // namespace velmora::tests::windows
