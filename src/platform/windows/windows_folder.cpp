#include "platform/windows/windows_folder.h"

#include <windows.h>

#include <string_view>
#include <utility>

#include "base/runtime_error.h"
#include "platform/windows/utf16.h"

namespace velmora::windows {

namespace {

bool isDots(std::wstring_view name) {
    return name == L"." || name == L"..";
}

}  // namespace

WindowsFolder::WindowsFolder(std::shared_ptr<DriveQuestions> questions, std::string drive,
                             std::string path)
    : questions_(std::move(questions)), drive_(std::move(drive)), path_(std::move(path)) {}

std::optional<WindowsFolder::Counts> WindowsFolder::count(const std::string& path) {
    const std::wstring all = systemPath(path + (path.ends_with('\\') ? "*" : "\\*"));
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW(all.c_str(), &entry);
    Counts counts;
    if (search == INVALID_HANDLE_VALUE) {
        // The root of an empty drive has not even the dots.
        if (GetLastError() == ERROR_FILE_NOT_FOUND) return counts;
        return std::nullopt;
    }
    do {
        if (isDots(entry.cFileName)) continue;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        ++(isFolder ? counts.folders : counts.files);
    } while (FindNextFileW(search, &entry));
    const bool isComplete = GetLastError() == ERROR_NO_MORE_FILES;
    FindClose(search);
    if (!isComplete) return std::nullopt;
    return counts;
}

const WindowsFolder::Counts& WindowsFolder::counts() {
    if (!counts_) {
        counts_ =
            questions_->ask<std::optional<Counts>>(drive_, [path = path_] { return count(path); })
                .value_or(std::nullopt);
    }
    if (!counts_) throw RuntimeError(error::pathNotFound);
    return *counts_;
}

}  // namespace velmora::windows
