#include "platform/windows/system/system_errors.h"

#include <gtest/gtest.h>

namespace velmora::windows {
namespace {

TEST(SystemErrors, WhatIsNotThereIsMissing) {
    for (const DWORD failure : {ERROR_FILE_NOT_FOUND, ERROR_BAD_NET_NAME, ERROR_INVALID_NAME})
        EXPECT_TRUE(isMissing(failure)) << failure;
    for (const DWORD failure : {ERROR_SUCCESS, ERROR_ACCESS_DENIED, ERROR_NOT_READY})
        EXPECT_FALSE(isMissing(failure)) << failure;
}

TEST(SystemErrors, EachHasItsRunTimeError) {
    EXPECT_EQ(runtimeErrorOf(ERROR_PATH_NOT_FOUND), 76);
    EXPECT_EQ(runtimeErrorOf(ERROR_BAD_NETPATH), 76);
    EXPECT_EQ(runtimeErrorOf(ERROR_INVALID_NAME), 57);
    EXPECT_EQ(runtimeErrorOf(ERROR_SHARING_VIOLATION), 70);
    EXPECT_EQ(runtimeErrorOf(ERROR_WRITE_PROTECT), 70);
    EXPECT_EQ(runtimeErrorOf(ERROR_HANDLE_DISK_FULL), 61);
    EXPECT_EQ(runtimeErrorOf(ERROR_CRC), 57);
}

TEST(SystemErrors, WritingKnowsOnlyAFullDiskApart) {
    EXPECT_EQ(errorOfWriting(ERROR_DISK_FULL), 61);
    EXPECT_EQ(errorOfWriting(ERROR_ACCESS_DENIED), 57);
}

TEST(SystemErrors, AnEntryIsMissingOrDenied) {
    EXPECT_EQ(errorOfEntry(ERROR_DIRECTORY, 53), 53);
    EXPECT_EQ(errorOfEntry(ERROR_FILE_NOT_FOUND, 76), 76);
    EXPECT_EQ(errorOfEntry(ERROR_CRC, 53), 70);
}

TEST(SystemErrors, AShortcutIsSavedOrItsFolderIsMissingOrItIsDenied) {
    EXPECT_EQ(errorOfSaving(HRESULT_FROM_WIN32(ERROR_BAD_NETPATH)), 76);
    EXPECT_EQ(errorOfSaving(STG_E_PATHNOTFOUND), 76);
    EXPECT_EQ(errorOfSaving(STG_E_ACCESSDENIED), 70);
    EXPECT_EQ(errorOfSaving(E_OUTOFMEMORY), 70);
    // The same code of another part of the system.
    EXPECT_EQ(errorOfSaving(MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 3)), 70);
}

TEST(SystemErrors, AProgramIsMissingOrCanNotBeStarted) {
    EXPECT_EQ(errorOfStarting(ERROR_FILE_NOT_FOUND), 53);
    EXPECT_EQ(errorOfStarting(ERROR_BAD_EXE_FORMAT), 5);
    EXPECT_EQ(errorOfStarting(ERROR_INVALID_NAME), 5);
}

}  // namespace
}  // namespace velmora::windows
