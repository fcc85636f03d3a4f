// A machine made of files, and what this process has open and running.
#pragma once

#include <unistd.h>
#include <utmpx.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/linux/inventory/host_sources.h"
#include "platform/linux/support/test_folder.h"
#include "platform/wmi.h"

namespace velmora::linuxhost {

/// Processes and other sources in a folder of their own.
class MadeMachine {
  public:
    MadeMachine() { std::filesystem::create_directory(folder_ / "proc"); }

    /// Sources that lead nowhere but here.
    HostSources sources() const {
        return {.proc = folder_ / "proc",
                .journal = folder_ / "journal",
                .syslog = folder_ / "syslog",
                .logins = folder_ / "utmp",
                .modules = folder_ / "modules",
                .atJobs = folder_ / "atjobs",
                .crontab = folder_ / "crontab",
                .cronFolder = folder_ / "cron.d",
                .userCrontabs = folder_ / "crontabs",
                .release = folder_ / "os-release"};
    }

    std::string at(const std::string& name) const { return folder_ / name; }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(at(name), std::ios::binary) << content;
    }
    std::string folderOf(int process) const { return at("proc/" + std::to_string(process)); }
    /// A process without an executable, as the kernel's own threads are.
    void addProcess(int process, const std::string& shortName) const {
        std::filesystem::create_directory(folderOf(process));
        write("proc/" + std::to_string(process) + "/stat",
              std::to_string(process) + " (" + shortName +
                  ") S 1 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 5 4096 1 0\n");
    }
    void addProgram(int process, const std::string& executable) const {
        addProcess(process, "short");
        std::filesystem::create_symlink(executable, folderOf(process) + "/exe");
    }

    /// An entry at the end of the file of logins.
    void addLogin(short kind, const std::string& user, const std::string& line) const {
        utmpx entry{};
        entry.ut_type = kind;
        entry.ut_pid = getpid();
        std::memcpy(entry.ut_user, user.data(), std::min(user.size(), sizeof entry.ut_user));
        std::memcpy(entry.ut_line, line.data(), std::min(line.size(), sizeof entry.ut_line));
        std::ofstream file(at("utmp"), std::ios::binary | std::ios::app);
        file.write(reinterpret_cast<const char*>(&entry), sizeof entry);
    }

  private:
    TestFolder folder_;
};

/// The values of one property of all records of a query; "missing" where a record has none.
inline std::vector<std::string> allOf(WmiObjectSet& records, const std::string& property) {
    std::vector<std::string> values;
    while (const auto record = records.Next()) {
        const WmiValue value = record->Properties({property}).at(0);
        values.push_back(value.isText() ? value.text : "missing");
    }
    return values;
}

inline std::size_t openDescriptors() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator("/proc/self/fd"))
        ++count;
    return count;
}

/// The children of this process, those that have ended and weren't waited for included.
inline std::size_t childrenOfThisProcess() {
    std::size_t count = 0;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream children(thread.path() / "children");
        for (int child = 0; children >> child;) ++count;
    }
    return count;
}

}  // namespace velmora::linuxhost
