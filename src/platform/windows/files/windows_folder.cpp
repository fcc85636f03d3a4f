#include "platform/windows/files/windows_folder.h"

#include <windows.h>

#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/windows/entries/folder_listing.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/removal/removal.h"
#include "platform/windows/system/halves.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

std::wstring withName(std::wstring folder, const wchar_t* name) {
    if (!folder.ends_with(L'\\')) folder += L'\\';
    return folder + name;
}

// The bytes of the files in the folder, whose folders it adds to those still to be looked into.
std::uint64_t sizeOfFiles(FolderListing& listing, const std::wstring& folder,
                          std::vector<std::wstring>& folders) {
    std::uint64_t size = 0;
    while (const WIN32_FIND_DATAW* entry = listing.next()) {
        if (isDots(entry->cFileName) || isLink(entry->dwFileAttributes, entry->dwReserved0))
            continue;
        if ((entry->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            folders.push_back(withName(folder, entry->cFileName));
        else
            size += wholeOf(entry->nFileSizeHigh, entry->nFileSizeLow);
    }
    return size;
}

}  // namespace

WindowsFolder::WindowsFolder(EntryReading reading, std::string asWritten)
    : reading_(std::move(reading)), asWritten_(std::move(asWritten)) {}

std::optional<WindowsFolder::Counts> WindowsFolder::count(const std::string& path) {
    const std::wstring all = systemPath(path + (path.ends_with('\\') ? "*" : "\\*"));
    WIN32_FIND_DATAW entry{};
    const UniqueFind search(FindFirstFileW(all.c_str(), &entry));
    Counts counts;
    if (!search.isOpen()) {
        // The root of an empty drive has not even the dots.
        if (GetLastError() == ERROR_FILE_NOT_FOUND) return counts;
        return std::nullopt;
    }
    do {
        if (isDots(entry.cFileName)) continue;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        ++(isFolder ? counts.folders : counts.files);
    } while (FindNextFileW(search.get(), &entry));
    if (GetLastError() != ERROR_NO_MORE_FILES) return std::nullopt;
    return counts;
}

const WindowsFolder::Counts& WindowsFolder::counts() {
    if (!counts_) {
        counts_ = reading_.questions()
                      ->ask<std::optional<Counts>>(reading_.drive(),
                                                   [path = reading_.path()] { return count(path); })
                      .value_or(std::nullopt);
    }
    if (!counts_) throw RuntimeError(error::pathNotFound);
    return *counts_;
}

double WindowsFolder::Size() {
    if (!size_) size_ = measure();
    return *size_;
}

// Each folder is a question of its own: how long a whole tree takes says nothing about its drive.
double WindowsFolder::measure() {
    facts();
    const auto exact = exactPath(reading_.path());
    if (!exact) throw RuntimeError(error::pathNotFound);
    std::uint64_t size = 0;
    std::vector<std::wstring> folders{exact->text()};
    bool isTop = true;
    while (!folders.empty()) {
        const std::wstring folder = std::move(folders.back());
        folders.pop_back();
        FolderListing listing(reading_.questions(), reading_.drive(), withName(folder, L"*"));
        size += sizeOfFiles(listing, folder, folders);
        // A folder that went meanwhile has nothing in it, nor has the root of an empty drive.
        const bool isRead = listing.end() == ERROR_NO_MORE_FILES || isMissing(listing.end());
        if (!isRead) throw RuntimeError(error::permissionDenied);
        if (std::exchange(isTop, false) && listing.end() == ERROR_PATH_NOT_FOUND)
            throw RuntimeError(error::pathNotFound);
    }
    return static_cast<double>(size);
}

void WindowsFolder::Delete(bool force) {
    removeTree(asWritten_, force);
}

}  // namespace velmora::windows
