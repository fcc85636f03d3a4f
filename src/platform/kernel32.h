// System calls that the program knows under their own names.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// One entry of a listing. Times are in units of 100 ns since 1601-01-01 UTC.
struct FindData {
    std::uint32_t dwFileAttributes = 0;  ///< 1 read-only, 2 hidden, 16 folder, ...
    std::uint64_t ftCreationTime = 0;    ///< the write time where the drive keeps none
    std::uint64_t ftLastAccessTime = 0;
    std::uint64_t ftLastWriteTime = 0;
    std::uint64_t nFileSize = 0;  ///< bytes
    std::string cFileName;        ///< UTF-8; may have NULs and leftovers after them
};

namespace file_attribute {
inline constexpr std::uint32_t readOnly = 1;
inline constexpr std::uint32_t hidden = 2;
inline constexpr std::uint32_t directory = 16;
}  // namespace file_attribute

/// The memory of the machine in bytes. Each field stops at the greatest 32-bit number, so that a
/// machine with 4 GB and more reports that much.
struct MemoryStatus {
    std::uint32_t dwLength = 0;      ///< of this record, 32
    std::uint32_t dwMemoryLoad = 0;  ///< percent of the memory that is in use
    std::uint32_t dwTotalPhys = 0;
    std::uint32_t dwAvailPhys = 0;
    std::uint32_t dwTotalPageFile = 0;
    std::uint32_t dwAvailPageFile = 0;
    std::uint32_t dwTotalVirtual = 0;
    std::uint32_t dwAvailVirtual = 0;
};

namespace memory_status {
inline constexpr std::uint32_t recordLength = 32;
/// A number of bytes as a field of that record holds it.
inline constexpr std::uint32_t field(std::uint64_t bytes) {
    constexpr std::uint32_t greatest = 0xFFFFFFFF;
    return bytes < greatest ? static_cast<std::uint32_t>(bytes) : greatest;
}
}  // namespace memory_status

/// The version of the system.
struct OsVersionInfo {
    std::uint32_t dwOSVersionInfoSize = 0;  ///< of this record, 148
    std::uint32_t dwMajorVersion = 0;
    std::uint32_t dwMinorVersion = 0;
    std::uint32_t dwBuildNumber = 0;
    std::uint32_t dwPlatformId = 0;  ///< 1 for Windows 95 and its successors, 2 for Windows NT
};

namespace os_version {
inline constexpr std::uint32_t recordLength = 148;
inline constexpr std::uint32_t windows9x = 1;
inline constexpr std::uint32_t windowsNT = 2;
}  // namespace os_version

/// A listing that was begun; 0 for none.
using FindHandle = std::uint64_t;

/// The last error at the end of a listing.
inline constexpr std::uint32_t noMoreFiles = 18;
/// A wait that ended by the signal.
inline constexpr std::uint32_t waitObject0 = 0;
inline constexpr std::uint32_t waitFailed = 0xFFFFFFFF;

class Kernel32 {
  public:
    virtual ~Kernel32() = default;

    /// Writes the root of every logical drive ("C:\"), each closed by a NUL, one more NUL at the
    /// end, over the front of `buffer`. Returns the used length without that last NUL; when it is
    /// not below `length`, nothing was written and the result is the length that is needed.
    virtual std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) = 0;

    /// Drive path of the system's own folder, without a back-slash at the end; on Linux the folder
    /// of the desktop's sounds, since sounds are what it is asked for.
    virtual std::string GetWindowsDirectoryA() = 0;

    /// The text of an environment variable; empty when it isn't set. Names have no case on Windows.
    virtual std::string GetEnvironmentVariableA(const std::string& name) = 0;

    /// Fills a record whose length is 32; any other stays as it is.
    virtual void GlobalMemoryStatus(MemoryStatus& status) = 0;

    /// Fills a record whose length is 148; for any other it gives 0, otherwise 1. Linux calls
    /// itself the version whose way of listing processes it can serve.
    virtual std::int32_t GetVersionExA(OsVersionInfo& version) = 0;

    /// Begins the listing of a folder, given by its path, a back-slash and "*.*", and gives its
    /// first entry. All entries come, hidden ones and links (as what they are themselves) included;
    /// "." and ".." are among them but for the root of a drive. 0 when the folder can't be read,
    /// has no entry, or its drive doesn't answer within the deadline.
    virtual FindHandle FindFirstFileA(const std::string& pattern, FindData& entry) = 0;
    /// The next entry. False at the end, with 18 as the last error; a listing that breaks off
    /// reports another error once and is at its end then.
    virtual bool FindNextFileA(FindHandle listing, FindData& entry) = 0;
    virtual void FindClose(FindHandle listing) = 0;
    /// Why the last FindFirstFileA, FindNextFileA or MoveFileA failed.
    virtual std::uint32_t GetLastError() = 0;
    /// 1 when the first time is later, -1 when it is earlier, 0 when they are the same.
    std::int32_t CompareFileTime(std::uint64_t first, std::uint64_t second) const {
        return first > second ? 1 : first < second ? -1 : 0;
    }

    /// Moves a file or folder to a new path, whose folder must exist; nothing may lie at it yet, so
    /// that a folder's own path is refused. The new path begins at a drive or a root: what is moved
    /// by mistake must not end in the program's working folder. A file goes to another drive too,
    /// as a copy with its times, and is removed here only when the copy is whole; a folder does
    /// not. A link is moved as the link that it is, and none is followed on the way to either path.
    /// 1 when it was moved, 0 otherwise: then everything is where it was.
    virtual std::int32_t MoveFileA(const std::string& from, const std::string& to) = 0;

    /// Notifications of changes in a folder. A handle that isn't one makes each of them fail.
    virtual std::uint32_t WaitForSingleObject(std::uint32_t handle, std::uint32_t milliseconds) = 0;
    virtual bool FindNextChangeNotification(std::uint32_t handle) = 0;
    virtual bool FindCloseChangeNotification(std::uint32_t handle) = 0;
};

}  // namespace velmora
