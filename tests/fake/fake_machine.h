// A machine in memory: drives, folders, files, a clock that moves only when the test moves it. It
// records every call in order and can fail the n-th one.
//
// A call is recorded as the operation's name, a blank and its arguments: "GetDrive C:",
// "FolderExists C:\data", "GetLogicalDriveStringsA 105", "appendLine C:\log.txt" (without the
// line, which is in `files` then). The members of a drive count too: "IsReady C:", "FreeSpace C:",
// "TotalSize C:", and those of a folder: "FilesCount C:\data", "SubFoldersCount C:\data".
// The clock is not recorded: it can't fail, and a loop that waits reads it all the time.
//
// An operation that reports failures by its result does so when its turn to fail comes. The
// registry, SHGetSpecialFolderLocation, SHEmptyRecycleBinA and SHFileOperationA return the planned
// number as their code. MoveFileA and sndPlaySoundA return 0, ShellExecuteEx and
// SHGetPathFromIDListA false, CreateShortcut null, GetEnvironmentVariableA an empty text.
// FindFirstFileA gives no listing, FindNextFileA the number as the last error, and
// SHBrowseForFolder is dismissed.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "fake/fake_inventory.h"
#include "fake/fake_network.h"
#include "fake/fake_other_starts.h"
#include "fake/fake_user_state.h"
#include "fake/fake_volumes.h"
#include "platform/notify_area.h"
#include "platform/platform.h"

namespace velmora::fake {

/// Times of a file or folder, in units of 100 ns since 1601-01-01 UTC, which is the fake clock's
/// local time too.
struct FakeTimes {
    std::uint64_t created = 0;
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
};

struct FakeDrive {
    double freeBytes = 0;
    double totalBytes = 0;
    bool ready = true;
    bool hangs = false;  ///< no answer: the first question costs the deadline on the fake clock,
                         ///< later ones nothing until this is false again
};

/// A key of the registry, with what its operations answer.
struct FakeRegistryKey {
    struct Value {
        std::uint32_t type = 0;
        std::string data;  ///< the bytes written, without the NUL that ends a text
    };

    std::map<std::string, Value> values;  ///< by name as written
    std::int32_t openResult = 0;          ///< code of RegOpenKeyExA
    std::int32_t setResult = 0;           ///< code of RegSetValueExA; unless 0 nothing is written
    std::int32_t queryResult = 0;         ///< code of RegQueryValueExA; unless 0 nothing is given
    std::int32_t closeResult = 0;         ///< code of RegCloseKey
};

/// An order to empty the bin.
struct FakeEmptying {
    std::string owner;
    std::string root;
    std::uint32_t flags = 0;
};

/// An order to the shell to run or open something.
struct FakeExecution : ShellExecuteInfo {
    std::string parameters;
    std::string directory;
    std::int32_t showCommand = 0;
};

/// A shortcut as it was saved.
struct FakeShortcut {
    std::string file;
    std::string Arguments;
    std::string Description;
    std::string HotKey;
    std::string IconLocation;
    std::string TargetPath;
    std::string WorkingDirectory;
    int WindowStyle = 1;
};

/// Counts calls and fails the chosen one.
class CallLog {
  public:
    /// Records the call; raises the planned error if this is the call that should fail.
    void call(std::string what);

    const std::vector<std::string>& calls() const { return calls_; }
    int count() const { return static_cast<int>(calls_.size()); }
    void clear() { calls_.clear(); }
    /// How many recorded calls begin with `prefix`.
    int countOf(const std::string& prefix) const;

    /// The n-th call from now (from 1) raises error `number`, once. IsReady, which never fails,
    /// answers instead that the drive isn't ready.
    void failCall(int n, int number);
    /// No call fails any more.
    void failNone() { failAt_.reset(); }

  private:
    std::vector<std::string> calls_;
    std::optional<int> failAt_;  // calls left until the failing one
    int failWith_ = 0;
};

class FakeMachine final : public Machine {
  public:
    FakeMachine();
    ~FakeMachine() override;

    Platform& platform() override { return platform_; }
    std::string toDrivePath(const std::string& hostPath) override {
        return drivePathOf ? drivePathOf(hostPath) : hostPath;
    }
    std::string toHostPath(const std::string& drivePath) override { return drivePath; }
    std::string toCommand(const std::string& forOthers) override {
        return commandOf ? commandOf(forOthers) : forOthers;
    }

    DataFolderState prepareDataFolder() override { return dataFolder; }

    /// How the folder with the program's files is prepared.
    DataFolderState dataFolder = DataFolderState::ready;

    /// What lies behind the links above a path's last name; without it there are no links.
    std::function<std::string(const std::string&)> withoutLinks;

    /// How paths of the host become drive paths; without it they stay as they are.
    std::function<std::string(const std::string&)> drivePathOf;

    /// What becomes of a later start's command line; without it, it stays as it is.
    std::function<std::string(const std::string&)> commandOf;

