#include "platform/linux/inventory/linux_processes.h"

namespace velmora::linuxhost {

SystemHandle LinuxProcesses::CreateToolhelp32Snapshot(std::uint32_t /*flags*/,
                                                      std::uint32_t /*id*/) {
    return -1;
}
bool LinuxProcesses::Process32First(SystemHandle /*snapshot*/, ProcessEntry32& /*entry*/) {
    return false;
}
bool LinuxProcesses::Process32Next(SystemHandle /*snapshot*/, ProcessEntry32& /*entry*/) {
    return false;
}
bool LinuxProcesses::EnumProcesses(std::vector<std::uint32_t>& /*ids*/, std::uint32_t /*bytes*/,
                                   std::uint32_t& /*reported*/) {
    return false;
}
SystemHandle LinuxProcesses::OpenProcess(std::uint32_t /*access*/, std::int32_t /*inherit*/,
                                         std::uint32_t /*id*/) {
    return 0;
}
bool LinuxProcesses::EnumProcessModules(SystemHandle /*process*/,
                                        std::vector<std::uint64_t>& /*modules*/,
                                        std::uint32_t /*bytes*/, std::uint32_t& /*needed*/) {
    return false;
}
std::uint32_t LinuxProcesses::GetModuleFileNameExA(SystemHandle /*process*/,
                                                   std::uint64_t /*module*/,
                                                   std::string& /*buffer*/,
                                                   std::uint32_t /*size*/) {
    return 0;
}
bool LinuxProcesses::CloseHandle(SystemHandle /*handle*/) {
    return false;
}

}  // namespace velmora::linuxhost
