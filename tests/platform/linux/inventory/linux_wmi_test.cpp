#include "platform/linux/inventory/linux_wmi.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <iostream>

#include "base/errors.h"
#include "made_machine.h"
#include "platform/linux/support/hung_filesystem.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/system/left_children.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr const char* ownPlace = R"(winmgmts:\\\\.\root\cimv2)";
constexpr const char* allProcesses = "Select * from Win32_Process";
constexpr const char* allLogins = "Select * from Win32_LoggedOnUser";
using Values = std::vector<std::string>;

std::string kernelsHostName() {
    std::string name = contentsOf("/proc/sys/kernel/hostname");
    return name.substr(0, name.find('\n'));
}

class LinuxWmiTest : public testing::Test {
  protected:
    // Processes that earlier tests have left would go while this one counts.
    LinuxWmiTest() {
        EXPECT_TRUE(waitUntil([] { return reapLeftChildren() == 0; }));
        childrenBefore_ = childrenOfThisProcess();
    }

    std::unique_ptr<WmiServices> connect() { return wmi_.GetObject(ownPlace); }
    Values valuesOf(const std::string& query, const std::string& property) {
        const auto services = connect();
        return allOf(*services->ExecQuery(query, "WQL", 48), property);
    }

    MadeMachine made_;
    LinuxWmi wmi_{made_.sources()};
    std::size_t childrenBefore_ = 0;
};

TEST_F(LinuxWmiTest, AMonikerOfThisMachineIsTaken) {
    for (const char* moniker : {R"(winmgmts:\\\\.\root\cimv2)", R"(winmgmts:\\.\root\cimv2)",
                                R"(WinMgmts:\.\ROOT\CIMV2)"})
        EXPECT_NE(wmi_.GetObject(moniker), nullptr) << moniker;
    for (const char* moniker :
         {"", "winmgmts:", R"(\\.\root\cimv2)", R"(winmgmts:\\other\root\cimv2)",
          R"(winmgmts:\\.\root\default)", R"(winmgmts:\\.\root\cimv2\x)", R"(winmgmts:\\\\)",
          R"(winmgmts:\\.root\cimv2)"})
        EXPECT_EQ(errorOf([&] { wmi_.GetObject(moniker); }), error::automation) << moniker;
}

TEST_F(LinuxWmiTest, TheLocatorTakesThisMachine) {
    EXPECT_NE(wmi_.ConnectServer(".", "root\\cimv2"), nullptr);
    EXPECT_NE(wmi_.ConnectServer(".", "ROOT\\CIMV2"), nullptr);
    EXPECT_EQ(errorOf([&] { wmi_.ConnectServer("other", "root\\cimv2"); }), error::automation);
    EXPECT_EQ(errorOf([&] { wmi_.ConnectServer(".", "root\\default"); }), error::automation);
}

TEST_F(LinuxWmiTest, AConnectionStartsNoProcess) {
    const auto services = connect();
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    EXPECT_EQ(errorOf([&] { services->ExecQuery("Select * from Win32_Service", "WQL", 0); }),
              error::automation);
    EXPECT_EQ(errorOf([&] { services->ExecQuery(allProcesses, "SQL", 0); }), error::automation);
    EXPECT_EQ(errorOf([&] { services->ExecQuery("", "WQL", 0); }), error::automation);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    services->ExecQuery(allProcesses, "wql", -1);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_ + 1);
}

TEST_F(LinuxWmiTest, PropertiesHaveNoCaseAndKeepTheirOrder) {
    made_.addProcess(7, "seven");
    const auto services = connect();
    const auto records = services->ExecQuery(allProcesses, "WQL", 0);
    const auto record = records->Next();
    ASSERT_TRUE(record);
    const auto values = record->Properties({"NAME", "nothing", "processid", "Status"});
    ASSERT_EQ(values.size(), 4u);
    EXPECT_EQ(values[0].text, "seven");
    EXPECT_EQ(values[1].kind, WmiValue::Kind::missing);
    EXPECT_EQ(values[2].text, "7");
    EXPECT_EQ(values[3].kind, WmiValue::Kind::missing);
    EXPECT_EQ(records->Next(), nullptr);
}

