#include "platform/windows/files/windows_kernel32.h"

#include <windows.h>

#include <utility>

#include "platform/windows/entries/folder_listing.h"
#include "platform/windows/moving/entry_move.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/halves.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

FindData dataOf(const WIN32_FIND_DATAW& entry) {
    const std::uint64_t written = wholeOf(entry.ftLastWriteTime);
    const std::uint64_t created = wholeOf(entry.ftCreationTime);
    return {.dwFileAttributes = entry.dwFileAttributes,
            .ftCreationTime = created != 0 ? created : written,
            .ftLastAccessTime = wholeOf(entry.ftLastAccessTime),
            .ftLastWriteTime = written,
            .nFileSize = wholeOf(entry.nFileSizeHigh, entry.nFileSizeLow),
            .cFileName = toUtf8(entry.cFileName)};
}

// Numbers that mean the program itself, its thread or its output instead of a handle; a
// notification that couldn't be had is one of them.
bool standsForOther(std::uint32_t handle) {
    return handle >= 0xFFFFFFF0;
}

}  // namespace

struct WindowsKernel32::Listing {
    Listing(std::shared_ptr<DriveQuestions> questions, const std::string& pattern)
        : entries(std::move(questions), driveOfPath(pattern), systemPath(pattern)) {}

    FolderListing entries;
    bool isOver = false;  // and the reason was reported
};

WindowsKernel32::WindowsKernel32(std::shared_ptr<DriveQuestions> questions)
    : questions_(std::move(questions)) {}

WindowsKernel32::~WindowsKernel32() = default;

std::uint32_t WindowsKernel32::GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) {
    // Drive roots are ASCII on every system, so the narrow call loses nothing.
    std::string roots(std::size_t{length} + 1, '\0');
    const DWORD used = ::GetLogicalDriveStringsA(length, roots.data());
    if (used < length) buffer.replace(0, std::size_t{used} + 1, roots, 0, std::size_t{used} + 1);
    return used;
}

std::string WindowsKernel32::GetWindowsDirectoryA() {
    std::wstring folder(MAX_PATH, L'\0');
    const UINT length = GetWindowsDirectoryW(folder.data(), MAX_PATH);
    folder.resize(length < MAX_PATH ? length : 0);
    if (folder.ends_with(L'\\')) folder.pop_back();
    return toUtf8(folder);
}

std::string WindowsKernel32::GetEnvironmentVariableA(const std::string& name) {
    const std::wstring wideName = toUtf16(name);
    std::wstring text(MAX_PATH, L'\0');
    // Another thread may make it longer in between.
    while (true) {
        const auto room = static_cast<DWORD>(text.size());
        const DWORD used = GetEnvironmentVariableW(wideName.c_str(), text.data(), room);
        text.resize(used);
        if (used < room) return toUtf8(text);
    }
}

std::int32_t WindowsKernel32::GetVersionExA(OsVersionInfo& version) {
    if (version.dwOSVersionInfoSize != os_version::recordLength) return 0;
    OSVERSIONINFOA own{};
    own.dwOSVersionInfoSize = sizeof own;
    static_assert(sizeof own == os_version::recordLength);
    if (::GetVersionExA(&own) == 0) return 0;
    version = {.dwOSVersionInfoSize = os_version::recordLength,
               .dwMajorVersion = own.dwMajorVersion,
               .dwMinorVersion = own.dwMinorVersion,
               .dwBuildNumber = own.dwBuildNumber,
               .dwPlatformId = own.dwPlatformId};
    return 1;
}

// The call of that name may report less than there is on a machine with more than 2 GB.
void WindowsKernel32::GlobalMemoryStatus(MemoryStatus& status) {
    if (status.dwLength != memory_status::recordLength) return;
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    GlobalMemoryStatusEx(&memory);
    status = {.dwLength = memory_status::recordLength,
              .dwMemoryLoad = memory.dwMemoryLoad,
              .dwTotalPhys = memory_status::field(memory.ullTotalPhys),
              .dwAvailPhys = memory_status::field(memory.ullAvailPhys),
              .dwTotalPageFile = memory_status::field(memory.ullTotalPageFile),
              .dwAvailPageFile = memory_status::field(memory.ullAvailPageFile),
              .dwTotalVirtual = memory_status::field(memory.ullTotalVirtual),
              .dwAvailVirtual = memory_status::field(memory.ullAvailVirtual)};
}

FindHandle WindowsKernel32::FindFirstFileA(const std::string& pattern, FindData& entry) {
    lastError_ = ERROR_PATH_NOT_FOUND;
    // The system would read a path up to its first NUL and so list another folder.
    if (pattern.find('\0') != std::string::npos) return 0;
    auto listing = std::make_unique<Listing>(questions_, pattern);
    const WIN32_FIND_DATAW* first = listing->entries.next();
    if (!first) {
        lastError_ = listing->entries.end();
        return 0;
    }
    entry = dataOf(*first);
    lastError_ = ERROR_SUCCESS;
    listings_.emplace(++lastListing_, std::move(listing));
    return lastListing_;
}

bool WindowsKernel32::FindNextFileA(FindHandle listing, FindData& entry) {
    const auto found = listings_.find(listing);
    lastError_ = ERROR_INVALID_HANDLE;
    if (found == listings_.end()) return false;
    Listing& listed = *found->second;
    const WIN32_FIND_DATAW* next = listed.entries.next();
    if (!next) {
        lastError_ = std::exchange(listed.isOver, true) ? noMoreFiles : listed.entries.end();
        return false;
    }
    entry = dataOf(*next);
    lastError_ = ERROR_SUCCESS;
    return true;
}

void WindowsKernel32::FindClose(FindHandle listing) {
    listings_.erase(listing);
}

std::int32_t WindowsKernel32::MoveFileA(const std::string& from, const std::string& to) {
    lastError_ = moveEntry(from, to);
    return lastError_ == ERROR_SUCCESS ? 1 : 0;
}

std::uint32_t WindowsKernel32::WaitForSingleObject(std::uint32_t handle,
                                                   std::uint32_t milliseconds) {
    if (standsForOther(handle)) return waitFailed;
    return ::WaitForSingleObject(ULongToHandle(handle), milliseconds);
}

bool WindowsKernel32::FindNextChangeNotification(std::uint32_t handle) {
    return !standsForOther(handle) && ::FindNextChangeNotification(ULongToHandle(handle));
}

bool WindowsKernel32::FindCloseChangeNotification(std::uint32_t handle) {
    return !standsForOther(handle) && ::FindCloseChangeNotification(ULongToHandle(handle));
}

}  // namespace velmora::windows
