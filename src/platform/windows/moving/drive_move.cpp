#include "platform/windows/moving/drive_move.h"

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <new>
#include <vector>

#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

namespace {

constexpr ACCESS_MASK toFinish = DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;

bool isSame(const OpenedEntry::Facts& first, const OpenedEntry::Facts& second) {
    return first.volume == second.volume && first.index == second.index &&
           first.size == second.size && CompareFileTime(&first.written, &second.written) == 0;
}

// Opens the source if no other program writes to it and it is still the file whose facts were read;
// until it is closed, no other program can write to it.
DWORD openSource(const HeldPath& source, const OpenedEntry::Facts& original, ACCESS_MASK access,
                 ULONG sharing, OpenedEntry& entry) {
    if (const DWORD failure =
            entry.openIn(source.folder, source.name(),
                         access | FILE_READ_ATTRIBUTES | FILE_READ_DATA, 0, sharing))
        return failure;
    OpenedEntry::Facts facts;
    if (const DWORD failure = entry.facts(facts)) return failure;
    return isSame(facts, original) ? ERROR_SUCCESS : ERROR_SHARING_VIOLATION;
}

// A file open for reading can't be opened for removal too, so a third opening holds it between the
// two: at no moment can another program write.
DWORD exchangeForRemoval(OpenedEntry& kept, const HeldPath& source,
                         const OpenedEntry::Facts& original, OpenedEntry& removable) {
    OpenedEntry between;
    DWORD failure = openSource(source, original, 0, FILE_SHARE_READ | FILE_SHARE_DELETE, between);
    kept.close();
    if (failure == ERROR_SUCCESS)
        failure = openSource(source, original, DELETE | FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ,
                             removable);
    if (failure != ERROR_SUCCESS) removable.close();
    return failure;
}

enum class SourceState { unchanged, changed, gone, unknown };

SourceState stateOf(const HeldPath& source, const OpenedEntry::Facts& original) {
    OpenedEntry entry;
    const DWORD failure = entry.openIn(source.folder, source.name(), FILE_READ_ATTRIBUTES);
    if (failure == ERROR_FILE_NOT_FOUND) return SourceState::gone;
    OpenedEntry::Facts facts;
    if (failure != ERROR_SUCCESS || entry.facts(facts) != ERROR_SUCCESS)
        return SourceState::unknown;
    return isSame(facts, original) ? SourceState::unchanged : SourceState::changed;
}

// A file that is being copied, beside the place that it is to have.
class Copy {
  public:
    explicit Copy(const HeldPath& target) : target_(target), path_(target.path) {
        static LONG count = 0;
        wchar_t name[80];
        std::swprintf(name, std::size(name), L"velmora-%lx-%llx-%lx.part", GetCurrentProcessId(),
                      static_cast<unsigned long long>(GetTickCount64()),
                      static_cast<unsigned long>(InterlockedIncrement(&count)));
        path_.names.back() = name;
    }

    /// Copies and makes it whole; after a failure nothing remains.
    DWORD make(const HeldPath& source, const OpenedEntry::Facts& original);
    /// Gives it its own name, when nothing has it.
    DWORD putInPlace();
    void discard();

  private:
    DWORD open();
    DWORD finish(const OpenedEntry::Facts& original);
    DWORD flush() const;
    DWORD setTimes(const OpenedEntry::Facts& facts, DWORD attributes) const;
    DWORD renameByPath();