TEST_F(LinuxWmiTest, ProcessesAreSortedByTheirNumbersAndThoseThatEndedLeftOut) {
    made_.addProcess(100, "c");
    made_.addProcess(9, "a");
    made_.addProgram(20, "/opt/b (deleted)");
    std::filesystem::create_directory(made_.folderOf(50));  // no longer has a status
    std::filesystem::create_directory(made_.at("proc/self"));
    std::filesystem::create_directory(made_.at("proc/7x"));
    made_.write("proc/30", "no folder");
    EXPECT_EQ(valuesOf(allProcesses, "ProcessId"), (Values{"9", "20", "100"}));
    EXPECT_EQ(valuesOf(allProcesses, "Name"), (Values{"a", "b", "c"}));
}

TEST_F(LinuxWmiTest, AProcessThatEndsDuringTheQueryIsLeftOut) {
    for (int id = 1; id <= 3; ++id) made_.addProcess(id, "p");
    const auto services = connect();
    const auto records = services->ExecQuery(allProcesses, "WQL", 0);
    ASSERT_TRUE(records->Next());
    std::filesystem::remove_all(made_.folderOf(2));
    EXPECT_EQ(allOf(*records, "ProcessId"), Values{"3"});
}

TEST_F(LinuxWmiTest, FilesOfAProcessAreCounted) {
    made_.addProcess(5, "p");
    std::filesystem::create_directory(made_.folderOf(5) + "/fd");
    for (const char* file : {"0", "1", "2", "17"})
        std::filesystem::create_symlink("/dev/null", made_.folderOf(5) + "/fd/" + file);
    made_.addProcess(6, "q");
    EXPECT_EQ(valuesOf(allProcesses, "HandleCount"), (Values{"4", "missing"}));
}

TEST_F(LinuxWmiTest, FiftyThousandProcessesAreRead) {
    constexpr int count = 50'000;
    const auto begin = steady_clock::now();
    made_.addProcess(1, "many");
    for (int id = 2; id <= count; ++id)
        std::filesystem::create_directory_symlink("1", made_.folderOf(id));
    const auto start = steady_clock::now();
    const auto ids = valuesOf(allProcesses, "ProcessId");
    const auto end = steady_clock::now();
    std::cout << "50,000 processes made in " << (start - begin) / 1ms << " ms, read in "
              << (end - start) / 1ms << " ms\n";
    ASSERT_EQ(ids.size(), std::size_t{count});
    for (int place = 0; place < count; ++place)
        ASSERT_EQ(ids[static_cast<std::size_t>(place)], std::to_string(place + 1));
}

TEST_F(LinuxWmiTest, ThereIsOneRecordOfMemory) {
    made_.write("proc/meminfo", "Cached: 2 kB\nBuffers: 1 kB\n");
    made_.write("proc/vmstat", "pgmajfault 8\n");
    made_.write("modules", "one 100 0 - Live 0x0\ntwo 11 0 - Live 0x0\n");
    const std::string query = "Select * from Win32_PerfRawData_PerfOS_Memory";
    EXPECT_EQ(valuesOf(query, "CacheBytes"), Values{"3072"});
    EXPECT_EQ(valuesOf(query, "CacheFaultsPersec"), Values{"8"});
    EXPECT_EQ(valuesOf(query, "SystemDriverTotalBytes"), Values{"111"});
    EXPECT_EQ(valuesOf(query, "CacheBytesPeak"), Values{"missing"});
    std::filesystem::remove(made_.at("modules"));
    EXPECT_EQ(valuesOf(query, "SystemDriverTotalBytes"), Values{"missing"});
}

