#include "notify/process_list.h"

#include <algorithm>
#include <utility>

#include "base/convert.h"
#include "base/scope_guard.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr std::uint32_t bytesPerId = 4;
constexpr std::uint32_t moduleBytes = 200;
constexpr std::size_t pathBuffer = 260;
// The system is given more than the buffer has; it must not write past the buffer.
constexpr std::uint32_t statedPathBuffer = 500;

void storeAt(std::vector<std::string>& texts, std::size_t index, std::string text) {
    if (index >= texts.size()) texts.resize(index + 1);
    texts[index] = std::move(text);
}

}  // namespace

ProcessArrays ProcessArrays::upTo(std::size_t index) {
    const std::vector<std::string> room(index + 1);
    return {.names = room, .ids = room, .sizes = room};
}

void ProcessArrays::store(std::size_t index, std::string name, std::string id, std::string size) {
    storeAt(names, index, std::move(name));
    storeAt(ids, index, std::move(id));
    storeAt(sizes, index, std::move(size));
}

bool ProcessArrays::isEmptyAt(std::size_t index) const {
    return names[index].empty() && ids[index].empty() && sizes[index].empty();
}

int versionClassOf(const OsVersionInfo& version) {
    const std::uint32_t major = version.dwMajorVersion;
    const std::uint32_t minor = version.dwMinorVersion;
    if (version.dwPlatformId == os_version::windows9x) {
        if (minor == 0) return version_class::windows95;
        if (minor == 10) return version_class::windows98;
    } else if (version.dwPlatformId == os_version::windowsNT) {
        if (major == 3 && minor == 51) return version_class::nt351;
        if (major == 4 && minor == 0) return version_class::nt4;
        if (major == 5 && minor == 0) return version_class::windows2000;
    }
    return version_class::other;
}

void ProcessList::prcEnumProcesses(ProcessArrays& arrays) {
    OsVersionInfo version{.dwOSVersionInfoSize = os_version::recordLength};
    platform_.kernel32.GetVersionExA(version);
    switch (versionClassOf(version)) {
        case version_class::windows95:
        case version_class::windows98:
            return listSnapshot(arrays);
        case version_class::nt4:
        case version_class::windows2000:
            return listOpened(arrays);
        default:
            return;
    }
}

void ProcessList::listSnapshot(ProcessArrays& arrays) {
    Processes& processes = platform_.processes;
    const SystemHandle snapshot =
        processes.CreateToolhelp32Snapshot(process_list::snapshotOfProcesses, 0);
    if (snapshot < 1) return;
    const ScopeGuard close([&] { processes.CloseHandle(snapshot); });
    ProcessEntry32 entry;
    entry.dwSize = process_list::entryRecord;
    std::size_t index = 0;
    for (bool found = processes.Process32First(snapshot, entry); found;
         found = processes.Process32Next(snapshot, entry)) {
        arrays.store(index++, entry.szExeFile, toText(std::int64_t{entry.th32ProcessID}),
                     toText(std::int64_t{entry.dwSize}));
    }
}

void ProcessList::listOpened(ProcessArrays& arrays) {
    Processes& processes = platform_.processes;
    std::size_t index = 1;
    for (const std::uint32_t id : runningIds()) {
        const SystemHandle process = processes.OpenProcess(process_list::queryAndRead, 0, id);
        if (process == 0) continue;
        const ScopeGuard close([&] { processes.CloseHandle(process); });
        if (const auto path = pathOf(process)) {
            arrays.store(index++, trim(*path), toText(process), "");
        }
    }
}

// A full buffer may have left some out: it is doubled until there is room to spare.
std::vector<std::uint32_t> ProcessList::runningIds() {
    std::uint32_t bytes = 8;
    std::uint32_t reported = 96;
    std::vector<std::uint32_t> ids;
    while (bytes <= reported) {
        bytes *= 2;
        ids.assign(bytes / bytesPerId, 0);
        platform_.processes.EnumProcesses(ids, bytes, reported);
    }
    ids.resize(std::min<std::size_t>(ids.size(), reported / bytesPerId));
    return ids;
}

std::optional<std::string> ProcessList::pathOf(SystemHandle process) {
    std::vector<std::uint64_t> modules(moduleBytes / sizeof(std::uint64_t));
    std::uint32_t needed = 0;
    if (!platform_.processes.EnumProcessModules(process, modules, moduleBytes, needed)) {
        return std::nullopt;
    }
    std::string path(pathBuffer, ' ');
    const std::uint32_t size =
        platform_.processes.GetModuleFileNameExA(process, modules.front(), path, statedPathBuffer);
    return path.substr(0, size);
}

}  // namespace velmora
