#include "platform/windows/entries/opened_entry.h"

#include <windows.h>
// After the one above, which they need.
#include <winioctl.h>
#include <winternl.h>

#include <algorithm>
#include <string_view>

#include "platform/windows/system/halves.h"
#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

namespace {

// Newer than the headers.
constexpr auto dispositionEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr ULONG dispositionDelete = 1;
constexpr ULONG dispositionAtOnce = 2;  // not only when everybody has closed it
constexpr ULONG dispositionReadOnlyToo = 0x10;

constexpr ACCESS_MASK toLookAt = FILE_READ_ATTRIBUTES | SYNCHRONIZE;

// Without the drive. Under Wine the path with all links of the host followed.
std::wstring pathOnDrive(HANDLE handle) {
    std::vector<char> buffer(1U << 16);
    auto* path = reinterpret_cast<FILE_NAME_INFO*>(buffer.data());
    if (!GetFileInformationByHandleEx(handle, FileNameInfo, path,
                                      static_cast<DWORD>(buffer.size())))
        return {};
    return {path->FileName, path->FileNameLength / sizeof(wchar_t)};
}

bool isSameText(const std::wstring& first, const std::wstring& second) {
    return CompareStringOrdinal(first.c_str(), static_cast<int>(first.size()), second.c_str(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

// Wine gives a path without the dots and blanks at its end.
std::wstring withoutEnd(const std::wstring& path) {
    return path.substr(0, path.find_last_not_of(L". \\") + 1);
}

bool isReachedByHostLink(HANDLE handle, HANDLE folder, const std::wstring& name) {
    const std::wstring path = pathOnDrive(handle);
    const auto end = path.find_last_of(L'\\') + 1;
    return !isSameText(withoutEnd(path.substr(end)), withoutEnd(name)) ||
           !isSameText(withoutEnd(path.substr(0, end)), withoutEnd(pathOnDrive(folder)));
}

// Junctions and mounted drives share one kind of reparse point; the latter name a volume. Wine
// shows what its host has mounted as such a point that can't be read.
bool isMountedDrive(HANDLE handle) {
    // REPARSE_DATA_BUFFER: tag, two lengths, four more of 16 bits, and then the names.
    constexpr std::size_t nameOffset = 4;
    constexpr std::size_t names = 8;
    constexpr std::wstring_view volume = LR"(\??\Volume{)";
    alignas(8) wchar_t data[MAXIMUM_REPARSE_DATA_BUFFER_SIZE / sizeof(wchar_t)]{};
    DWORD size = 0;
    if (!DeviceIoControl(handle, FSCTL_GET_REPARSE_POINT, nullptr, 0, data, sizeof data, &size,
                         nullptr))
        return isUnderWine();
    const std::size_t begin = names + data[nameOffset] / sizeof(wchar_t);
    return std::wstring_view(data, std::size(data))
        .substr(std::min(begin, std::size(data)))
        .starts_with(volume);
}

DWORD openNative(HANDLE folder, const std::wstring& name, ACCESS_MASK access, ULONG options,
                 ULONG sharing, HANDLE& handle) {
    constexpr std::size_t longest = 0x7FFF;
    if (name.size() > longest) return ERROR_FILENAME_EXCED_RANGE;
    UNICODE_STRING text{};
    text.Buffer = const_cast<wchar_t*>(name.data());  // only read
    text.Length = static_cast<USHORT>(name.size() * sizeof(wchar_t));
    text.MaximumLength = text.Length;
    OBJECT_ATTRIBUTES object;
    InitializeObjectAttributes(&object, &text, OBJ_CASE_INSENSITIVE, folder, nullptr);
    IO_STATUS_BLOCK status{};
    const NTSTATUS result =
        NtOpenFile(&handle, access | SYNCHRONIZE, &object, &status, sharing,
                   options | FILE_OPEN_REPARSE_POINT | FILE_SYNCHRONOUS_IO_NONALERT);
    if (NT_SUCCESS(result)) return ERROR_SUCCESS;
    handle = nullptr;
    return RtlNtStatusToDosError(result);
}

DWORD setAttributes(HANDLE handle, DWORD attributes) {
    FILE_BASIC_INFO basic{};  // times of 0 stay as they are
    basic.FileAttributes = attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
    return resultOf(SetFileInformationByHandle(handle, FileBasicInfo, &basic, sizeof basic));
}

DWORD dispose(HANDLE handle, ULONG flags) {
    return resultOf(SetFileInformationByHandle(handle, dispositionEx, &flags, sizeof flags));
}

// Filesystems and systems that don't know the newer request remove it when it is closed by all.
DWORD disposeOfWritable(HANDLE handle) {
    const DWORD failure = dispose(handle, dispositionDelete | dispositionAtOnce);
    if (!isUnknownRequest(failure)) return failure;
    FILE_DISPOSITION_INFO old{TRUE};
    return resultOf(SetFileInformationByHandle(handle, FileDispositionInfo, &old, sizeof old));
}

// Best without touching the attribute, which other names of the same file share.
DWORD disposeOfReadOnly(HANDLE handle, DWORD attributes) {
    const DWORD failure =
        dispose(handle, dispositionDelete | dispositionAtOnce | dispositionReadOnlyToo);
    if (!isUnknownRequest(failure)) return failure;
    if (const DWORD denied = setAttributes(handle, attributes & ~FILE_ATTRIBUTE_READONLY))
        return denied;
    const DWORD result = disposeOfWritable(handle);
    if (result != ERROR_SUCCESS) setAttributes(handle, attributes);
    return result;
}

void takeChildren(const char* buffer, std::vector<OpenedEntry::Child>& result) {
    while (true) {
        const auto* entry = reinterpret_cast<const FILE_FULL_DIR_INFO*>(buffer);
        const std::wstring name(entry->FileName, entry->FileNameLength / sizeof(wchar_t));
        // Of a reparse point the field for extended attributes holds the tag.
        const bool hasTag = (entry->FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if (name != L"." && name != L"..")
            result.push_back({name, entry->FileAttributes, hasTag ? entry->EaSize : 0});
        if (entry->NextEntryOffset == 0) return;
        buffer += entry->NextEntryOffset;
    }
}

}  // namespace

bool isLink(DWORD attributes, DWORD reparseTag) {
    // Wine gives no tag for the links of its host.
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (reparseTag == 0 || IsReparseTagNameSurrogate(reparseTag));
}

bool isUnderWine() {
    static const bool isIt =
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isIt;
}

DWORD OpenedEntry::openPath(const std::wstring& path, ACCESS_MASK access) {
    close();
    handle_.reset(CreateFileW(path.c_str(), access | SYNCHRONIZE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle_.isOpen() ? ERROR_SUCCESS : GetLastError();
}

DWORD OpenedEntry::openIn(const OpenedEntry& folder, const std::wstring& name, ACCESS_MASK access,
                          ULONG options, ULONG sharing) {
    close();
    HANDLE handle = nullptr;
    const DWORD failure = openNative(folder.handle(), name, access, options, sharing, handle);
    handle_.reset(handle);
    return failure;
}

DWORD OpenedEntry::facts(Facts& result) const {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle(), &information)) return GetLastError();
    result = {information.dwFileAttributes,
              information.ftCreationTime,
              information.ftLastAccessTime,
              information.ftLastWriteTime,
              wholeOf(information.nFileSizeHigh, information.nFileSizeLow),
              information.dwVolumeSerialNumber,
              wholeOf(information.nFileIndexHigh, information.nFileIndexLow)};
    return ERROR_SUCCESS;
}

DWORD OpenedEntry::kindIn(const OpenedEntry& folder, const std::wstring& name,
                          EntryKind& result) const {
    FILE_ATTRIBUTE_TAG_INFO tag{};
    if (!GetFileInformationByHandleEx(handle(), FileAttributeTagInfo, &tag, sizeof tag))
        return GetLastError();
    result = EntryKind::plain;
    if (isLink(tag.FileAttributes, tag.ReparseTag)) {
        const bool isMounted =
            tag.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT && isMountedDrive(handle());
        result = isMounted ? EntryKind::mounted : EntryKind::link;
    }
    if (isUnderWine() && isReachedByHostLink(handle(), folder.handle(), name))
        result = EntryKind::hostLink;
    return ERROR_SUCCESS;
}

DWORD OpenedEntry::children(std::vector<Child>& result) const {
    std::vector<char> buffer(1U << 16);
    const auto room = static_cast<DWORD>(buffer.size());
    auto request = FileFullDirectoryRestartInfo;
    while (GetFileInformationByHandleEx(handle(), request, buffer.data(), room)) {
        takeChildren(buffer.data(), result);
        request = FileFullDirectoryInfo;
    }
    const DWORD end = GetLastError();
    // The root of an empty drive has no entry at all.
    return end == ERROR_NO_MORE_FILES || end == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : end;
}

DWORD OpenedEntry::remove(bool force) const {
    Facts current;
    if (const DWORD failure = facts(current)) return failure;
    const bool isReadOnly = (current.attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (!isReadOnly) return disposeOfWritable(handle());
    return force ? disposeOfReadOnly(handle(), current.attributes) : ERROR_FILE_READ_ONLY;
}

namespace {

DWORD step(OpenedEntry& folder, const std::wstring& name, bool isHeld) {
    OpenedEntry next;
    // Sharing is only enforced for handles that may list or traverse the folder.
    const ACCESS_MASK access = isHeld ? toLookAt | FILE_TRAVERSE : toLookAt;
    const ULONG sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | (isHeld ? 0 : FILE_SHARE_DELETE);
    if (const DWORD failure = next.openIn(folder, name, access, FILE_DIRECTORY_FILE, sharing))
        return failure;
    EntryKind kind{};
    if (const DWORD failure = next.kindIn(folder, name, kind)) return failure;
    // Below Wine the folder of what its host has mounted is that drive itself, already opened.
    const bool isHostMount = kind == EntryKind::mounted && isUnderWine();
    if (kind != EntryKind::plain && !isHostMount) return ledThroughLink;
    folder = std::move(next);
    return ERROR_SUCCESS;
}

}  // namespace

DWORD openParent(const ExactPath& path, bool isHeld, OpenedEntry& parent) {
    if (const DWORD failure = parent.openPath(path.root)) return failure;
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i) {
        const bool isLast = i + 2 == path.names.size();
        if (const DWORD failure = step(parent, path.names[i], isHeld && isLast)) return failure;
    }
    return ERROR_SUCCESS;
}

}  // namespace velmora::windows
