#include "platform/windows/entry_move.h"

#include "platform/windows/exact_path.h"
#include "platform/windows/opened_entry.h"

namespace velmora::windows {

namespace {

// A path whose folder is held open.
struct Place {
    ExactPath path;
    OpenedEntry folder;

    const std::wstring& name() const { return path.names.back(); }
};

DWORD hold(const std::string& path, DWORD failureForRoot, Place& place) {
    const auto exact = exactPath(path);
    if (!exact) return ERROR_INVALID_NAME;
    if (exact->names.empty()) return failureForRoot;
    place.path = *exact;
    return openParent(place.path, true, place.folder);
}

bool isSame(const OpenedEntry::Facts& first, const OpenedEntry::Facts& second) {
    return first.volume == second.volume && first.index == second.index &&
           first.size == second.size && CompareFileTime(&first.written, &second.written) == 0;
}

DWORD resultOf(BOOL isDone) {
    return isDone ? ERROR_SUCCESS : GetLastError();
}

DWORD setTimes(const OpenedEntry& entry, const OpenedEntry::Facts& facts, DWORD attributes) {
    const auto number = [](const FILETIME& time) {
        return LARGE_INTEGER{{time.dwLowDateTime, static_cast<LONG>(time.dwHighDateTime)}};
    };
    FILE_BASIC_INFO basic{};
    basic.CreationTime = number(facts.created);
    basic.LastAccessTime = number(facts.accessed);
    basic.LastWriteTime = number(facts.written);
    basic.FileAttributes = attributes;
    return resultOf(
        SetFileInformationByHandle(entry.handle(), FileBasicInfo, &basic, sizeof basic));
}

// Onto the disk itself: the original is removed next. Only who may write may ask for that.
DWORD flush(const Place& target) {
    OpenedEntry copy;
    if (const DWORD failure = copy.openIn(target.folder, target.name(), FILE_WRITE_DATA))
        return failure;
    return resultOf(FlushFileBuffers(copy.handle()));
}

// Makes the copy whole: all its bytes on the disk, with the times and attributes of the original.
DWORD finish(const OpenedEntry& copy, const Place& target, const OpenedEntry::Facts& original) {
    OpenedEntry::Facts facts;
    if (const DWORD failure = copy.facts(facts)) return failure;
    if (facts.size != original.size) return ERROR_WRITE_FAULT;
    if (const DWORD failure = setTimes(copy, original, FILE_ATTRIBUTE_NORMAL)) return failure;
    if (const DWORD failure = flush(target)) return failure;
    return setTimes(copy, original, facts.attributes);
}

// Only the very file that was copied, and only when nobody can have changed it meanwhile.
DWORD removeOriginal(const Place& source, const OpenedEntry::Facts& original) {
    constexpr ACCESS_MASK access =
        DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES | FILE_READ_DATA;
    OpenedEntry entry;
    if (const DWORD failure = entry.openIn(source.folder, source.name(), access, 0,
                                           FILE_SHARE_READ | FILE_SHARE_DELETE))
        return failure;
    OpenedEntry::Facts facts;
    if (const DWORD failure = entry.facts(facts)) return failure;
    return isSame(facts, original) ? entry.remove(true) : ERROR_SHARING_VIOLATION;
}

// The system's own way leaves the original where it can't be removed and calls that a success.
DWORD moveToOtherDrive(const Place& source, const Place& target,
                       const OpenedEntry::Facts& original) {
    const std::wstring from = source.path.text();
    const std::wstring to = target.path.text();
    if (!CopyFileExW(from.c_str(), to.c_str(), nullptr, nullptr, nullptr, COPY_FILE_FAIL_IF_EXISTS))
        return GetLastError();
    OpenedEntry copy;
    if (const DWORD failure = copy.openIn(target.folder, target.name(),
                                          DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES))
        return failure;
    DWORD failure = finish(copy, target, original);
    if (failure == ERROR_SUCCESS) failure = removeOriginal(source, original);
    if (failure != ERROR_SUCCESS) copy.remove(true);
    return failure;
}

DWORD lookAt(const Place& source, OpenedEntry::Facts& facts, Nature& nature) {
    OpenedEntry entry;
    if (const DWORD failure = entry.openIn(source.folder, source.name(), FILE_READ_ATTRIBUTES))
        return failure;
    if (const DWORD failure = entry.facts(facts)) return failure;
    if (const DWORD failure = entry.natureIn(source.folder, source.name(), nature)) return failure;
    return nature == Nature::hostLink ? ledThroughLink : ERROR_SUCCESS;
}

DWORD requireNothingAt(const Place& target) {
    OpenedEntry entry;
    const DWORD failure = entry.openIn(target.folder, target.name(), FILE_READ_ATTRIBUTES);
    if (failure == ERROR_SUCCESS) return ERROR_ALREADY_EXISTS;
    return failure == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : failure;
}

}  // namespace

DWORD moveEntry(const std::string& from, const std::string& to) {
    Place source;
    Place target;
    if (const DWORD failure = hold(from, ERROR_ACCESS_DENIED, source)) return failure;
    OpenedEntry::Facts facts;
    Nature nature{};
    if (const DWORD failure = lookAt(source, facts, nature)) return failure;
    if (const DWORD failure = hold(to, ERROR_ALREADY_EXISTS, target)) return failure;
    if (const DWORD failure = requireNothingAt(target)) return failure;
    if (MoveFileExW(source.path.text().c_str(), target.path.text().c_str(), 0))
        return ERROR_SUCCESS;
    const DWORD failure = GetLastError();
    const bool isPlainFile =
        nature == Nature::plain && (facts.attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    const bool isToCopy = failure == ERROR_NOT_SAME_DEVICE && isPlainFile;
    return isToCopy ? moveToOtherDrive(source, target, facts) : failure;
}

}  // namespace velmora::windows