    /// Drives by their Path ("C:" or "\\host\share"), in the order of their names. A drive letter
    /// also appears among the logical drives; a share does not.
    std::map<std::string, FakeDrive> drives;
    /// Folders by lower-cased full path without a back-slash at the end; drive roots need no entry.
    /// Those of a drive that isn't ready are hidden, and so are its files. The program's own
    /// folder is there from the start.
    std::set<std::string> folders;
    /// Files by full path as written; looked up without regard to case.
    std::map<std::string, std::string> files;
    /// Files that refuse to be opened or removed, by full path, with the error that they raise.
    std::map<std::string, int> lockedFiles;
    /// Times of files and folders, by full path; those without an entry have the start of the fake
    /// clock.
    std::map<std::string, FakeTimes> times;
    /// Files that are read-only, by full path in lower case: removing one raises error 75.
    std::set<std::string> readOnly;
    /// Sizes in bytes of files that are said to be larger than their content, by full path.
    std::map<std::string, double> sizes;
    /// The entries of a folder as FindFirstFileA lists them, by its full path; one without gets
    /// ".", ".." and what lies in it.
    std::map<std::string, std::vector<FindData>> listings;
    /// Listings that are begun and not closed.
    int openListings = 0;
    /// Files and folders that were moved: from, to.
    std::vector<std::pair<std::string, std::string>> moved;
    /// Open notification handles, each with the number of signals that are still to come.
    std::map<std::uint32_t, int> notifications;
    /// Keys of the files that were written so that only their user may read them.
    std::set<std::string> privateFiles;
    /// No file can grow: error 61. A file that isn't there is made, but stays empty.
    bool diskFull = false;

    /// Keys by hive and path, looked up without regard to case. Opening any other gives 2. The
    /// programs that start with the system are there from the start.
    std::map<std::pair<std::uint32_t, std::string>, FakeRegistryKey> registry;
    /// The key of the programs that start with the system.
    FakeRegistryKey& runKey();
    /// Keys that were opened and not yet closed.
    int openKeys() const;

    /// Special folders by their CSIDL numbers; asking for another gives a failure.
    std::map<std::int32_t, std::string> specialFolders{{9, "C:\\Users\\user\\SendTo"}};
    std::string windowsFolder = "C:\\Windows";
    /// Environment variables by their names, in which case counts.
    std::map<std::string, std::string> environment;
    /// The folders that the next folder browsers give; an empty one, and none when they are used
    /// up, dismisses it.
    std::deque<std::string> browsed;
    /// Whether the system has a folder browser at all.
    bool browses = true;
    /// The folder browsers shown. Each runs its whileOpen once.
    std::vector<BrowseInfo> browsers;
    /// The calls of SHEmptyRecycleBinA, and its answer.
    std::vector<FakeEmptying> emptied;
    std::int32_t emptyResult = 0;
    /// The calls of SHFileOperationA, and its answer; 0 removes the paths and lists them.
    std::vector<FileOperation> operations;
    std::int32_t operationResult = 0;
    std::vector<std::string> recycled;
    /// Command lines that were started, and the error that starting raises; 0 for none.
    std::vector<std::string> started;
    int startError = 0;
    /// Sounds that were played, with their flags, and the answer.
    std::vector<std::pair<std::string, std::int32_t>> played;
    std::int16_t playResult = 1;
    /// The calls of ShellExecuteA and ShellExecuteEx, and their answer.
    std::vector<FakeExecution> executed;
    bool executes = true;
    /// The shortcuts in the order of their saving; each is also one of the files.
    std::vector<FakeShortcut> shortcuts;

    FakeWinsock winsock;
    FakeInternet internet;
    FakeRasapi32 rasapi32;
    FakeSmtpClient smtpClient;
    FakeWmi wmi;
    FakeProcesses processes;
    FakeRawVolumes rawVolumes;
    FakeUserState userState;
    FakeOtherStarts otherStarts;
    /// The version that GetVersionExA reports: of the class that lists no processes.
    OsVersionInfo version{.dwMajorVersion = 10, .dwPlatformId = os_version::windowsNT};
    /// What programs write, by their command lines. One without an entry isn't there: error 53.
    std::map<std::string, std::string> outputs;
    /// What GlobalMemoryStatus reports, and the name of the user.
    MemoryStatus memory{.dwTotalPhys = 2'147'483'648, .dwAvailPhys = 1'073'741'824};
    std::string userName = "user";

    DateTime now{2026, 3, 14, 15, 9, 26};
    std::int64_t tick = 0;
    /// Moves the clock and the tick count together.
    void advance(std::int64_t milliseconds);

    CallLog log;
    /// Runs at each call, before it is recorded. With it a test changes the machine in the middle
    /// of a check.
    std::function<void(const std::string& call)> onCall;

  private:
    struct Disks;
    struct Desktop;
    void record(const std::string& call);
    /// Records the call of an operation that gives codes: 0, or the planned failure.
    std::int32_t recordCode(const std::string& call);

    std::unique_ptr<Disks> disks_;
    std::unique_ptr<Desktop> desktop_;
    Platform platform_;
};

/// Records the notification area's messages.
class FakeNotifyArea final : public NotifyArea {
  public:
    bool Shell_NotifyIconA(NotifyMessage message, const NotifyIconData& data) override {
        sent.emplace_back(message, data);
        return takes;
    }
    bool available() const override { return present; }
    std::vector<std::pair<NotifyMessage, NotifyIconData>> sent;
    bool takes = true;    ///< what it answers
    bool present = true;  ///< the desktop has a notification area
};

}  // namespace velmora::fake
