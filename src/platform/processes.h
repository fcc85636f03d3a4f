// The running processes, by the system calls of two generations: a snapshot that is gone through,
// and lists of numbers whose processes are opened.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// Of a snapshot or a process.
using SystemHandle = std::int64_t;

/// One process of a snapshot.
struct ProcessEntry32 {
    std::uint32_t dwSize = 0;  ///< of this record, 296; set before it is filled, and then stays
    std::uint32_t th32ProcessID = 0;
    std::string szExeFile;  ///< name of the executable in UTF-8, up to the field's end or its NUL
};

namespace process_list {
inline constexpr std::uint32_t snapshotOfProcesses = 2;  ///< TH32CS_SNAPPROCESS
inline constexpr std::uint32_t entryRecord = 296;
inline constexpr std::uint32_t executableField = 260;  ///< bytes, with the NUL
/// PROCESS_QUERY_INFORMATION and PROCESS_VM_READ.
inline constexpr std::uint32_t queryAndRead = 1040;
}  // namespace process_list

class Processes {
  public:
    virtual ~Processes() = default;

    /// A list of the processes that run now, -1 when there is none. `flags` is 2; `processId` has
    /// no effect then. Linux takes no longer than two seconds without progress for it.
    virtual SystemHandle CreateToolhelp32Snapshot(std::uint32_t flags, std::uint32_t processId) = 0;
    /// The first process of a snapshot, and each next one. False after the last, for a handle that
    /// isn't one and for a record whose size isn't 296; then the record stays as it is.
    virtual bool Process32First(SystemHandle snapshot, ProcessEntry32& entry) = 0;
    virtual bool Process32Next(SystemHandle snapshot, ProcessEntry32& entry) = 0;

    /// Writes the numbers of the processes over the front of `ids`, no more than fit into `bytes`
    /// (four each) and into `ids`. `reported` becomes the bytes written: as many as `bytes` when
    /// there may be more. False when nothing was written.
    virtual bool EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                               std::uint32_t& reported) = 0;
    /// A process by its number, 0 when there is none or the user may not read it. This call and the
    /// next two have no deadline.
    virtual SystemHandle OpenProcess(std::uint32_t access, std::int32_t inherit,
                                     std::uint32_t id) = 0;
    /// Writes the modules of a process over the front of `modules`, the executable first, no more
    /// than fit into `bytes`. `needed` becomes the bytes of them all. False when they can't be
    /// read.
    virtual bool EnumProcessModules(SystemHandle process, std::vector<std::uint64_t>& modules,
                                    std::uint32_t bytes, std::uint32_t& needed) = 0;
    /// Writes the path of a module, in UTF-8, over the front of `buffer`, cut at `size` and at the
    /// buffer's own size. Its length, 0 when it can't be read.
    virtual std::uint32_t GetModuleFileNameExA(SystemHandle process, std::uint64_t module,
                                               std::string& buffer, std::uint32_t size) = 0;
    /// Closes a snapshot or a process. False for a handle that isn't one.
    virtual bool CloseHandle(SystemHandle handle) = 0;
};

}  // namespace velmora
