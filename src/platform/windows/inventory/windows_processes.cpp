#include "platform/windows/inventory/windows_processes.h"

namespace velmora::windows {

SystemHandle WindowsProcesses::CreateToolhelp32Snapshot(std::uint32_t /*flags*/,
                                                        std::uint32_t /*id*/) {
    return -1;
}
bool WindowsProcesses::Process32First(SystemHandle /*snapshot*/, ProcessEntry32& /*entry*/) {
    return false;
}
bool WindowsProcesses::Process32Next(SystemHandle /*snapshot*/, ProcessEntry32& /*entry*/) {
    return false;
}
bool WindowsProcesses::EnumProcesses(std::vector<std::uint32_t>& /*ids*/, std::uint32_t /*bytes*/,
                                     std::uint32_t& /*reported*/) {
    return false;
}
SystemHandle WindowsProcesses::OpenProcess(std::uint32_t /*access*/, std::int32_t /*inherit*/,
                                           std::uint32_t /*id*/) {
    return 0;
}
bool WindowsProcesses::EnumProcessModules(SystemHandle /*process*/,
                                          std::vector<std::uint64_t>& /*modules*/,
                                          std::uint32_t /*bytes*/, std::uint32_t& /*needed*/) {
    return false;
}
std::uint32_t WindowsProcesses::GetModuleFileNameExA(SystemHandle /*process*/,
                                                     std::uint64_t /*module*/,
                                                     std::string& /*buffer*/,
                                                     std::uint32_t /*size*/) {
    return 0;
}
bool WindowsProcesses::CloseHandle(SystemHandle /*handle*/) {
    return false;
}

}  // namespace velmora::windows
