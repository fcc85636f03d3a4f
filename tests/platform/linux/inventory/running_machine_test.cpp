// The reports beside what the machine's own tools say at the same time.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include "made_machine.h"
#include "platform/linux/desktop/linux_wscript_shell.h"
#include "platform/linux/inventory/linux_processes.h"
#include "platform/linux/inventory/linux_wmi.h"
#include "platform/linux/programs/program_order.h"

namespace velmora::linuxhost {
namespace {

std::string printedBy(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    char piece[4096];
    while (pipe) {
        const std::size_t size = fread(piece, 1, sizeof piece, pipe.get());
        if (size == 0) break;
        output.append(piece, size);
    }
    return output;
}

struct SeenProcess {
    std::string parent;
    std::string name;
};
using SeenProcesses = std::map<std::string, SeenProcess>;

SeenProcesses processesOfPs() {
    SeenProcesses seen;
    std::istringstream lines(printedBy("ps -eo pid=,ppid=,comm="));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string id;
        SeenProcess process;
        words >> id >> process.parent >> std::ws;
        std::getline(words, process.name);
        seen[id] = process;
    }
    return seen;
}

SeenProcesses processesOfRecords() {
    LinuxWmi wmi;
    const auto services = wmi.GetObject(R"(winmgmts:\\\\.\root\cimv2)");
    const auto records = services->ExecQuery("Select * from Win32_Process", "WQL", 48);
    SeenProcesses seen;
    while (const auto record = records->Next()) {
        const auto values = record->Properties({"ProcessId", "ParentProcessId", "Name"});
        seen[values[0].text] = {values[1].text, values[2].text};
    }
    return seen;
}

// The name in ps is the short one, of at most 15 bytes; a program may also choose another.
bool isSameName(const SeenProcess& ps, const SeenProcess& own) {
    return ps.name == own.name || own.name.starts_with(ps.name.substr(0, 15));
}

TEST(RunningMachine, ProcessesAreThoseOfPs) {
    const SeenProcesses before = processesOfPs();
    const SeenProcesses own = processesOfRecords();
    const SeenProcesses after = processesOfPs();
    if (before.empty()) GTEST_SKIP() << "no ps";
    std::size_t stayed = 0;
    std::size_t named = 0;
    for (const auto& [id, process] : before) {
        if (!after.contains(id) || after.at(id).name != process.name) continue;
        ++stayed;
        ASSERT_TRUE(own.contains(id)) << id << ' ' << process.name;
        // A parent that ends meanwhile leaves its children to another one.
        const bool keptParent = after.at(id).parent == process.parent;
        EXPECT_TRUE(!keptParent || own.at(id).parent == process.parent) << id;
        named += isSameName(process, own.at(id)) ? 1 : 0;
    }
    EXPECT_GT(stayed, 1u);
    // Interpreters run scripts that ps shows by the script's name.
    EXPECT_GT(named * 2, stayed);
    std::cout << stayed << " processes, " << named << " with the name that ps shows\n";
    EXPECT_EQ(own.at(std::to_string(getpid())).parent, std::to_string(getppid()));
    EXPECT_EQ(own.at(std::to_string(getpid())).name, "test_platform");
}

TEST(RunningMachine, ThisProcessHasThePathOfItsExecutable) {
    LinuxProcesses processes;
    const auto own = processes.OpenProcess(1040, 0, static_cast<std::uint32_t>(getpid()));
    ASSERT_GT(own, 0);
    std::vector<std::uint64_t> modules(25);
    std::uint32_t needed = 0;
    ASSERT_TRUE(processes.EnumProcessModules(own, modules, 200, needed));
    std::string path(4096, ' ');
    path.resize(processes.GetModuleFileNameExA(own, modules[0], path, 4096));
    EXPECT_EQ(path, std::filesystem::read_symlink("/proc/self/exe").string());
}

double bytesIn(const std::string& text, const std::string& name) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string first;
        double kilobytes = 0;
        if (words >> first >> kilobytes && first == name) return kilobytes * 1024;
    }
    return -1;
}

/// A figure of the kernel that other programs change: by what it says before and after a moment.
class MovingFigure {
  public:
    MovingFigure(double before, double after)
        : least_(std::min(before, after)), greatest_(std::max(before, after)) {}
    /// Whether a figure of that moment is one of these, but for what came and went in between.
    void expect(double figure) const {
        constexpr double slack = 256.0 * 1024 * 1024;
        EXPECT_GE(figure, least_ - slack);
        EXPECT_LE(figure, greatest_ + slack);
    }

  private:
    double least_;
    double greatest_;
};

TEST(RunningMachine, MemoryIsThatOfTheKernel) {
    LinuxWmi wmi;
    const auto services = wmi.GetObject(R"(winmgmts:\\.\root\cimv2)");
    const auto before = contentsOf("/proc/meminfo");
    const auto records =
        services->ExecQuery("Select * from Win32_PerfRawData_PerfOS_Memory", "WQL", 48);
    const auto record = records->Next();
    ASSERT_TRUE(record);
    EXPECT_EQ(records->Next(), nullptr);
    const auto values =
        record->Properties({"SystemCacheResidentBytes", "CommitLimit", "CommittedBytes",
                            "CacheBytes", "SystemCodeTotalBytes"});
    const auto after = contentsOf("/proc/meminfo");
    const auto number = [&](std::size_t i) { return std::stod(values.at(i).text); };
    const auto figure = [&](const std::string& name) {
        return MovingFigure(bytesIn(before, name), bytesIn(after, name));
    };
    const auto cacheIn = [](const std::string& text) {
        return bytesIn(text, "Cached:") + bytesIn(text, "Buffers:");
    };
    figure("Cached:").expect(number(0));
    EXPECT_EQ(number(1), bytesIn(before, "CommitLimit:"));
    figure("Committed_AS:").expect(number(2));
    MovingFigure(cacheIn(before), cacheIn(after)).expect(number(3));
    EXPECT_EQ(values.at(4).kind, WmiValue::Kind::missing);
}

// The lines without figures that change from moment to moment.
std::multiset<std::string> headingsOf(const std::string& text) {
    std::multiset<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.find_first_of("0123456789") == std::string::npos) lines.insert(line);
    }
    return lines;
}

TEST(RunningMachine, ConnectionsAreThoseOfTheHostsProgram) {
    const std::string program =
        programInPath("netstat").empty() ? programInPath("ss") : programInPath("netstat");
    if (program.empty()) GTEST_SKIP() << "neither netstat nor ss";
    Volumes volumes;
    LinuxWScriptShell shell(volumes);
    const std::string own = shell.Exec("netstat")->ReadAll();
    const std::string direct = printedBy(program + " --tcp --numeric 2>/dev/null </dev/null");
    EXPECT_FALSE(own.empty());
    EXPECT_EQ(own.find('\n'), own.find("\r\n") + 1);
    EXPECT_EQ(headingsOf(own), headingsOf(direct));
}

}  // namespace
}  // namespace velmora::linuxhost
