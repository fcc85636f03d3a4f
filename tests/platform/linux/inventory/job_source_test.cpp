#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

#include "platform/linux/inventory/event_records.h"
#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class JobSource : public testing::Test {
  protected:
    JobSource() {
        host_.atJobs = folder_ / "atjobs";
        host_.crontab = folder_ / "crontab";
        host_.cronFolder = folder_ / "cron.d";
        host_.userCrontabs = folder_ / "crontabs";
        for (const std::string& path : {host_.atJobs, host_.cronFolder, host_.userCrontabs})
            std::filesystem::create_directory(path);
    }
    void write(const std::string& path, const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
    }
    void writeAtJob(const std::string& name, const std::string& command) {
        const std::string path = host_.atJobs + '/' + name;
        write(path, "#!/bin/sh\numask 22\ncd / || {\n\t exit 1\n}\n" + command);
        timespec times[2] = {{1795325387, 0}, {1795325387, 250'000'000}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
    std::vector<Record> read() const { return readRecords(*jobSource(host_), 1000); }
    std::vector<std::string> commands() const { return propertyOfAll(read(), "Command"); }

    TestFolder folder_;
    InventoryZone zone_{"TST-5:30"};
    Environment noBus_{"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + (folder_ / "no bus")};
    HostSources host_;
};

using JobTexts = std::vector<std::string>;

TEST_F(JobSource, NothingThereGivesNoJob) {
    std::filesystem::remove_all(host_.atJobs);
    std::filesystem::remove_all(host_.cronFolder);
    std::filesystem::remove_all(host_.userCrontabs);
    EXPECT_TRUE(read().empty());
}

TEST_F(JobSource, AnAtJobHasNumberOwnerAndTimes) {
    // 0x01c90000 minutes are 29949952, that is 11 December 2026 13:52 in UTC.
    writeAtJob("a0002301c90000", "echo\tone\necho two\n");
    if (geteuid() == 0) {
        ASSERT_EQ(chown((host_.atJobs + "/a0002301c90000").c_str(), 3999999999u, 0), 0);
    }
    const auto records = read();
    ASSERT_EQ(records.size(), 1u);
    Record expected{{"Command", "echo one; echo two"},
                    {"JobId", "35"},
                    {"Name", "a0002301c90000"},
                    {"Owner", "3999999999"},
                    {"RunRepeatedly", "False"},
                    {"StartTime", "20261211192200.000000+330"},
                    {"TimeSubmitted", "20261122105947.250000+330"}};
    if (geteuid() != 0) expected["Owner"] = records[0].at("Owner");
    EXPECT_EQ(records[0], expected);
}

TEST_F(JobSource, AnOwnerHasAName) {
    const passwd* user = getpwuid(geteuid());
    ASSERT_NE(user, nullptr);
    writeAtJob("=0002301c90000", "x\n");
    EXPECT_EQ(propertyOfAll(read(), "Owner"), JobTexts{user->pw_name});
}

TEST_F(JobSource, OtherFilesAmongAtJobsArePassedOver) {
    writeAtJob("a0000201c90000", "two\n");
    writeAtJob(".SEQ", "no\n");
    writeAtJob("a0000101c90000", "one\n");
    std::filesystem::create_directory(host_.atJobs + "/a0000001c90000");
    ASSERT_EQ(mkfifo((host_.atJobs + "/a0000301c90000").c_str(), 0600), 0);
    EXPECT_EQ(commands(), (JobTexts{"one", "two"}));
}

TEST_F(JobSource, QueuesHaveAnyLetterAndFilesOfCronAnyLetterAndDigit) {
    for (const char* queue : {"a", "z", "A", "Z"})
        writeAtJob(std::string(queue) + "0000101c90000", "at\n");
    writeAtJob("@0000101c90000", "no\n");
    write(host_.cronFolder + "/azAZ09_-", "@daily me cron\n");
    EXPECT_EQ(commands(), (JobTexts{"at", "at", "at", "at", "cron"}));
}

TEST_F(JobSource, ALineOfTheCrontabIsAJob) {
    write(host_.crontab, "SHELL=/bin/sh\n# note\n05 4\t1,15 * mon-fri root\techo\thello\n");
    const auto records = read();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0], (Record{{"Caption", "05 4 1,15 * mon-fri"},
                                  {"Command", "echo hello"},
                                  {"DaysOfMonth", "16385"},
                                  {"DaysOfWeek", "31"},
                                  {"Description", "05 4 1,15 * mon-fri"},
                                  {"Name", host_.crontab},
                                  {"Owner", "root"},
                                  {"RunRepeatedly", "True"},
                                  {"StartTime", "********040500.000000+330"}}));
}

