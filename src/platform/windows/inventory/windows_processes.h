// The running processes of the machine.
#pragma once

#include <map>

#include "platform/processes.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

class WindowsProcesses final : public Processes {
  public:
    SystemHandle CreateToolhelp32Snapshot(std::uint32_t flags, std::uint32_t processId) override;
    bool Process32First(SystemHandle snapshot, ProcessEntry32& entry) override;
    bool Process32Next(SystemHandle snapshot, ProcessEntry32& entry) override;
    bool EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                       std::uint32_t& reported) override;
    SystemHandle OpenProcess(std::uint32_t access, std::int32_t inherit, std::uint32_t id) override;
    bool EnumProcessModules(SystemHandle process, std::vector<std::uint64_t>& modules,
                            std::uint32_t bytes, std::uint32_t& needed) override;
    std::uint32_t GetModuleFileNameExA(SystemHandle process, std::uint64_t module,
                                       std::string& buffer, std::uint32_t size) override;
    bool CloseHandle(SystemHandle handle) override;

  private:
    /// A number for a handle that this object closes.
    SystemHandle kept(UniqueHandle handle);
    /// The handle of such a number; null for any other number.
    HANDLE handleOf(SystemHandle number) const;

    /// Only what was opened here is used and closed.
    std::map<SystemHandle, UniqueHandle> open_;
};

}  // namespace velmora::windows
