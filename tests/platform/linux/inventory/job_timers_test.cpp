#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <vector>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/event_records.h"
#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {
namespace {

// A program that runs until this object goes. It must print a line when it is ready.
class RunningProgram {
  public:
    explicit RunningProgram(std::vector<std::string> words) {
        int ends[2];
        if (pipe(ends) != 0) return;
        const UniqueFd output(ends[0]);
        UniqueFd input(ends[1]);
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t parent = getpid();
        process_ = fork();
        if (process_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (getppid() == parent && dup2(input.get(), STDOUT_FILENO) >= 0) {
                close(output.get());
                close(input.get());
                execvp(arguments[0], arguments.data());
            }
            _exit(127);
        }
        input.reset();
        readLine(output.get());
    }
    ~RunningProgram() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// What it printed first; empty when it ended before.
    const std::string& firstLine() const { return line_; }
    void stop() const { kill(process_, SIGSTOP); }

  private:
    void readLine(int output) {
        char c = 0;
        while (read(output, &c, 1) == 1 && c != '\n') line_ += c;
    }

    pid_t process_ = -1;
    std::string line_;
};

class JobTimers : public testing::Test {
  protected:
    JobTimers() {
        for (std::string* path :
             {&host_.atJobs, &host_.crontab, &host_.cronFolder, &host_.userCrontabs})
            *path = folder_ / "none";
    }
    void SetUp() override {
#ifndef VELMORA_HAS_SYSTEMD
        GTEST_SKIP() << "built without libsystemd";
#endif
    }

    // A bus of its own and the manager on it. Empty when they run, otherwise the reason why not.
    std::string start(const std::string& mode) {
        const std::string configuration = folder_ / "bus.conf";
        // One that starts no services by itself.
        std::ofstream(configuration)
            << "<busconfig><type>session</type><listen>unix:path=" << folder_ / "bus"
            << "</listen><auth>EXTERNAL</auth><policy context='default'>"
               "<allow send_destination='*'/><allow receive_sender='*'/><allow own='*'/>"
               "</policy></busconfig>";
        bus_ = std::make_unique<RunningProgram>(
            std::vector<std::string>{"dbus-daemon", "--config-file=" + configuration, "--nofork",
                                     "--nopidfile", "--nosyslog", "--print-address"});
        if (bus_->firstLine().empty()) return "no dbus-daemon here";
        if (std::system("/usr/bin/python3 -c 'import dbus, gi' 2>/dev/null") != 0) {
            return "no python3-dbus or python3-gi here";
        }
        address_ = std::make_unique<Environment>("DBUS_SYSTEM_BUS_ADDRESS", bus_->firstLine());
        manager_ = std::make_unique<RunningProgram>(
            std::vector<std::string>{"/usr/bin/python3", managerScript(), asked_, mode});
        EXPECT_EQ(manager_->firstLine(), "ready");
        return {};
    }
    static std::string managerScript() {
        const std::string here = __FILE__;
        return here.substr(0, here.rfind('/') + 1) + "timer_manager.py";
    }

