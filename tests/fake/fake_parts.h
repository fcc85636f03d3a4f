// The interfaces of the machine in memory; for its own sources only.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fake/fake_machine.h"

namespace velmora::fake {

/// The form in which paths are compared: lower case, no back-slash at the end.
inline std::string keyOf(const std::string& path) {
    std::string key = lowerCase(path);
    std::replace(key.begin(), key.end(), '/', '\\');
    while (key.size() > 1 && key.back() == '\\') key.pop_back();
    return key;
}

template <typename Map>
auto findPath(Map& map, const std::string& path) {
    const std::string key = keyOf(path);
    return std::find_if(map.begin(), map.end(),
                        [&key](const auto& entry) { return keyOf(entry.first) == key; });
}

struct FakeMachine::Disks final : FileSystemObject, Kernel32, Clock, TextFiles {
    class Reading;
    class FileReading;
    class FolderReading;

    explicit Disks(FakeMachine& owner) : machine(owner) {}

    std::string GetDriveName(const std::string& path) override {
        machine.record("GetDriveName " + path);
        return FileSystemObject::GetDriveName(path);
    }
    std::unique_ptr<Drive> GetDrive(const std::string& designator) override;
    bool DriveExists(const std::string& designator) override;
    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    std::unique_ptr<Folder> GetFolder(const std::string& path) override;
    std::unique_ptr<File> GetFile(const std::string& path) override;
    std::string WithoutLinks(const std::string& path) override {
        return machine.withoutLinks ? machine.withoutLinks(path) : path;
    }

    FindHandle FindFirstFileA(const std::string& pattern, FindData& entry) override;
    bool FindNextFileA(FindHandle listing, FindData& entry) override;
    void FindClose(FindHandle listing) override;
    std::uint32_t GetLastError() override { return lastError; }
    std::int32_t MoveFileA(const std::string& from, const std::string& to) override;
    std::uint32_t WaitForSingleObject(std::uint32_t handle, std::uint32_t milliseconds) override;
    bool FindNextChangeNotification(std::uint32_t handle) override;
    bool FindCloseChangeNotification(std::uint32_t handle) override;

    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;
    std::string GetWindowsDirectoryA() override {
        machine.record("GetWindowsDirectoryA");
        return machine.windowsFolder;
    }
    std::string GetEnvironmentVariableA(const std::string& name) override;
    void GlobalMemoryStatus(MemoryStatus& status) override;
    std::int32_t GetVersionExA(OsVersionInfo& version) override;

    DateTime Now() override { return machine.now; }
    std::int64_t GetTickCount() override { return machine.tick; }
    std::uint64_t GetSystemTimeAsFileTime() override;

    void appendLine(const std::string& path, std::string_view text) override;
    std::string readAll(const std::string& path) override;
    using TextFiles::writeOver;
    void writeOver(const std::string& path, std::string_view content, Overwriting how) override;
    double FileLen(const std::string& path) override;
    void remove(const std::string& path) override;

    double sizeOf(const std::string& file);
    FakeTimes timesOf(const std::string& path);
    std::vector<FindData> entriesIn(const std::string& folder);
    void removeTree(const std::string& folder, bool force);

    /// What the drive answers now: nothing when it isn't there or doesn't answer.
    std::optional<FakeDrive> measure(const std::string& path);
    bool hasFolder(const std::string& path);
    bool showsFilesOf(const std::string& path);
    /// Raises the errors of opening a file that don't depend on whether the file exists.
    void requireOpenable(const std::string& path);
    /// The content of the file, which is made if need be.
    std::string& openForWriting(const std::string& path);

    FakeMachine& machine;
    std::set<std::string> pending;  // drives with a question that hasn't returned
    std::uint32_t lastError = 0;
    std::map<FindHandle, std::deque<FindData>> listings;  // what is still to come
    FindHandle lastListing = 0;
};

struct FakeMachine::Desktop final : Advapi32, Shell32, Winmm, WScriptShell {
    class FileShortcut;
    class Output;

    explicit Desktop(FakeMachine& owner) : machine(owner) {}

    std::int32_t RegOpenKeyExA(std::uint32_t hive, const std::string& subKey, std::uint32_t options,
                               std::uint32_t access, RegistryKey& key) override;
    std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t reserved,
                                std::uint32_t type, const std::string& data,
                                std::uint32_t length) override;
    std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                  std::string& data) override;
    std::int32_t RegCloseKey(RegistryKey key) override;
    bool GetUserNameA(std::string& buffer, std::uint32_t& size) override;

    std::int32_t SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) override;
    bool SHGetPathFromIDListA(const ItemIdList& list, std::string& buffer) override;
    std::int32_t ShellExecuteA(const std::string& owner, const std::string& operation,
                               const std::string& file, const std::string& parameters,
                               const std::string& directory, std::int32_t showCommand) override;
    bool ShellExecuteEx(const ShellExecuteInfo& info) override;
    Browse SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) override;
    std::int32_t SHEmptyRecycleBinA(const std::string& owner, const std::string& root,
                                    std::uint32_t flags) override;

    std::int32_t SHFileOperationA(const FileOperation& operation) override;
    void Shell(const std::string& commandLine, std::int32_t windowState) override;

    std::int16_t sndPlaySoundA(const std::string& file, std::int32_t flags) override;

    std::unique_ptr<Shortcut> CreateShortcut(const std::string& file) override;
    std::unique_ptr<WshExec> Exec(const std::string& command) override;

    struct OpenKey {
        std::pair<std::uint32_t, std::string> name;  // as in the registry
        std::uint32_t access = 0;
    };

    /// The open key; null for a handle that isn't open or a key that the test has removed.
    FakeRegistryKey* find(RegistryKey key);
    /// Whether an open key was opened with that right.
    bool isAllowed(RegistryKey key, std::uint32_t right) const {
        return (open.at(key).access & right) != 0;
    }

    FakeMachine& machine;
    std::map<RegistryKey, OpenKey> open;
    RegistryKey lastKey = 0;
};

}  // namespace velmora::fake
