// Drives and folders, as the file system script object shows them. Paths are drive paths in UTF-8
// ("C:\data", "\\host\share\data") on every host.
//
// A question to a drive has a deadline of `driveDeadline` inside each backend. A drive that misses
// it is not ready, and stays so at no cost until its pending question returns: at most one question
// a drive is pending, however often it is asked.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "base/date_time.h"

namespace velmora {

inline constexpr std::chrono::milliseconds driveDeadline{2000};

/// One reading of a drive: the first question measures it, later ones answer from that measure, so
/// that readiness, free space and total size belong to the same instant. GetDrive again to measure
/// again.
class Drive {
  public:
    virtual ~Drive() = default;
    /// Whether the drive exists, holds a medium and answers within the deadline. Never fails.
    virtual bool IsReady() = 0;
    /// "C:" with an upper-case letter, or "\\host\share"; no back-slash at the end.
    virtual std::string Path() const = 0;
    /// Bytes that this user can still write. Error 71 when the drive isn't ready.
    virtual double FreeSpace() = 0;
    /// Bytes in all. Error 71 when the drive isn't ready.
    virtual double TotalSize() = 0;
    /// The same as the free space, which already leaves out what is kept for others.
    double AvailableSpace() { return FreeSpace(); }
    /// Forgets what was measured: the next question measures anew. False for a drive that can't,
    /// which has to be got again.
    virtual bool renew() { return false; }
    /// "C" in upper case; empty for a share.
    std::string DriveLetter() const;
};

/// A file or folder. Its properties are read at the first question.
class PathEntry {
  public:
    virtual ~PathEntry() = default;
    /// The full drive path, without a back-slash at the end unless it is a root.
    virtual std::string Path() const = 0;
    /// Full drive path of the folder that it lies in; empty for a root.
    std::string ParentFolder() const;
    /// Bytes: of a folder those of all files below it, where no link leads anywhere. Error 53 or 76
    /// when it is gone, 70 when something in it can't be read.
    virtual double Size() = 0;
    /// Local times. Errors as Size.
    virtual DateTime DateLastAccessed() = 0;
    virtual DateTime DateLastModified() = 0;
    virtual DateTime DateCreated() = 0;
    /// What the shell calls such a thing ("Text Document", "File Folder"). Errors as Size.
    virtual std::string Type() = 0;
};

class File : public PathEntry {};

class Folder : public PathEntry {
  public:
    /// How many files and folders lie in it, hidden ones included, without those further below.
    /// Links count as what they point to; pipes, sockets and devices are neither. The first
    /// question counts both, later ones answer from that. Error 76 when the folder can't be read
    /// within the deadline.
    virtual double FilesCount() = 0;
    virtual double SubFoldersCount() = 0;
    /// Removes the folder and all that is in it, with `force` also what is read-only. No link is
    /// followed, neither on the way to it nor in it, and no other drive mounted in it is entered.
    /// Error 76 when it is gone, 70 when something can't be removed; what was removed till then
    /// stays removed.
    virtual void Delete(bool force) = 0;
};

class FileSystemObject {
  public:
    virtual ~FileSystemObject() = default;

    /// The drive part of a path as it is written: "c:" of "c:\data", "\\host\share" of
    /// "\\host\share\data", empty for a path without one. Only looks at the text, by
    /// the same rule on every host; so does the next one.
    virtual std::string GetDriveName(const std::string& path);
    /// The last component of a path as it is written; empty for a root.
    std::string GetFileName(const std::string& path) const;
    /// The drive of a designator: a letter, a letter and a colon, a root ("c:\") or a share
    /// (with or without a back-slash at the end). Error 5 for any other text. A drive that isn't
    /// there is a drive that isn't ready.
    virtual std::unique_ptr<Drive> GetDrive(const std::string& designator) = 0;
    /// Whether such a drive or share is known to the machine, ready or not. False for a text that
    /// is no designator.
    virtual bool DriveExists(const std::string& designator) = 0;

    /// False also when the folder can't be reached within the deadline.
    virtual bool FolderExists(const std::string& path) = 0;
    virtual bool FileExists(const std::string& path) = 0;
    /// Error 76 when there is no such folder.
    virtual std::unique_ptr<Folder> GetFolder(const std::string& path) = 0;
    /// Error 53 when there is no such file.
    virtual std::unique_ptr<File> GetFile(const std::string& path) = 0;

    /// A path that was typed, with the links above its last name resolved, since nothing is moved
    /// or removed through a link; the last name stays, also as a link. The path as it is where
    /// there is no link or its folder can't be reached. On Windows no link is resolved.
    virtual std::string WithoutLinks(const std::string& path) { return path; }
};

/// What GetDriveName gives, for backends; the other one as a part of the path itself.
std::string driveNameOf(const std::string& path);
std::string_view driveNameIn(std::string_view path);

/// What GetFileName gives, likewise.
std::string fileNameOf(const std::string& path);

/// Whether a path begins at a drive or a root. Any other begins at the working folder.
bool beginsAtRoot(const std::string& path);

/// Whether a path ends in "\" or "/".
bool endsInSeparator(const std::string& path);

/// Drive path of the folder that a full path lies in; empty for a root.
std::string parentFolderOf(const std::string& path);

/// A drive designator in its one form: "C:" or "\\host\share"; empty when the text is none.
std::string driveOfDesignator(const std::string& designator);
/// The same for GetDrive: error 5 when the text is none.
std::string requiredDrive(const std::string& designator);

}  // namespace velmora