TEST_F(LinuxWmiTest, LoginsLeadToAccounts) {
    made_.addLogin(BOOT_TIME, "reboot", "~");
    made_.addLogin(USER_PROCESS, "root", "pts/0");
    made_.addLogin(LOGIN_PROCESS, "LOGIN", "tty1");
    made_.addLogin(USER_PROCESS, "root", "pts/1");
    made_.addLogin(DEAD_PROCESS, "root", "pts/2");
    const std::string host = kernelsHostName();
    const std::string account =
        R"(\\)" + host + R"(\root\cimv2:Win32_UserAccount.Domain=")" + host + R"(",Name="root")";
    const std::string session = R"(\\)" + host + R"(\root\cimv2:Win32_LogonSession.LogonId=)";
    EXPECT_EQ(valuesOf(allLogins, "Antecedent"), (Values{account, account}));
    EXPECT_EQ(valuesOf(allLogins, "Dependent"),
              (Values{session + "\"pts/0\"", session + "\"pts/1\""}));

    const auto found = connect()->Get(account);
    const auto values =
        found->Properties({"SIDType", "Domain", "Name", "Caption", "FullName", "SID"});
    EXPECT_EQ(values.at(0).text, "1");
    EXPECT_EQ(values.at(1).text, host);
    EXPECT_EQ(values.at(2).text, "root");
    EXPECT_EQ(values.at(3).text, host + "\\root");
    const std::string onUser = getpwnam("root")->pw_gecos;
    EXPECT_EQ(values.at(4).text, onUser.substr(0, onUser.find(',')));
    EXPECT_EQ(values.at(5).kind, WmiValue::Kind::missing);
}

TEST_F(LinuxWmiTest, AnUnknownUserHasNoAccountAndTheNextOneHas) {
    made_.addLogin(USER_PROCESS, "no such user here", "pts/0");
    made_.addLogin(USER_PROCESS, "root", "pts/1");
    const auto services = connect();
    const auto paths = allOf(*services->ExecQuery(allLogins, "WQL", 0), "Antecedent");
    ASSERT_EQ(paths.size(), 2u);
    EXPECT_EQ(errorOf([&] { services->Get(paths[0]); }), error::automation);
    EXPECT_NE(services->Get(paths[1]), nullptr);
    EXPECT_EQ(errorOf([&] { services->Get(""); }), error::automation);
    std::string elsewhere = paths[1];
    elsewhere.replace(elsewhere.find("Domain=\"") + 8, kernelsHostName().size(), "elsewhere");
    EXPECT_EQ(errorOf([&] { services->Get(elsewhere); }), error::automation);
}

TEST_F(LinuxWmiTest, ANameMayFillItsFieldAndContainAnything) {
    made_.addLogin(USER_PROCESS, std::string(40, 'n'), "li\"ne\\\n");
    const std::string host = kernelsHostName();
    EXPECT_EQ(valuesOf(allLogins, "Antecedent"),
              Values{R"(\\)" + host + R"(\root\cimv2:Win32_UserAccount.Domain=")" + host +
                     R"(",Name=")" + std::string(32, 'n') + '"'});
    EXPECT_EQ(valuesOf(allLogins, "Dependent"),
              Values{R"(\\)" + host + R"(\root\cimv2:Win32_LogonSession.LogonId="li\"ne\\?")"});
}

TEST_F(LinuxWmiTest, OfACutFileOfLoginsTheWholeEntriesCount) {
    made_.addLogin(USER_PROCESS, "root", "pts/0");
    made_.addLogin(USER_PROCESS, "root", "pts/1");
    const auto size = std::filesystem::file_size(made_.at("utmp"));
    for (const std::uintmax_t left : {size - 1, size / 2 + 1, size / 2}) {
        std::filesystem::resize_file(made_.at("utmp"), left);
        EXPECT_EQ(valuesOf(allLogins, "Antecedent").size(), 1u) << left;
    }
    std::filesystem::resize_file(made_.at("utmp"), size / 2 - 1);
    EXPECT_EQ(valuesOf(allLogins, "Antecedent").size(), 0u);
    std::filesystem::resize_file(made_.at("utmp"), 0);
    EXPECT_EQ(valuesOf(allLogins, "Antecedent").size(), 0u);
}

