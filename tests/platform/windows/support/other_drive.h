// A folder on another drive than that of the scratch folders, for tests that move there.
#pragma once

#include <windows.h>

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "platform/windows/support/scratch_tree.h"

namespace velmora::tests::windows {

/// A folder on another drive than the scratch folder, until this object goes.
class OtherDrive {
  public:
    OtherDrive() {
        const std::wstring home = std::filesystem::temp_directory_path().wstring();
        for (const std::string candidate : {R"(Z:\dev\shm\)", R"(D:\)", R"(E:\)"}) {
            DWORD first = 0;
            DWORD second = 0;
            // Wine gives one number for all drives of one filesystem of its host.
            if (!volumeOf(home, first) || !volumeOf(toUtf16(candidate), second) || first == second)
                continue;
            path_ = candidate + "velmora-" + std::to_string(GetCurrentProcessId());
            if (CreateDirectoryW(toUtf16(path_).c_str(), nullptr)) return;
            path_.clear();
        }
        std::cout << "skipped: no other drive\n";
    }
    ~OtherDrive() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(toUtf16(path_), ignored);
    }
    OtherDrive(const OtherDrive&) = delete;
    OtherDrive& operator=(const OtherDrive&) = delete;
    explicit operator bool() const { return !path_.empty(); }
    std::string path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + '\\' + name; }
    std::vector<std::string> tree() const { return treeOf(path_); }

  private:
    static bool volumeOf(const std::wstring& path, DWORD& volume) {
        const HANDLE folder =
            CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                        FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        BY_HANDLE_FILE_INFORMATION information{};
        const bool isRead =
            folder != INVALID_HANDLE_VALUE && GetFileInformationByHandle(folder, &information);
        if (folder != INVALID_HANDLE_VALUE) CloseHandle(folder);
        volume = information.dwVolumeSerialNumber;
        return isRead;
    }

    std::string path_;
};

}  // namespace velmora::tests::windows
