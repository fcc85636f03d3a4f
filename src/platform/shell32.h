// The system's shell.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace velmora {

/// A place in the shell's namespace, as the shell's calls hand it on.
struct ItemIdList {
    std::string place;  ///< its drive path; only the backends look inside
};

/// The argument of ShellExecuteEx; size 60 and the owner's window are the backend's matter.
struct ShellExecuteInfo {
    std::uint32_t mask = 0;
    std::string owner;  ///< name of the form that owns the window shown
    std::string verb;
    std::string file;  ///< drive path
};

/// BROWSEINFO, with a name where the system has a handle.
struct BrowseInfo {
    std::string owner;  ///< name of the form that owns the dialog
    std::string title;
    std::uint32_t flags = 0;
    /// Runs about every 20 ms while the dialog is open, so that the program's windows go on being
    /// painted. What it throws closes the dialog and reaches the caller. May be empty.
    std::function<void()> whileOpen;
};

/// SHFILEOPSTRUCT, with a name where the system has a handle.
struct FileOperation {
    std::string owner;
    std::uint32_t wFunc = 0;
    std::string pFrom;  ///< drive paths, each with a NUL at its end; the list ends with the text
    std::uint16_t fFlags = 0;
};

namespace file_operation {
inline constexpr std::uint32_t remove = 3;  ///< FO_DELETE
inline constexpr std::uint16_t silent = 4;  ///< FOF_SILENT
inline constexpr std::uint16_t noConfirmation = 16;
inline constexpr std::uint16_t allowUndo = 64;  ///< FOF_ALLOWUNDO: into the recycle bin
inline constexpr std::uint16_t noErrorBox = 1024;
}  // namespace file_operation

/// What became of a dialog of the system's. Where it has none to show, a surface shows its own.
enum class Browse { chosen, dismissed, unavailable };

class Shell32 {
  public:
    virtual ~Shell32() = default;
    /// A special folder by its CSIDL number; 0 for success. Linux knows 9, the folder of the file
    /// manager's scripts, 16 the desktop, 5 the documents, 26 the user's configuration, 40 the
    /// home.
    virtual std::int32_t SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) = 0;
    /// Writes the place's drive path and a NUL over the front of `buffer`; false when it has no
    /// path or doesn't fit. The same on every host.
    virtual bool SHGetPathFromIDListA(const ItemIdList& list, std::string& buffer);
    /// Opens, explores or prints a file, a folder or an address with the program for it; `owner`
    /// is the name of a form. Above 32 when the system took the order.
    virtual std::int32_t ShellExecuteA(const std::string& owner, const std::string& operation,
                                       const std::string& file, const std::string& parameters,
                                       const std::string& directory, std::int32_t showCommand) = 0;
    /// Whether the system took the order.
    virtual bool ShellExecuteEx(const ShellExecuteInfo& info) = 0;
    /// The system's folder browser; returns when it has closed. `list` is written only when a
    /// folder was chosen. On Linux the flags make no difference.
    virtual Browse SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) = 0;
    /// Removes for good what was deleted from a drive, given by a path on it ("D:\\"), or from all
    /// drives when `root` is empty. Flags: 1 without asking the user, 2 without showing progress,
    /// 4 without a sound. 0 for success, 1223 when the user says no, or else the system's code:
    /// 15 for a drive that isn't there, 21 for one that isn't ready, 5 for denied access, ...
    virtual std::int32_t SHEmptyRecycleBinA(const std::string& owner, const std::string& root,
                                            std::uint32_t flags) = 0;
    /// Removes files and folders, with `allowUndo` into the recycle bin of their drive; nothing is
    /// removed for good with that flag without asking. 0 for success, or else the system's code: 2
    /// for a path that isn't there, 5 for denied access, 1223 when the user says no, ...
    virtual std::int32_t SHFileOperationA(const FileOperation& operation) = 0;
    /// Starts a program by a command line, its path in quotes when it has blanks, and returns at
    /// once; a window state as ShowWindow's numbers. Error 53 when there is no such program, 5 when
    /// it can't be started. Linux starts a file that is no program by the program for it.
    virtual void Shell(const std::string& commandLine, std::int32_t windowState) = 0;
};

}  // namespace velmora
