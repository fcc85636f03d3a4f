#include "platform/linux/inventory/record_classes.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

TEST(RecordClasses, AQueryIsForAllOfAClass) {
    EXPECT_EQ(queriedClass("Select * from Win32_Process"), "Win32_Process");
    EXPECT_EQ(queriedClass(" SELECT  *\tFROM win32_process "), "win32_process");
    for (const char* other :
         {"", "Select", "Select * from", "Select Name from Win32_Process",
          "Select * of Win32_Process", "Delete * from Win32_Process",
          "Select * from Win32_Process where x = 1", "Select*from Win32_Process"})
        EXPECT_EQ(queriedClass(other), "") << other;
}

TEST(RecordClasses, TheirNamesHaveNoCase) {
    for (const char* name :
         {"Win32_NTLogEvent", "Win32_PerfRawData_PerfOS_Memory", "Win32_LoggedOnUser",
          "Win32_Process", "Win32_ScheduledJob", "WIN32_PROCESS", "win32_process"})
        EXPECT_TRUE(isRecordClass(name)) << name;
    for (const char* name : {"", "Win32_Service", "Win32_Process ", "Win32"})
        EXPECT_FALSE(isRecordClass(name)) << name;
    EXPECT_EQ(openRecordClass("Win32_Service", {}), nullptr);
    EXPECT_NE(openRecordClass("win32_perfrawdata_perfos_memory", {}), nullptr);
}

}  // namespace
}  // namespace velmora::linuxhost
