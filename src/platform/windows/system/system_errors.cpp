#include "platform/windows/system/system_errors.h"

#include <algorithm>
#include <iterator>

#include "base/runtime_error.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

struct SystemError {
    DWORD failure;
    bool isMissing;
    int runtimeError;
};

constexpr SystemError systemErrors[] = {
    {ERROR_FILE_NOT_FOUND, true, error::pathNotFound},
    {ERROR_PATH_NOT_FOUND, true, error::pathNotFound},
    {ERROR_BAD_NETPATH, true, error::pathNotFound},
    {ERROR_BAD_NET_NAME, true, error::pathNotFound},
    {ERROR_INVALID_DRIVE, true, error::deviceIo},
    {ERROR_INVALID_NAME, true, error::deviceIo},
    {ERROR_BAD_PATHNAME, true, error::deviceIo},
    {ERROR_DIRECTORY, true, error::deviceIo},
    {ERROR_ACCESS_DENIED, false, error::permissionDenied},
    {ERROR_SHARING_VIOLATION, false, error::permissionDenied},
    {ERROR_WRITE_PROTECT, false, error::permissionDenied},
    {ERROR_DISK_FULL, false, error::diskFull},
    {ERROR_HANDLE_DISK_FULL, false, error::diskFull},
};

const SystemError& rowOf(DWORD failure) {
    static constexpr SystemError other{0, false, error::deviceIo};
    const auto* found =
        std::find_if(std::begin(systemErrors), std::end(systemErrors),
                     [failure](const SystemError& each) { return each.failure == failure; });
    return found == std::end(systemErrors) ? other : *found;
}

}  // namespace

bool isMissing(DWORD failure) {
    return rowOf(failure).isMissing;
}

bool isUnknownRequest(DWORD failure) {
    switch (failure) {
        case ERROR_INVALID_PARAMETER:
        case ERROR_NOT_SUPPORTED:
        case ERROR_INVALID_FUNCTION:
        case ERROR_INVALID_LEVEL:
        case ERROR_CALL_NOT_IMPLEMENTED:
            return true;
        default:
            return false;
    }
}

std::string textOf(DWORD failure) {
    constexpr DWORD inOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
    std::wstring text(512, L'\0');
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | inOneLine,
                       nullptr, failure, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    text.resize(length);
    text.resize(text.find_last_not_of(L" \r\n") + 1);
    return text.empty() ? "error " + std::to_string(failure) : toUtf8(text);
}

int runtimeErrorOf(DWORD failure) {
    return rowOf(failure).runtimeError;
}

int errorOfWriting(DWORD failure) {
    const int number = runtimeErrorOf(failure);
    return number == error::diskFull ? number : error::deviceIo;
}

int errorOfEntry(DWORD failure, int missing) {
    return isMissing(failure) ? missing : error::permissionDenied;
}

// The failures of storage have the system's codes below their own mark.
int errorOfSaving(HRESULT result) {
    const bool isOfSystem =
        HRESULT_FACILITY(result) == FACILITY_WIN32 || HRESULT_FACILITY(result) == FACILITY_STORAGE;
    const int number = isOfSystem ? runtimeErrorOf(static_cast<DWORD>(HRESULT_CODE(result)))
                                  : error::permissionDenied;
    return number == error::pathNotFound ? number : error::permissionDenied;
}

int errorOfStarting(DWORD failure) {
    return runtimeErrorOf(failure) == error::pathNotFound ? error::fileNotFound
                                                          : error::invalidCall;
}

}  // namespace velmora::windows
