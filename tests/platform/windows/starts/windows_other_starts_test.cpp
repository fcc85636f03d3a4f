#include "platform/windows/starts/windows_other_starts.h"

#include <windows.h>

#include "platform/other_starts_cases.h"

namespace velmora::windows {
namespace {

struct WindowsStarts : tests::OtherStartsCases<WindowsOtherStarts> {
    std::string folder() override {
        return "C:\\test-" + std::to_string(GetCurrentProcessId()) + "-" +
               testing::UnitTest::GetInstance()->current_test_info()->name();
    }
};

TEST_F(WindowsStarts, AFolderIsHeldOnce) {
    aFolderIsHeldOnce();
}

TEST_F(WindowsStarts, ACommandLineReachesWhoListens) {
    aCommandLineReachesWhoListens();
}

TEST_F(WindowsStarts, AnEmptyOneToo) {
    anEmptyOneToo();
}

TEST_F(WindowsStarts, SeveralFollowEachOther) {
    severalFollowEachOther();
}

TEST_F(WindowsStarts, WhatIsNotTakenGetsNoAnswer) {
    whatIsNotTakenGetsNoAnswer();
}

TEST_F(WindowsStarts, OnlyOneListens) {
    onlyOneListens();
}

TEST_F(WindowsStarts, WithoutAListenerNothingIsHandedOver) {
    withoutAListenerNothingIsHandedOver();
}

}  // namespace
}  // namespace velmora::windows