    const HeldPath& target_;
    ExactPath path_;
    OpenedEntry entry_;
};

// Virus scanners open every new file for a while, and it can't be removed or renamed meanwhile.
DWORD Copy::open() {
    constexpr int tries = 30;
    constexpr DWORD pauseMilliseconds = 100;
    for (int i = 1;; ++i) {
        const DWORD failure = entry_.openIn(target_.folder, path_.names.back(), toFinish);
        const bool isInUse = failure == ERROR_SHARING_VIOLATION || failure == ERROR_LOCK_VIOLATION;
        if (!isInUse || i == tries) return failure;
        Sleep(pauseMilliseconds);
    }
}

DWORD Copy::make(const HeldPath& source, const OpenedEntry::Facts& original) {
    DWORD failure = resultOf(CopyFileExW(source.path.text().c_str(), path_.text().c_str(), nullptr,
                                         nullptr, nullptr, COPY_FILE_FAIL_IF_EXISTS));
    // What is at the path wasn't made here, so it isn't removed.
    if (failure == ERROR_FILE_EXISTS || failure == ERROR_ALREADY_EXISTS) return failure;
    if (failure == ERROR_SUCCESS) failure = open();
    if (failure == ERROR_SUCCESS) failure = finish(original);
    if (failure != ERROR_SUCCESS) discard();
    return failure;
}

void Copy::discard() {
    if (entry_.handle() || open() == ERROR_SUCCESS) entry_.remove(true);
    entry_.close();
}

DWORD Copy::setTimes(const OpenedEntry::Facts& facts, DWORD attributes) const {
    const auto number = [](const FILETIME& time) {
        return LARGE_INTEGER{{time.dwLowDateTime, static_cast<LONG>(time.dwHighDateTime)}};
    };
    FILE_BASIC_INFO basic{};
    basic.CreationTime = number(facts.created);
    basic.LastAccessTime = number(facts.accessed);
    basic.LastWriteTime = number(facts.written);
    basic.FileAttributes = attributes;
    return resultOf(
        SetFileInformationByHandle(entry_.handle(), FileBasicInfo, &basic, sizeof basic));
}

// Flushed to the disk, since the original is removed next; that takes a handle for writing.
DWORD Copy::flush() const {
    OpenedEntry copy;
    if (const DWORD failure = copy.openIn(target_.folder, path_.names.back(), FILE_WRITE_DATA))
        return failure;
    return resultOf(FlushFileBuffers(copy.handle()));
}

// All its bytes on the disk, with the times and attributes of the original.
DWORD Copy::finish(const OpenedEntry::Facts& original) {
    OpenedEntry::Facts facts;
    if (const DWORD failure = entry_.facts(facts)) return failure;
    if (facts.size != original.size) return ERROR_WRITE_FAULT;
    if (const DWORD failure = setTimes(original, FILE_ATTRIBUTE_NORMAL)) return failure;
    if (const DWORD failure = flush()) return failure;
    return setTimes(original, facts.attributes);
}

DWORD Copy::putInPlace() {
    const std::wstring to = target_.path.text();
    const std::size_t length = to.size() * sizeof(wchar_t);
    std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFO) + length);
    auto* order = new (buffer.data()) FILE_RENAME_INFO{};
    order->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(buffer.data() + offsetof(FILE_RENAME_INFO, FileName), to.c_str(),
                length + sizeof(wchar_t));
    const DWORD failure = resultOf(SetFileInformationByHandle(
        entry_.handle(), FileRenameInfo, order, static_cast<DWORD>(buffer.size())));
    if (isUnknownRequest(failure)) return renameByPath();
    if (failure == ERROR_SUCCESS) path_ = target_.path;
    return failure;
}

// Some versions of Wine don't rename what is open.
DWORD Copy::renameByPath() {
    if (!MoveFileExW(path_.text().c_str(), target_.path.text().c_str(), 0)) return GetLastError();
    path_ = target_.path;
    // What was opened by the name before would be removed by it.
    open();
    return ERROR_SUCCESS;
}

// The copy is whole and has its name.
DWORD removeSource(OpenedEntry& removable, const HeldPath& source,
                   const OpenedEntry::Facts& original, Copy& copy) {
    const DWORD failure = removable.remove(true);
    removable.close();
    if (failure == ERROR_SUCCESS) return ERROR_SUCCESS;
    // A failure of a remote drive doesn't mean that nothing was done.
    const SourceState state = stateOf(source, original);
    if (state == SourceState::gone) return ERROR_SUCCESS;
    if (state == SourceState::unchanged) copy.discard();
    return failure;
}

// The source is unchanged, unless another program has changed it.
DWORD endWithoutRemoval(DWORD failure, const HeldPath& source, const OpenedEntry::Facts& original,
                        Copy& copy) {
    const SourceState state = stateOf(source, original);
    if (state == SourceState::unchanged || state == SourceState::changed) {
        copy.discard();
        return failure;
    }
    // The copy may be all that is left.
    const DWORD unplaced = copy.putInPlace();
    if (unplaced != ERROR_SUCCESS) return unplaced;
    return state == SourceState::gone ? ERROR_SUCCESS : failure;
}

}  // namespace

DWORD moveToOtherDrive(const HeldPath& source, const HeldPath& target,
                       const OpenedEntry::Facts& original) {
    // While this is open, no other program can rename the source, which is copied by its name, or
    // write to it.
    OpenedEntry kept;
    if (const DWORD failure = openSource(source, original, 0, FILE_SHARE_READ, kept))
        return failure;
    Copy copy(target);
    if (const DWORD failure = copy.make(source, original)) return failure;
    OpenedEntry removable;
    if (const DWORD failure = exchangeForRemoval(kept, source, original, removable))
        return endWithoutRemoval(failure, source, original, copy);
    // While it is open for removal, no other program can remove the source.
    if (const DWORD unplaced = copy.putInPlace()) {
        copy.discard();
        return unplaced;
    }
    return removeSource(removable, source, original, copy);
}

}  // namespace velmora::windows
