// The running processes of the machine.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/linux/inventory/record_reader.h"
#include "platform/processes.h"

namespace velmora::linuxhost {

class LinuxProcesses final : public Processes {
  public:
    explicit LinuxProcesses(HostSources host = {},
                            std::chrono::milliseconds deadline = recordDeadline)
        : host_(std::move(host)), deadline_(deadline) {}

    /// A list that stalls or fails ends there: what came until then is the snapshot.
    SystemHandle CreateToolhelp32Snapshot(std::uint32_t flags, std::uint32_t processId) override;
    bool Process32First(SystemHandle snapshot, ProcessEntry32& entry) override;
    bool Process32Next(SystemHandle snapshot, ProcessEntry32& entry) override;
    bool EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                       std::uint32_t& reported) override;
    /// Needs a readable link to the executable, which kernel threads and others' processes haven't.
    SystemHandle OpenProcess(std::uint32_t access, std::int32_t inherit, std::uint32_t id) override;
    /// The executable is the only module.
    bool EnumProcessModules(SystemHandle process, std::vector<std::uint64_t>& modules,
                            std::uint32_t bytes, std::uint32_t& needed) override;
    /// A path of the host, cut at a character.
    std::uint32_t GetModuleFileNameExA(SystemHandle process, std::uint64_t module,
                                       std::string& buffer, std::uint32_t size) override;
    bool CloseHandle(SystemHandle handle) override;

  private:
    struct Listed {
        std::uint32_t id;
        std::string name;
    };
    struct Snapshot {
        std::vector<Listed> processes;
        std::size_t next = 0;
    };
    struct Opened {
        std::string path;  ///< of the executable
    };
    using Object = std::variant<Snapshot, Opened>;

    std::vector<Listed> list(SourceOpener open, std::size_t atMost) const;
    SystemHandle handleOf(Object object);
    template <typename Kind>
    Kind* find(SystemHandle handle);

    HostSources host_;
    std::chrono::milliseconds deadline_;
    std::map<SystemHandle, Object> objects_;
};

}  // namespace velmora::linuxhost