// A zone's file (RFC 8536, version 1): an hour from UTC until the year 2000, three and a half
// since.
std::string zoneThatWasMoved() {
    std::string file = "TZif";
    const auto add = [&file](std::uint32_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            file += static_cast<char>(value >> shift & 0xFF);
    };
    file += std::string(16, '\0');
    for (const std::uint32_t count : {0, 0, 0, 1, 2, 4}) add(count);
    add(946'684'800);
    file += '\1';
    for (const std::uint32_t offset : {3600, 12'600}) {
        add(offset);
        file += std::string(2, '\0');
    }
    return file + std::string("TST\0", 4);
}

TEST_F(JobSource, ATimeOfAnyDayHasThePresentOffset) {
    write(folder_ / "zone", zoneThatWasMoved());
    const InventoryZone moved(":" + (folder_ / "zone"));
    write(host_.crontab, "5 4 * * * root echo\n");
    EXPECT_EQ(propertyOfAll(read(), "StartTime"), JobTexts{"********040500.000000+210"});
}

TEST_F(JobSource, ANameForTheTimeIsAllThatIsKnownOfIt) {
    write(host_.crontab, "@reboot me start\n");
    const auto records = read();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0], (Record{{"Caption", "@reboot"},
                                  {"Command", "start"},
                                  {"Description", "@reboot"},
                                  {"Name", host_.crontab},
                                  {"Owner", "me"},
                                  {"RunRepeatedly", "True"}}));
}

TEST_F(JobSource, AUsersCrontabHasItsName) {
    write(host_.userCrontabs + "/anna", "0 1 * * * date +\\%d%input\r\n");
    write(host_.userCrontabs + "/.hidden", "0 1 * * * no\n");
    const auto records = read();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0], (Record{{"Caption", "0 1 * * *"},
                                  {"Command", "date +%d"},
                                  {"Description", "0 1 * * *"},
                                  {"Name", host_.userCrontabs + "/anna"},
                                  {"Owner", "anna"},
                                  {"RunRepeatedly", "True"},
                                  {"StartTime", "********010000.000000+330"}}));
}

TEST_F(JobSource, CronPassesOverFilesWithOtherNames) {
    for (const std::string name :
         {"b_2-x", "A1", "x.dpkg-old", "y~", "#z#", ".placeholder", "w w", "\xC3\xB6"})
        write(host_.cronFolder + '/' + name, "* * * * * me " + name + '\n');
    EXPECT_EQ(commands(), (JobTexts{"A1", "b_2-x"}));
}

TEST_F(JobSource, TheSourcesComeInTheirOrder) {
    write(host_.userCrontabs + "/zoe", "@daily user2\n");
    write(host_.userCrontabs + "/anna", "@daily user1\n");
    write(host_.cronFolder + "/two", "@daily me folder3\n");
    write(host_.cronFolder + "/one", "@daily me folder1\n@daily me folder2\n");
    write(host_.crontab, "@daily me table\n");
    writeAtJob("a0000101c90000", "at\n");
    EXPECT_EQ(commands(),
              (JobTexts{"at", "table", "folder1", "folder2", "folder3", "user1", "user2"}));
}

TEST_F(JobSource, AFileIsReadWhenItsTurnComes) {
    write(host_.crontab, "@daily me table\n");
    write(host_.cronFolder + "/one", "@daily me old\n");
    const auto source = jobSource(host_);
    EXPECT_EQ(source->next().value_or(Record{})["Command"], "table");
    write(host_.cronFolder + "/one", "@daily me new\n");
    EXPECT_EQ(source->next().value_or(Record{})["Command"], "new");
}

TEST_F(JobSource, WhatCannotBeReadIsPassedOver) {
    if (const auto reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    writeAtJob("a0000101c90000", "secret\n");
    writeAtJob("a0000201c90000", "open\n");
    write(host_.cronFolder + "/one", "@daily me secret\n");
    write(host_.cronFolder + "/two", "@daily me open\n");
    write(host_.userCrontabs + "/anna", "@daily secret\n");
    ASSERT_EQ(chmod((host_.atJobs + "/a0000101c90000").c_str(), 0600), 0);
    ASSERT_EQ(chmod((host_.cronFolder + "/one").c_str(), 0600), 0);
    ASSERT_EQ(chmod(host_.userCrontabs.c_str(), 0700), 0);
    ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
    EXPECT_EQ(commands().size(), 5u);
    EXPECT_EQ(asNobody([&] { return commands() == JobTexts{"open", "open"} ? 0 : 1; }), 0);
}

TEST_F(JobSource, ATextIsALine) {
    write(host_.crontab, std::string("@daily m\x01\x02 a\xFFz\x1B[2J\n"));
    const auto records = read();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].at("Owner"), "m??");
    EXPECT_EQ(records[0].at("Command"), "a\xEF\xBF\xBDz?[2J");
}

}  // namespace
}  // namespace velmora::linuxhost
