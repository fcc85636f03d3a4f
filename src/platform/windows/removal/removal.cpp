#include "platform/windows/removal/removal.h"

#include <windows.h>
// After the one above, which it needs.
#include <winternl.h>

#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

namespace {

using Child = OpenedEntry::Child;

constexpr ACCESS_MASK toLookAt = FILE_READ_ATTRIBUTES;
constexpr ACCESS_MASK toRemove = DELETE | FILE_READ_ATTRIBUTES;

bool isFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isReadOnly(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

[[noreturn]] void fail(int number) {
    throw RuntimeError(number);
}

void require(DWORD failure, int missing) {
    if (failure != ERROR_SUCCESS) fail(errorOfEntry(failure, missing));
}

// A folder on the way down, and up again once all in it is done.
struct Level {
    OpenedEntry folder;
    std::vector<Child> left;
};

// All that lies below a folder, gone through with a list of the opened folders in place of calls
// within calls: there is no limit to how deep folders lie.
class TreeWalk {
  public:
    explicit TreeWalk(bool force) : force_(force) {}

    /// Why the folder must not go, as far as that can be known before.
    DWORD check(OpenedEntry& top);
    DWORD remove(OpenedEntry& top);

  private:
    DWORD enter(OpenedEntry folder) {
        Level level{std::move(folder), {}};
        if (const DWORD failure = level.folder.children(level.left)) return failure;
        levels_.push_back(std::move(level));
        return ERROR_SUCCESS;
    }
    Child takeNext() {
        Child child = std::move(levels_.back().left.back());
        levels_.back().left.pop_back();
        return child;
    }
    DWORD open(const Child& child, ACCESS_MASK access, OpenedEntry& entry, EntryKind& kind) const;
    DWORD checkNext();
    DWORD removeNext();
    DWORD removeEmptied();

    bool force_;
    std::vector<Level> levels_;
};

// As the kind that was listed; anything else that took the place meanwhile isn't opened.
DWORD TreeWalk::open(const Child& child, ACCESS_MASK access, OpenedEntry& entry,
                     EntryKind& kind) const {
    const OpenedEntry& folder = levels_.back().folder;
    const bool isEntered =
        isFolder(child.attributes) && !isLink(child.attributes, child.reparseTag);
    if (isEntered) access |= FILE_LIST_DIRECTORY;
    const ULONG options =
        isFolder(child.attributes) ? FILE_DIRECTORY_FILE : FILE_NON_DIRECTORY_FILE;
    if (const DWORD failure = entry.openIn(folder, child.name, access, options)) return failure;
    return entry.kindIn(folder, child.name, kind);
}

bool isOurs(EntryKind kind) {
    return kind == EntryKind::plain || kind == EntryKind::link;
}

DWORD TreeWalk::checkNext() {
    const Child child = takeNext();
    if (!force_ && isReadOnly(child.attributes)) return ERROR_FILE_READ_ONLY;
    const bool isPlainFile =
        (child.attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0;
    // Wine lists its host's link to a file as that file.
    if (isPlainFile && !isUnderWine()) return ERROR_SUCCESS;
    OpenedEntry entry;
    EntryKind kind{};
    const DWORD failure = open(child, toLookAt, entry, kind);
    if (failure != ERROR_SUCCESS) return isMissing(failure) ? ERROR_SUCCESS : failure;
    if (!isOurs(kind)) return ledThroughLink;
    const bool isEntered = isFolder(child.attributes) && kind == EntryKind::plain;
    return isEntered ? enter(std::move(entry)) : ERROR_SUCCESS;
}

DWORD TreeWalk::removeNext() {
    const Child child = takeNext();
    const bool mayWrite = force_ && isReadOnly(child.attributes);
    OpenedEntry entry;
    EntryKind kind{};
    const DWORD failure =
        open(child, mayWrite ? toRemove | FILE_WRITE_ATTRIBUTES : toRemove, entry, kind);
    if (failure != ERROR_SUCCESS) return isMissing(failure) ? ERROR_SUCCESS : failure;
    if (!isOurs(kind)) return ledThroughLink;
    const bool isEntered = isFolder(child.attributes) && kind == EntryKind::plain;
    return isEntered ? enter(std::move(entry)) : entry.remove(force_);
}

DWORD TreeWalk::removeEmptied() {
    const DWORD failure = levels_.back().folder.remove(force_);
    levels_.pop_back();  // closes it, which is when it goes
    return failure;
}

DWORD TreeWalk::check(OpenedEntry& top) {
    OpenedEntry::Facts facts;
    if (const DWORD failure = top.facts(facts)) return failure;
    if (!force_ && isReadOnly(facts.attributes)) return ERROR_FILE_READ_ONLY;
    if (const DWORD failure = enter(std::move(top))) return failure;
    while (true) {
        if (!levels_.back().left.empty()) {
            if (const DWORD failure = checkNext()) return failure;
        } else if (levels_.size() > 1) {
            levels_.pop_back();
        } else {
            break;
        }
    }
    top = std::move(levels_.back().folder);
    levels_.clear();
    return ERROR_SUCCESS;
}

DWORD TreeWalk::remove(OpenedEntry& top) {
    if (const DWORD failure = enter(std::move(top))) return failure;
    while (!levels_.empty()) {
        const DWORD failure = levels_.back().left.empty() ? removeEmptied() : removeNext();
        if (failure != ERROR_SUCCESS) return failure;
    }
    return ERROR_SUCCESS;
}

// The error for an entry that can't be opened for removal: what it is comes before who uses it.
int errorOfDenied(const OpenedEntry& parent, const std::wstring& name) {
    OpenedEntry entry;
    OpenedEntry::Facts facts;
    const bool isKnown = entry.openIn(parent, name, toLookAt) == ERROR_SUCCESS &&
                         entry.facts(facts) == ERROR_SUCCESS;
    const bool isNoFile = isKnown && (isFolder(facts.attributes) || isReadOnly(facts.attributes));
    return isNoFile ? error::pathFileAccess : error::permissionDenied;
}

}  // namespace

void removeFile(const std::string& path) {
    const auto exact = exactPath(path);
    if (!exact) fail(error::fileNotFound);
    if (exact->names.empty()) fail(error::pathFileAccess);
    OpenedEntry parent;
    require(openParent(*exact, false, parent), error::fileNotFound);
    const std::wstring& name = exact->names.back();
    OpenedEntry entry;
    if (const DWORD failure = entry.openIn(parent, name, toRemove))
        fail(isMissing(failure) ? error::fileNotFound : errorOfDenied(parent, name));
    OpenedEntry::Facts facts;
    EntryKind kind{};
    require(entry.facts(facts), error::fileNotFound);
    require(entry.kindIn(parent, name, kind), error::fileNotFound);
    if (kind == EntryKind::hostLink) fail(error::permissionDenied);
    if (isFolder(facts.attributes) || isReadOnly(facts.attributes)) fail(error::pathFileAccess);
    if (entry.remove(false) != ERROR_SUCCESS) fail(error::permissionDenied);
}

void removeTree(const std::string& path, bool force) {
    const auto exact = exactPath(path);
    if (!exact) fail(error::pathNotFound);
    if (exact->names.empty()) fail(error::permissionDenied);
    OpenedEntry parent;
    require(openParent(*exact, false, parent), error::pathNotFound);
    const std::wstring& name = exact->names.back();
    OpenedEntry top;
    const ACCESS_MASK access = toRemove | FILE_LIST_DIRECTORY | (force ? FILE_WRITE_ATTRIBUTES : 0);
    require(top.openIn(parent, name, access, FILE_DIRECTORY_FILE), error::pathNotFound);
    EntryKind kind{};
    require(top.kindIn(parent, name, kind), error::pathNotFound);
    if (kind != EntryKind::plain) fail(error::permissionDenied);
    // What is missing from here on isn't the folder itself.
    TreeWalk walk(force);
    if (walk.check(top) != ERROR_SUCCESS || walk.remove(top) != ERROR_SUCCESS)
        fail(error::permissionDenied);
}

}  // namespace velmora::windows