TEST_F(LinuxWmiTest, ASourceThatStallsLaterGivesWhatCameFirst) {
    made_.addProcess(1, "a");
    made_.addProcess(2, "b");
    std::filesystem::create_directory(made_.folderOf(3));
    ASSERT_EQ(mkfifo((made_.folderOf(3) + "/stat").c_str(), 0600), 0);
    made_.addProcess(4, "d");
    const auto services = connect();
    const auto records = services->ExecQuery(allProcesses, "WQL", 0);
    EXPECT_TRUE(records->Next());
    EXPECT_TRUE(records->Next());
    const auto start = steady_clock::now();
    EXPECT_EQ(errorOf([&] { records->Next(); }), error::automation);
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    EXPECT_EQ(errorOf([&] { records->Next(); }), error::automation);
    EXPECT_EQ(errorOf([&] { services->ExecQuery(allProcesses, "WQL", 0); }), error::automation);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    // Another connection has a process of its own.
    std::filesystem::remove_all(made_.folderOf(3));
    EXPECT_EQ(valuesOf(allProcesses, "ProcessId"), (Values{"1", "2", "4"}));
}

TEST_F(LinuxWmiTest, AThousandReportsLeaveNothingBehind) {
    made_.addProcess(1, "a");
    made_.addLogin(USER_PROCESS, "root", "pts/0");
    const std::size_t descriptors = openDescriptors();
    for (int report = 0; report < 1000; ++report) {
        const auto services = connect();
        const auto processes = services->ExecQuery(allProcesses, "WQL", 48);
        ASSERT_TRUE(processes->Next());
        const auto login = services->ExecQuery(allLogins, "WQL", 32)->Next();
        ASSERT_TRUE(login);
        ASSERT_TRUE(services->Get(login->Properties({"Antecedent"}).at(0).text));
    }
    EXPECT_EQ(reapLeftChildren(), 0u);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    EXPECT_EQ(openDescriptors(), descriptors);
}

class HungMachine : public testing::Test {
  protected:
    void SetUp() override {
        std::string reason = whyNoMounting();
        if (reason.empty()) reason = whyNoHungFilesystem();
        if (!reason.empty()) {
            std::cout << "skipped: " << reason << '\n';
            GTEST_SKIP() << reason;
        }
        reapLeftChildren();
        filesystem_ = std::make_unique<HungFilesystem>();
        ASSERT_TRUE(waitUntil([this] {
            struct statx status {};
            return statx(AT_FDCWD, (filesystem_->path() + "/endless").c_str(), 0, STATX_BASIC_STATS,
                         &status) == 0;
        }));
    }

    std::unique_ptr<HungFilesystem> filesystem_;
};

TEST_F(HungMachine, AListingThatHangsIsAnErrorAfterTheDeadlineAndItsProcessGoes) {
    const std::size_t children = childrenOfThisProcess();
    const std::size_t descriptors = openDescriptors();
    {
        HostSources sources;
        sources.proc = filesystem_->path() + "/endless";
        LinuxWmi wmi(sources);
        const auto services = wmi.GetObject(ownPlace);
        const auto start = steady_clock::now();
        EXPECT_EQ(errorOf([&] { services->ExecQuery(allProcesses, "WQL", 0)->Next(); }),
                  error::automation);
        EXPECT_GE(steady_clock::now() - start, 1900ms);
        EXPECT_LT(steady_clock::now() - start, 4s);
        const auto later = steady_clock::now();
        EXPECT_EQ(errorOf([&] { services->ExecQuery(allProcesses, "WQL", 0); }), error::automation);
        EXPECT_LT(steady_clock::now() - later, 1900ms);
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    // A process within a request to the filesystem ends only when that is answered.
    filesystem_->answerFromNowOn();
    EXPECT_TRUE(waitUntil([] { return reapLeftChildren() == 0; }));
    EXPECT_EQ(childrenOfThisProcess(), children);
}

TEST_F(HungMachine, AFileOfAProcessThatHangsCostsTheFollowingOnes) {
    MadeMachine made;
    made.addProcess(1, "a");
    std::filesystem::create_symlink(filesystem_->path() + "/stuck", made.folderOf(2));
    LinuxWmi wmi(made.sources());
    const auto services = wmi.GetObject(ownPlace);
    const auto records = services->ExecQuery(allProcesses, "WQL", 0);
    EXPECT_TRUE(records->Next());
    EXPECT_EQ(errorOf([&] { records->Next(); }), error::automation);
    filesystem_->answerFromNowOn();
    EXPECT_TRUE(waitUntil([] { return reapLeftChildren() == 0; }));
}

}  // namespace
}  // namespace velmora::linuxhost
