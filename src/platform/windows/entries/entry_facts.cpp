#include "platform/windows/entries/entry_facts.h"

#include "platform/windows/system/halves.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

namespace {

// Both system calls below give the same fields under the same names.
template <typename Information>
EntryFacts factsOf(const Information& information) {
    EntryFacts facts{.attributes = information.dwFileAttributes,
                     .created = wholeOf(information.ftCreationTime),
                     .accessed = wholeOf(information.ftLastAccessTime),
                     .written = wholeOf(information.ftLastWriteTime),
                     .size = wholeOf(information.nFileSizeHigh, information.nFileSizeLow)};
    // Not every drive keeps all of them.
    if (facts.created == 0) facts.created = facts.written;
    if (facts.accessed == 0) facts.accessed = facts.written;
    return facts;
}

DWORD readListed(const std::wstring& path, EntryFacts& facts) {
    WIN32_FIND_DATAW entry{};
    const UniqueFind search(FindFirstFileW(path.c_str(), &entry));
    if (!search.isOpen()) return GetLastError();
    facts = factsOf(entry);
    return ERROR_SUCCESS;
}

}  // namespace

PathKind kindOf(DWORD attributes) {
    if (attributes == INVALID_FILE_ATTRIBUTES) return PathKind::none;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::folder : PathKind::file;
}

DWORD readFacts(const std::wstring& path, EntryFacts& facts) {
    // Opening only to read attributes never conflicts with a program that has the file open.
    const UniqueHandle handle(CreateFileW(
        path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle.isOpen()) {
        const DWORD failure = GetLastError();
        return isMissing(failure) ? failure : readListed(path, facts);
    }
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle.get(), &information)) return GetLastError();
    facts = factsOf(information);
    return ERROR_SUCCESS;
}

DateTime localTime(std::uint64_t time) {
    const FILETIME halves{.dwLowDateTime = static_cast<DWORD>(time),
                          .dwHighDateTime = static_cast<DWORD>(time >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    // By the rules of that day: today's difference may be that of the other half of the year.
    if (time == 0 || !FileTimeToSystemTime(&halves, &universal) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return {};
    const DateTime result{.year = local.wYear,
                          .month = local.wMonth,
                          .day = local.wDay,
                          .hour = local.wHour,
                          .minute = local.wMinute,
                          .second = local.wSecond};
    return isValid(result) ? result : DateTime{};
}

}  // namespace velmora::windows
