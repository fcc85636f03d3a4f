#include "rows/watch_row.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

// In place of the free space.
constexpr const char* notReady = "N/A, drive not ready";
constexpr const char* notReadyWhenAdded = "N/A, drive not ready.";
constexpr const char* noDrive = "N/A check drive or media";

constexpr const char* fileWord = "file:";
constexpr const char* folderWord = "fold:";

// The stored number after that word; nothing when there is none.
std::optional<std::string> storedCount(const std::string& counts, std::string_view word) {
    const std::size_t at = counts.find(word);
    if (at == std::string::npos) return {};
    const std::size_t begin = at + word.size();
    const std::size_t end = counts.find('|', begin);
    if (end == std::string::npos) return {};
    return counts.substr(begin, end - begin);
}

}  // namespace

void SpaceTexts::setReading(double freeBytes, double totalBytes, Grouping grouping,
                            const Regional& regional) {
    free = kilobyteText(freeBytes, grouping, regional);
    total = kilobyteText(totalBytes, grouping, regional);
}

void SpaceTexts::setNotReady() {
    free = notReady;
}

bool ConstWatchRow::isAvailable() const {
    return !holdsNotAvailable(freeSpace());
}

bool ConstWatchRow::isMeasured() const {
    return !freeSpace().empty() && isAvailable();
}

bool ConstWatchRow::isReadyForGauges() const {
    return !contains(lowerCase(freeSpace()), "not ready");
}

bool ConstWatchRow::isAvailableForTip() const {
    return !contains(freeSpace(), notAvailable);
}

double ConstWatchRow::freeKB(const Regional& regional) const {
    std::string room;
    return toDouble(withoutUnit(freeSpace(), room), regional);
}

double ConstWatchRow::totalKB(const Regional& regional) const {
    std::string room;
    return toDouble(withoutUnit(totalSize(), room), regional);
}

double ConstWatchRow::freeKBOrZero(const Regional& regional) const {
    return readKilobytes(freeSpace(), regional).value_or(0);
}

double ConstWatchRow::totalKBOrZero(const Regional& regional) const {
    return readKilobytes(totalSize(), regional).value_or(0);
}

double ConstWatchRow::previousFreeKB(const Regional& regional) const {
    return toDouble(previousFree(), regional);
}

std::optional<std::string> ConstWatchRow::fileCount() const {
    return storedCount(folderCounts(), fileWord);
}

std::optional<std::string> ConstWatchRow::folderCount() const {
    return storedCount(folderCounts(), folderWord);
}

WatchRow WatchRow::at(ListView& list, int index, const std::string& path) {
    const WatchRow row(list.ListItems(index));
    if (row.path() != path) throw RuntimeError(error::indexOutOfBounds);
    return row;
}

void WatchRow::setReading(const SpaceTexts& texts) {
    setFreeSpace(texts.free);
    setTotalSize(texts.total);
}

void WatchRow::setFreeBytes(double bytes, Grouping grouping, const Regional& regional) {
    const KilobyteText free(bytes, grouping, regional);
    if (freeSpace() != free.text()) setFreeSpace(std::string(free.text()));
}

void WatchRow::keepPreviousFree() {
    std::string room;
    setPreviousFree(withoutUnit(freeSpace(), room));
}

void WatchRow::setTotalBytes(double bytes, Grouping grouping, const Regional& regional) {
    setTotalSize(kilobyteText(bytes, grouping, regional));
}

void WatchRow::markNotReadyWhenAdded() {
    setFreeSpace(notReadyWhenAdded);
}

void WatchRow::markNoDrive() {
    setFolderCounts("");
    setFreeSpace(noDrive);
}

void WatchRow::markInaccessible() {
    setFreeSpace(notReady);
    setLastChecked("");
    setInaccessibleNote(inaccessible);
}

void WatchRow::setFolderCounts(double files, double folders) {
    std::array<char, 64> room;
    char* at = room.data();
    char* const end = at + room.size();
    const auto put = [&](std::string_view piece) { at += piece.copy(at, piece.size()); };
    const auto putCount = [&](std::string_view word, double count) {
        put(word);
        at = std::to_chars(at, end, static_cast<std::int64_t>(count)).ptr;
        put("|");
    };
    putCount(fileWord, files);
    putCount(folderWord, folders);
    setFolderCounts(std::string_view(room.data(), static_cast<std::size_t>(at - room.data())));
}

void WatchRow::forgetFigures() {
    setPreviousFree("");
    setFolderCounts("");
}

}  // namespace velmora
