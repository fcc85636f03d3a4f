#include "platform/linux/inventory/linux_processes.h"

#include <fcntl.h>

#include <algorithm>
#include <limits>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/process_folders.h"
#include "platform/linux/inventory/process_record.h"

namespace velmora::linuxhost {

namespace {

// Stands for the executable, where programs usually begin.
constexpr std::uint64_t onlyModule = 0x400000;
constexpr std::uint32_t idBytes = sizeof(std::uint32_t);
constexpr std::uint32_t moduleHandleBytes = sizeof(std::uint64_t);

// The longest beginning of whole characters that is no longer than that, in bytes.
std::string cutText(const std::string& text, std::size_t bytes) {
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t size = characterSize(text, end);
        if (end + size > bytes) break;
        end += size;
    }
    return text.substr(0, end);
}

std::string textOf(const Record& record, const char* property) {
    const auto found = record.find(property);
    return found == record.end() ? std::string() : found->second;
}

}  // namespace

std::vector<LinuxProcesses::Listed> LinuxProcesses::list(SourceOpener open,
                                                         std::size_t atMost) const {
    std::vector<Listed> processes;
    try {
        RecordReader reader(std::move(open), deadline_);
        const auto query = reader.begin({});
        while (processes.size() < atMost) {
            const auto record = reader.next(query);
            if (!record) break;
            const auto id = unsignedNumber(textOf(*record, "ProcessId"));
            if (!id || *id > std::numeric_limits<std::uint32_t>::max()) continue;
            processes.push_back({static_cast<std::uint32_t>(*id), textOf(*record, "Name")});
        }
    } catch (const RuntimeError&) {
        // What came before counts.
    }
    return processes;
}

SystemHandle LinuxProcesses::handleOf(Object object) {
    SystemHandle handle = 1;
    while (objects_.contains(handle)) ++handle;
    objects_.emplace(handle, std::move(object));
    return handle;
}

template <typename Kind>
Kind* LinuxProcesses::find(SystemHandle handle) {
    const auto found = objects_.find(handle);
    return found == objects_.end() ? nullptr : std::get_if<Kind>(&found->second);
}

SystemHandle LinuxProcesses::CreateToolhelp32Snapshot(std::uint32_t flags,
                                                      std::uint32_t /*processId*/) {
    if (flags != process_list::snapshotOfProcesses) return -1;
    auto processes = list([host = host_](const std::string&) { return processNameSource(host); },
                          std::numeric_limits<std::size_t>::max());
    if (processes.empty()) return -1;
    return handleOf(Snapshot{std::move(processes), 0});
}

bool LinuxProcesses::Process32First(SystemHandle handle, ProcessEntry32& entry) {
    Snapshot* snapshot = find<Snapshot>(handle);
    if (snapshot == nullptr || entry.dwSize != process_list::entryRecord) return false;
    snapshot->next = 0;
    return Process32Next(handle, entry);
}

bool LinuxProcesses::Process32Next(SystemHandle handle, ProcessEntry32& entry) {
    Snapshot* snapshot = find<Snapshot>(handle);
    if (snapshot == nullptr || entry.dwSize != process_list::entryRecord ||
        snapshot->next == snapshot->processes.size())
        return false;
    const Listed& process = snapshot->processes[snapshot->next++];
    entry.th32ProcessID = process.id;
    entry.szExeFile = cutText(process.name, process_list::executableField - 1);
    return true;
}

bool LinuxProcesses::EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                                   std::uint32_t& reported) {
    const std::size_t room = std::min<std::size_t>(bytes / idBytes, ids.size());
    const auto processes =
        list([host = host_](const std::string&) { return processIdSource(host); }, room);
    if (processes.empty()) return false;
    std::transform(processes.begin(), processes.end(), ids.begin(),
                   [](const Listed& each) { return each.id; });
    reported = static_cast<std::uint32_t>(processes.size()) * idBytes;
    return true;
}

SystemHandle LinuxProcesses::OpenProcess(std::uint32_t /*access*/, std::int32_t /*inherit*/,
                                         std::uint32_t id) {
    const auto executable = linkTarget(AT_FDCWD, host_.proc + '/' + std::to_string(id) + "/exe");
    return executable ? handleOf(Opened{executablePathOf(*executable)}) : 0;
}

bool LinuxProcesses::EnumProcessModules(SystemHandle handle, std::vector<std::uint64_t>& modules,
                                        std::uint32_t bytes, std::uint32_t& needed) {
    if (find<Opened>(handle) == nullptr) return false;
    if (bytes >= moduleHandleBytes && !modules.empty()) modules.front() = onlyModule;
    needed = moduleHandleBytes;
    return true;
}

std::uint32_t LinuxProcesses::GetModuleFileNameExA(SystemHandle handle, std::uint64_t module,
                                                   std::string& buffer, std::uint32_t size) {
    const Opened* process = find<Opened>(handle);
    if (process == nullptr || module != onlyModule) return 0;
    const std::string path = cutText(process->path, std::min<std::size_t>(size, buffer.size()));
    buffer.replace(0, path.size(), path);
    return static_cast<std::uint32_t>(path.size());
}

bool LinuxProcesses::CloseHandle(SystemHandle handle) {
    return objects_.erase(handle) > 0;
}

}  // namespace velmora::linuxhost
