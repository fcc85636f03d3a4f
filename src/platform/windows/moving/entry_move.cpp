#include "platform/windows/moving/entry_move.h"

#include "platform/file_system_object.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/moving/drive_move.h"
#include "platform/windows/paths/exact_path.h"

namespace velmora::windows {

namespace {

DWORD hold(const std::string& path, DWORD failureForRoot, HeldPath& held) {
    const auto exact = exactPath(path);
    if (!exact) return ERROR_INVALID_NAME;
    if (exact->names.empty()) return failureForRoot;
    held.path = *exact;
    return openParent(held.path, true, held.folder);
}

DWORD lookAt(const HeldPath& source, OpenedEntry::Facts& facts, EntryKind& kind) {
    OpenedEntry entry;
    if (const DWORD failure = entry.openIn(source.folder, source.name(), FILE_READ_ATTRIBUTES))
        return failure;
    if (const DWORD failure = entry.facts(facts)) return failure;
    if (const DWORD failure = entry.kindIn(source.folder, source.name(), kind)) return failure;
    return kind == EntryKind::hostLink ? ledThroughLink : ERROR_SUCCESS;
}

DWORD requireNothingAt(const HeldPath& target) {
    OpenedEntry entry;
    const DWORD failure = entry.openIn(target.folder, target.name(), FILE_READ_ATTRIBUTES);
    if (failure == ERROR_SUCCESS) return ERROR_ALREADY_EXISTS;
    return failure == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : failure;
}

}  // namespace

DWORD moveEntry(const std::string& from, const std::string& to) {
    HeldPath source;
    HeldPath target;
    if (const DWORD failure = hold(from, ERROR_ACCESS_DENIED, source)) return failure;
    OpenedEntry::Facts facts;
    EntryKind kind{};
    if (const DWORD failure = lookAt(source, facts, kind)) return failure;
    if (!beginsAtRoot(to)) return ERROR_PATH_NOT_FOUND;
    if (const DWORD failure = hold(to, ERROR_ALREADY_EXISTS, target)) return failure;
    if (const DWORD failure = requireNothingAt(target)) return failure;
    if (MoveFileExW(source.path.text().c_str(), target.path.text().c_str(), 0))
        return ERROR_SUCCESS;
    const DWORD failure = GetLastError();
    const bool isPlainFile =
        kind == EntryKind::plain && (facts.attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    const bool isToCopy = failure == ERROR_NOT_SAME_DEVICE && isPlainFile;
    return isToCopy ? moveToOtherDrive(source, target, facts) : failure;
}

}  // namespace velmora::windows