    TestFolder folder_;
    InventoryZone zone_{"UTC0"};
    HostSources host_;
    std::string asked_ = folder_ / "asked";
    std::unique_ptr<RunningProgram> bus_;
    std::unique_ptr<Environment> address_;
    std::unique_ptr<RunningProgram> manager_;
};

TEST_F(JobTimers, EachHasUnitStartAndResult) {
    if (const auto reason = start(""); !reason.empty()) GTEST_SKIP() << reason;
    const auto records = readRecords(*jobSource(host_), 100);
    ASSERT_EQ(records.size(), 5u);
    EXPECT_EQ(records[0], (Record{{"Caption", "Backup?of all"},
                                  {"Command", "backup.service"},
                                  {"Description", "Backup?of all"},
                                  {"JobStatus", "Success"},
                                  {"Name", "backup.timer"},
                                  {"StartTime", "20261122052947.123456+000"}}));
    EXPECT_EQ(records[1], (Record{{"Caption", "Never again"},
                                  {"Command", "idle.service"},
                                  {"Description", "Never again"},
                                  {"JobStatus", "Failure"},
                                  {"Name", "idle.timer"}}));
    EXPECT_EQ(records[2], (Record{{"Caption", "Other"},
                                  {"Command", "other?.service"},
                                  {"Description", "Other"},
                                  {"JobStatus", "Failure"},
                                  {"Name", "other.timer"}}));
    EXPECT_EQ(records[3],
              (Record{{"Caption", "Bare"}, {"Description", "Bare"}, {"Name", "bare.timer"}}));
    // An hour after the manager began, which was a moment ago.
    constexpr std::int64_t hour = 3600;
    const std::int64_t now = std::time(nullptr);
    EXPECT_GT(records[4].at("StartTime"), cimTime((now + hour - 120) * 1'000'000));
    EXPECT_LT(records[4].at("StartTime"), cimTime((now + hour + 5) * 1'000'000));
}

TEST_F(JobTimers, ATimerIsAskedAboutWhenItIsRead) {
    if (const auto reason = start(""); !reason.empty()) GTEST_SKIP() << reason;
    const auto source = jobSource(host_);
    EXPECT_EQ(contentsOf(asked_), "");
    ASSERT_TRUE(source->next());
    const std::string first =
        "list [] ['*.timer']\nt0 Unit\nt0 NextElapseUSecRealtime\nt0 Result\n";
    EXPECT_EQ(contentsOf(asked_), first);
    ASSERT_TRUE(source->next());
    EXPECT_EQ(contentsOf(asked_),
              first +
                  "t1 Unit\nt1 NextElapseUSecRealtime\nt1 NextElapseUSecMonotonic\n"
                  "t1 Result\n");
}

// Far more than one deadline, and less than one for each timer.
constexpr std::chrono::seconds patience(6);

// How long something takes.
template <typename Step>
std::chrono::steady_clock::duration timeOf(Step&& step) {
    const auto begin = std::chrono::steady_clock::now();
    step();
    return std::chrono::steady_clock::now() - begin;
}

TEST_F(JobTimers, AManagerThatFallsSilentEndsTheList) {
    if (const auto reason = start("silent"); !reason.empty()) GTEST_SKIP() << reason;
    std::vector<Record> records;
    EXPECT_LT(timeOf([&] { records = readRecords(*jobSource(host_), 100); }), patience);
    EXPECT_EQ(propertyOfAll(records, "Name"), std::vector<std::string>{"backup.timer"});
    EXPECT_EQ(propertyOfAll(records, "Command"), std::vector<std::string>{"(missing)"});
}

TEST_F(JobTimers, AStoppedManagerHasNoTimers) {
    if (const auto reason = start(""); !reason.empty()) GTEST_SKIP() << reason;
    manager_->stop();
    EXPECT_LT(timeOf([&] { EXPECT_FALSE(jobSource(host_)->next()); }), patience);
}

TEST_F(JobTimers, ABusThatEndsMeanwhileEndsTheList) {
    if (const auto reason = start(""); !reason.empty()) GTEST_SKIP() << reason;
    const auto source = jobSource(host_);
    EXPECT_TRUE(source->next());
    bus_.reset();
    EXPECT_LT(timeOf([&] { EXPECT_LE(readRecords(*source, 100).size(), 1u); }), patience);
}

TEST_F(JobTimers, NobodyOnTheBusAndNoBusGiveNoTimer) {
    if (const auto reason = start(""); !reason.empty()) GTEST_SKIP() << reason;
    manager_.reset();
    EXPECT_FALSE(jobSource(host_)->next());
    bus_.reset();
    EXPECT_FALSE(jobSource(host_)->next());
    const Environment none("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + (folder_ / "none"));
    EXPECT_FALSE(jobSource(host_)->next());
    const Environment nonsense("DBUS_SYSTEM_BUS_ADDRESS", "nonsense");
    EXPECT_FALSE(jobSource(host_)->next());
}

TEST_F(JobTimers, ASocketThatStaysSilentIsGivenUp) {
    const UniqueFd listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder_ / "silent";
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.c_str(), path.size());
    ASSERT_EQ(bind(listener.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listener.get(), 1), 0);
    const Environment bus("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + path);
    EXPECT_LT(timeOf([&] { EXPECT_FALSE(jobSource(host_)->next()); }), patience);
    // It was this one that didn't answer.
    EXPECT_TRUE(UniqueFd(accept4(listener.get(), nullptr, nullptr, SOCK_NONBLOCK)).isOpen());
}

}  // namespace
}  // namespace velmora::linuxhost
