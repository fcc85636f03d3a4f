#include "platform/windows/entries/entry_facts.h"

#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

namespace {

// Both ways to ask tell the same under the same names.
template <typename Told>
EntryFacts factsOf(const Told& told) {
    EntryFacts facts{told.dwFileAttributes, wholeOf(told.ftCreationTime),
                     wholeOf(told.ftLastAccessTime), wholeOf(told.ftLastWriteTime),
                     wholeOf(told.nFileSizeHigh, told.nFileSizeLow)};
    // Not every drive keeps all of them.
    if (facts.created == 0) facts.created = facts.written;
    if (facts.accessed == 0) facts.accessed = facts.written;
    return facts;
}

DWORD readListed(const std::wstring& path, EntryFacts& facts) {
    WIN32_FIND_DATAW told{};
    const HANDLE search = FindFirstFileW(path.c_str(), &told);
    if (search == INVALID_HANDLE_VALUE) return GetLastError();
    FindClose(search);
    facts = factsOf(told);
    return ERROR_SUCCESS;
}

}  // namespace

std::uint64_t wholeOf(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

std::uint64_t wholeOf(const FILETIME& time) {
    return wholeOf(time.dwHighDateTime, time.dwLowDateTime);
}

DWORD readFacts(const std::wstring& path, EntryFacts& facts) {
    // To read attributes alone never conflicts with whoever has the file open.
    const HANDLE handle = CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD failure = GetLastError();
        return isMissing(failure) ? failure : readListed(path, facts);
    }
    BY_HANDLE_FILE_INFORMATION told{};
    const DWORD failure =
        GetFileInformationByHandle(handle, &told) ? ERROR_SUCCESS : GetLastError();
    CloseHandle(handle);
    if (failure == ERROR_SUCCESS) facts = factsOf(told);
    return failure;
}

DateTime localTime(std::uint64_t time) {
    const FILETIME halves{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    // By the rules of that day: today's difference may be that of the other half of the year.
    if (time == 0 || !FileTimeToSystemTime(&halves, &universal) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return {};
    const DateTime result{local.wYear, local.wMonth,  local.wDay,
                          local.wHour, local.wMinute, local.wSecond};
    return isValid(result) ? result : DateTime{};
}

}  // namespace velmora::windows
