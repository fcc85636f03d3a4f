#include "platform/windows/inventory/windows_processes.h"

#include <windows.h>
// After the one above, which they need.
#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/windows/system/utf16.h"

// The system's headers give these names to other versions of the calls.
#undef Process32First
#undef Process32Next
#undef EnumProcesses
#undef EnumProcessModules
#undef GetModuleFileNameExA

namespace velmora::windows {

namespace {

constexpr std::size_t longestPath = 32768;

/// The length of the whole characters that fit into so many bytes.
std::size_t wholeCharacters(std::string_view text, std::size_t room) {
    if (text.size() <= room) return text.size();
    std::size_t length = 0;
    while (length + characterSize(text, length) <= room) length += characterSize(text, length);
    return length;
}

using StepOfSnapshot = BOOL(WINAPI*)(HANDLE, PROCESSENTRY32W*);

bool fill(ProcessEntry32& entry, HANDLE snapshot, StepOfSnapshot step) {
    if (!snapshot || entry.dwSize != process_list::entryRecord) return false;
    PROCESSENTRY32W found{};
    found.dwSize = sizeof found;
    if (!step(snapshot, &found)) return false;
    std::string name = toUtf8(found.szExeFile);
    name.resize(wholeCharacters(name, process_list::executableField - 1));
    entry.th32ProcessID = found.th32ProcessID;
    entry.szExeFile = std::move(name);
    return true;
}

/// How many items fit into so many bytes and into a list.
template <typename Item>
DWORD roomIn(const std::vector<Item>& list, std::uint32_t bytes) {
    return static_cast<DWORD>(std::min(bytes / sizeof(Item), list.size()));
}

}  // namespace

SystemHandle WindowsProcesses::kept(UniqueHandle handle) {
    const auto number = reinterpret_cast<SystemHandle>(handle.get());
    open_.insert_or_assign(number, std::move(handle));
    return number;
}

HANDLE WindowsProcesses::handleOf(SystemHandle number) const {
    const auto found = open_.find(number);
    return found == open_.end() ? nullptr : found->second.get();
}

SystemHandle WindowsProcesses::CreateToolhelp32Snapshot(std::uint32_t flags,
                                                        std::uint32_t processId) {
    UniqueHandle snapshot(::CreateToolhelp32Snapshot(flags, processId));
    return snapshot.isOpen() ? kept(std::move(snapshot)) : -1;
}

bool WindowsProcesses::Process32First(SystemHandle snapshot, ProcessEntry32& entry) {
    return fill(entry, handleOf(snapshot), ::Process32FirstW);
}

bool WindowsProcesses::Process32Next(SystemHandle snapshot, ProcessEntry32& entry) {
    return fill(entry, handleOf(snapshot), ::Process32NextW);
}

bool WindowsProcesses::EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                                     std::uint32_t& reported) {
    std::vector<DWORD> found(roomIn(ids, bytes));
    DWORD written = 0;
    const auto room = static_cast<DWORD>(found.size() * sizeof(DWORD));
    if (room == 0 || !::K32EnumProcesses(found.data(), room, &written) || written == 0)
        return false;
    std::copy_n(found.begin(), std::min<std::size_t>(written / sizeof(DWORD), found.size()),
                ids.begin());
    reported = written;
    return true;
}

SystemHandle WindowsProcesses::OpenProcess(std::uint32_t access, std::int32_t inherit,
                                           std::uint32_t id) {
    UniqueHandle process(::OpenProcess(access, inherit != 0, id));
    return process.isOpen() ? kept(std::move(process)) : 0;
}

bool WindowsProcesses::EnumProcessModules(SystemHandle process, std::vector<std::uint64_t>& modules,
                                          std::uint32_t bytes, std::uint32_t& needed) {
    const HANDLE opened = handleOf(process);
    std::vector<HMODULE> found(roomIn(modules, bytes));
    const auto room = static_cast<DWORD>(found.size() * sizeof(HMODULE));
    DWORD all = 0;
    if (!opened || !::K32EnumProcessModules(opened, found.data(), room, &all)) return false;
    const std::size_t count = all / sizeof(HMODULE);
    std::transform(
        found.begin(), found.begin() + static_cast<std::ptrdiff_t>(std::min(count, found.size())),
        modules.begin(), [](HMODULE each) { return reinterpret_cast<std::uintptr_t>(each); });
    needed = static_cast<std::uint32_t>(count * sizeof(std::uint64_t));
    return true;
}

std::uint32_t WindowsProcesses::GetModuleFileNameExA(SystemHandle process, std::uint64_t module,
                                                     std::string& buffer, std::uint32_t size) {
    const HANDLE opened = handleOf(process);
    if (!opened) return 0;
    std::wstring path(longestPath, L'\0');
    path.resize(::K32GetModuleFileNameExW(opened, reinterpret_cast<HMODULE>(module), path.data(),
                                          static_cast<DWORD>(path.size())));
    const std::string text = toUtf8(path);
    const std::size_t length = wholeCharacters(text, std::min<std::size_t>(size, buffer.size()));
    buffer.replace(0, length, text, 0, length);
    return static_cast<std::uint32_t>(length);
}

bool WindowsProcesses::CloseHandle(SystemHandle handle) {
    return open_.erase(handle) > 0;
}

}  // namespace velmora::windows
