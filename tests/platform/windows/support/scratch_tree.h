// A tree of files for tests that remove and move, and its whole content as text: what a step has
// left alone is listed as well as what it has changed.
#pragma once

#include <windows.h>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/support/scratch_folder.h"
#include "platform/windows/system/utf16.h"
#include "support/wait.h"

namespace velmora::tests::windows {

using velmora::windows::contentsOf;
using velmora::windows::isUnderWine;
using velmora::windows::toUtf16;
using velmora::windows::toUtf8;

/// By the letter, so that names are made as they are written.
inline std::wstring byTheLetter(const std::string& path) {
    return LR"(\\?\)" + toUtf16(path);
}

inline void makeFolder(const std::string& path) {
    ASSERT_TRUE(CreateDirectoryW(byTheLetter(path).c_str(), nullptr)) << path;
}

inline void makeFile(const std::string& path, const std::string& content) {
    const HANDLE file = CreateFileW(byTheLetter(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << path;
    DWORD written = 0;
    EXPECT_TRUE(
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
    CloseHandle(file);
}

inline void setAttributes(const std::string& path, DWORD attributes) {
    ASSERT_TRUE(SetFileAttributesW(byTheLetter(path).c_str(), attributes)) << path;
}

inline bool isThere(const std::string& path) {
    return GetFileAttributesW(byTheLetter(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

inline std::string contentByTheLetter(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) return "<can't be read>";
    std::string content(1000, '\0');
    DWORD got = 0;
    ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &got, nullptr);
    CloseHandle(file);
    content.resize(got);
    return content;
}

inline void listInto(std::vector<std::string>& lines, const std::wstring& folder,
                     const std::string& shown) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::string path = shown + '\\' + toUtf8(name);
        const DWORD attributes = entry.dwFileAttributes;
        const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool isLink = velmora::windows::isLink(attributes, entry.dwReserved0);
        std::string line = path + (isLink ? " link" : "") + (isFolder ? " folder" : " file");
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) line += " read-only";
        if ((attributes & FILE_ATTRIBUTE_HIDDEN) != 0) line += " hidden";
        if (!isFolder)
            line += ' ' + std::to_string(entry.nFileSizeLow) + " [" +
                    contentByTheLetter(folder + L'\\' + name) + ']';
        lines.push_back(line);
        if (isFolder && !isLink) listInto(lines, folder + L'\\' + name, path);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
}

/// A line for each file, folder and link below a folder, in their order.
inline std::vector<std::string> treeOf(const std::string& folder) {
    std::vector<std::string> lines;
    listInto(lines, byTheLetter(folder), "");
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// The same tree without the entries that begin so.
inline std::vector<std::string> without(std::vector<std::string> tree, const std::string& path) {
    std::erase_if(tree, [&](const std::string& line) { return line.starts_with(path); });
    return tree;
}

/// Runs one of the host's own programs, as Wine does; it makes no links by itself. For handles of
/// such a program Wine gives what lay in memory, so none is closed: it could be another's.
inline void runHostProgram(const std::string& folder, const std::string& line) {
    std::wstring wide = toUtf16(line);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    CreateProcessW(nullptr, wide.data(), nullptr, nullptr, FALSE, 0, nullptr,
                   toUtf16(folder).c_str(), &start, &started);
}

/// A link in a folder, to a path from there, until this object goes. Where none can be made it is
/// none, and the reason is printed.
class Link {
  public:
    Link(const std::string& folder, const std::string& name, const std::string& target)
        : folder_(folder), name_(name), isToFolder_(isFolder(folder + '\\' + target)) {
        constexpr DWORD unprivileged = 2;
        // Wine says that it made one, and makes none.
        CreateSymbolicLinkW(toUtf16(path()).c_str(), toUtf16(target).c_str(),
                            (isToFolder_ ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0) | unprivileged);
        if (!*this && isUnderWine()) makeHostLink(target);
        if (!*this) std::cout << "skipped: this user can make no links\n";
    }
    ~Link() {
        // Below Wine an order to remove a link removes what it points to.
        if (isUnderWine()) {
            runHostProgram(folder_, R"(Z:\bin\rm -f ")" + name_ + '"');
            waitUntil([this] { return !isThere(path()); });
        } else if (isToFolder_) {
            RemoveDirectoryW(byTheLetter(path()).c_str());
        } else {
            DeleteFileW(byTheLetter(path()).c_str());
        }
    }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    explicit operator bool() const { return isThere(path()); }
    std::string path() const { return folder_ + '\\' + name_; }

  private:
    static bool isFolder(const std::string& path) {
        const DWORD attributes = GetFileAttributesW(toUtf16(path).c_str());
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }
    void makeHostLink(std::string target) {
        std::replace(target.begin(), target.end(), '\\', '/');
        runHostProgram(folder_, R"(Z:\bin\ln -s ")" + target + R"(" ")" + name_ + '"');
        waitUntil([this] { return isThere(path()); });
    }

    std::string folder_;
    std::string name_;
    bool isToFolder_;
};

/// Removes all that is in a folder, files with any attributes and names; no link is followed.
inline void clearFolder(const std::wstring& folder) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = entry.cFileName;
        const std::wstring path = folder + L'\\' + name;
        if (name == L"." || name == L"..") continue;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            DeleteFileW(path.c_str());
        } else {
            if (!velmora::windows::isLink(entry.dwFileAttributes, entry.dwReserved0))
                clearFolder(path);
            RemoveDirectoryW(path.c_str());
        }
    } while (FindNextFileW(search, &entry));
    FindClose(search);
}

/// A scratch folder that is removed with all in it.
class ScratchTree : public velmora::windows::ScratchFolder {
  public:
    ~ScratchTree() { clearFolder(byTheLetter(path())); }

    std::string path() const {
        std::string path = *this / "";
        path.pop_back();
        return path;
    }
};

/// A file that is held open, with the sharing that others get.
class FileInUse {
  public:
    FileInUse(const std::string& path, DWORD sharing)
        : handle_(CreateFileW(byTheLetter(path).c_str(), GENERIC_READ, sharing, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path;
    }
    ~FileInUse() { CloseHandle(handle_); }
    FileInUse(const FileInUse&) = delete;
    FileInUse& operator=(const FileInUse&) = delete;

  private:
    HANDLE handle_;
};

}  // namespace velmora::tests::windows
