// A program that tests start on Windows:
//   windows_process processes      writes the report on the running processes
//   windows_process write TEXT     writes the text; "\xx" is a byte
//   windows_process stay           writes "here" and stays
//   windows_process flood          writes without an end
//   windows_process parent         starts one that stays, with the same output, and ends
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "fake/fake_host.h"
#include "notify/inventory.h"
#include "platform/platform.h"

namespace {

using velmora::Inventory;

void write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void writeProcesses() {
    const auto machine = velmora::openMachine();
    velmora::fake::FakeHost host;
    write(Inventory(machine->platform(), host).prcProcessText());
}

std::string bytesOf(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\') {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

[[noreturn]] void stay() {
    write("here");
    while (true) Sleep(INFINITE);
}

[[noreturn]] void flood() {
    const std::string block(1U << 16, 'x');
    while (true) write(block);
}

void startOneThatStays(const std::string& self) {
    std::string line = '"' + self + "\" stay";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &started))
        return;
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
}

}  // namespace

int main(int count, char** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    const std::string task = count > 1 ? arguments[1] : "";
    const std::string argument = count > 2 ? arguments[2] : "";
    if (task == "processes") writeProcesses();
    if (task == "write") write(bytesOf(argument));
    if (task == "stay") stay();
    if (task == "flood") flood();
    if (task == "parent") startOneThatStays(arguments[0]);
    return 0;
}
