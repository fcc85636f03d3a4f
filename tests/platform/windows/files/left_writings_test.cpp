#include "platform/windows/entries/left_writings.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/windows/support/helper_program.h"
#include "platform/windows/support/scratch_tree.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::tests::windows {
namespace {

using velmora::windows::removeLeftWritings;
using velmora::windows::ScratchFolder;
using velmora::windows::toUtf16;
using velmora::windows::UniqueHandle;

struct LeftWritings : testing::Test {
    std::string fileOf(DWORD process) { return folder / (".set.dat." + std::to_string(process)); }
    void clear() { removeLeftWritings(byTheLetter(folder.path()), "set.dat"); }
    ScratchFolder folder;
};

TEST_F(LeftWritings, ThoseOfARunningProcessStay) {
    makeFile(fileOf(GetCurrentProcessId()), "half");
    clear();
    EXPECT_TRUE(isThere(fileOf(GetCurrentProcessId())));
}

// Its number is not given again as long as somebody looks at it.
TEST_F(LeftWritings, ThoseOfOneThatHasEndedGoAlsoWhileSomebodyHoldsIt) {
    std::wstring command = L'"' + toUtf16(helperProgram()) + L'"';
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                               nullptr, nullptr, &start, &started));
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    makeFile(fileOf(started.dwProcessId), "half");
    TerminateProcess(process.get(), 0);
    ASSERT_EQ(WaitForSingleObject(process.get(), 60'000), WAIT_OBJECT_0);
    clear();
    EXPECT_FALSE(isThere(fileOf(started.dwProcessId)));
}

TEST_F(LeftWritings, LinksAndWhatTheyPointToStay) {
    makeFile(folder / "mine", "x");
    const Link link(folder.path(), ".set.dat.4294967288", "mine");
    if (!link) GTEST_SKIP() << "no links here";
    clear();
    EXPECT_TRUE(isThere(folder / "mine"));
    EXPECT_TRUE(isThere(folder / ".set.dat.4294967288"));
}

TEST_F(LeftWritings, AFolderOfThatNameStays) {
    makeFolder(folder / ".set.dat.4294967288");
    clear();
    EXPECT_TRUE(isThere(folder / ".set.dat.4294967288"));
}

}  // namespace
}  // namespace velmora::tests::windows
