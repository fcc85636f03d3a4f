// Moving a file to another drive while a program that ignores the sharing of open files changes or
// removes it.
#include <gtest/gtest.h>
#include <windows.h>

#include <iostream>

#include "platform/windows/moving/drive_move_rig.h"

namespace velmora::windows {
namespace {

using tests::windows::DriveMoveTest;
using tests::windows::isThere;
using tests::windows::makeFile;
using tests::windows::runHostProgram;

// Programs of the host below Wine ignore the sharing of open files, as another machine's may.
class WindowsDriveMoveBesideHost : public DriveMoveTest {
  protected:
    void SetUp() override {
        DriveMoveTest::SetUp();
        if (IsSkipped()) return;
        if (!isUnderWine()) {
            std::cout << "skipped: files in use can't be changed here\n";
            GTEST_SKIP() << "no host";
        }
        makeSource();
    }
    void runInFrom(const std::string& line) { runHostProgram(in("from"), line); }
};

TEST_F(WindowsDriveMoveBesideHost, AFileThatChangesMeanwhileStaysWithoutACopy) {
    EXPECT_FALSE(moveWhile([&] {
        makeFile(in("from\\newer"), "newer content");
        runInFrom(R"(Z:\bin\cp newer file)");
        waitUntil([&] { return contentsOf(source()) == "newer content"; });
    }));
    EXPECT_TRUE(isHeld_);
    expectOnlyAtSource("newer content");
}

TEST_F(WindowsDriveMoveBesideHost, AFileThatIsReplacedMeanwhileStaysWithoutACopy) {
    EXPECT_FALSE(moveWhile([&] {
        makeFile(in("from\\newer"), "replacer");
        runInFrom(R"(Z:\bin\mv -f newer file)");
        waitUntil([&] { return !isThere(in("from\\newer")); });
    }));
    EXPECT_TRUE(isHeld_);
    expectOnlyAtSource("replacer");
}

TEST_F(WindowsDriveMoveBesideHost, AFileThatIsRemovedMeanwhileHasBeenMoved) {
    EXPECT_TRUE(moveWhile([&] {
        runInFrom(R"(Z:\bin\rm -f file)");
        waitUntil([&] { return !isThere(source()); });
    }));
    EXPECT_TRUE(isHeld_);
    expectOnlyAtTarget(content_);
}

}  // namespace
}  // namespace velmora::windows
