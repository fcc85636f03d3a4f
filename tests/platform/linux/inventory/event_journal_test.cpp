#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "platform/linux/inventory/event_made_journal.h"
#include "platform/linux/inventory/event_records.h"
#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/programs/program_order.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

constexpr std::uint64_t firstEntry = 1795325387'000000;  // 22 November 2026, 05:29:47 UTC
constexpr std::uint64_t oneSecond = 1'000'000;

class EventJournal : public testing::Test {
  protected:
    void SetUp() override {
        if (const std::string reason = whyNoJournal(); !reason.empty()) GTEST_SKIP() << reason;
        host_.journal = journal_.path();
        host_.syslog = folder_ / "no syslog";
    }
    void addNumbered(int count) {
        for (int i = 0; i < count; ++i)
            journal_.add(firstEntry + static_cast<std::uint64_t>(i) * oneSecond,
                         {{"MESSAGE", "message " + std::to_string(i)}, {"_UID", "0"}});
    }
    std::vector<Record> read(std::size_t most = 100'000) const {
        return readRecords(*eventSource(host_), most);
    }
    // The last bytes that are in use, up to the zeros that the file is filled up with.
    std::size_t usedBytes() const { return contentsOf(host_.journal).find_last_not_of('\0') + 1; }
    void overwrite(std::size_t from, std::size_t size) const {
        std::fstream file(host_.journal, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(static_cast<std::streamoff>(from));
        file << std::string(size, '\xFF');
    }

    TestFolder folder_;
    InventoryZone zone_{"UTC0"};
    MadeJournal journal_{folder_ / "made.journal"};
    HostSources host_;
};

// What a program prints.
std::string outputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
    std::string output;
    char piece[4096];
    while (pipe && !feof(pipe.get()))
        output.append(piece, fread(piece, 1, sizeof piece, pipe.get()));
    return output;
}

// The values of a field, an entry each, as journalctl shows them, the newest first.
std::vector<std::string> shownByJournalctl(const std::string& file, const std::string& field) {
    const std::string output =
        outputOf("journalctl -q --file '" + file + "' -r -o json 2>/dev/null");
    const std::string front = '"' + field + "\":\"";
    std::vector<std::string> values;
    for (std::size_t at = output.find(front); at != std::string::npos;
         at = output.find(front, at)) {
        at += front.size();
        values.push_back(output.substr(at, output.find('"', at) - at));
    }
    return values;
}

TEST_F(EventJournal, AnEntryHasAllThatIsKnownOfIt) {
    journal_.add(firstEntry, {{"MESSAGE", "old"}});
    journal_.add(firstEntry + oneSecond, {{"_HOSTNAME", "box"},
                                          {"SYSLOG_IDENTIFIER", "cron"},
                                          {"_COMM", "crond"},
                                          {"MESSAGE", "first\nsecond"},
                                          {"_TRANSPORT", "syslog"},
                                          {"_UID", "0"},
                                          {"SYSLOG_FACILITY", "9"},
                                          {"PRIORITY", "4"},
                                          {"_SOURCE_REALTIME_TIMESTAMP", "1795325387123456"}});
    ASSERT_TRUE(journal_.write());
    const auto records = read();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0], (Record{{"Category", "9"},
                                  {"ComputerName", "box"},
                                  {"Logfile", "syslog"},
                                  {"Message", "first\r\nsecond"},
                                  {"RecordNumber", "2"},
                                  {"SourceName", "cron"},
                                  {"TimeGenerated", "20261122052947.123456+000"},
                                  {"TimeWritten", "20261122052948.000000+000"},
                                  {"Type", "Warning"},
                                  {"User", "root"}}));
    EXPECT_EQ(records[1], (Record{{"Message", "old"},
                                  {"RecordNumber", "1"},
                                  {"TimeGenerated", "20261122052947.000000+000"},
                                  {"TimeWritten", "20261122052947.000000+000"}}));
}

TEST_F(EventJournal, AUserWithoutANameIsANumber) {
    journal_.add(firstEntry, {{"_UID", "3999999999"}});
    ASSERT_TRUE(journal_.write());
    EXPECT_EQ(propertyOfAll(read(), "User"), std::vector<std::string>{"3999999999"});
}

TEST_F(EventJournal, TheNewestEntriesComeFirst) {
    addNumbered(1000);
    ASSERT_TRUE(journal_.write());
    const auto messages = propertyOfAll(read(), "Message");
    ASSERT_EQ(messages.size(), 1000u);
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(messages[static_cast<std::size_t>(i)], "message " + std::to_string(999 - i));
    EXPECT_EQ(propertyOfAll(read(3), "RecordNumber"),
              (std::vector<std::string>{"1000", "999", "998"}));
}

TEST_F(EventJournal, JournalctlShowsTheSame) {
    addNumbered(500);
    ASSERT_TRUE(journal_.write());
    const auto shown = shownByJournalctl(host_.journal, "MESSAGE");
    if (programInPath("journalctl").empty()) GTEST_SKIP() << "no journalctl here";
    ASSERT_EQ(shown.size(), 500u);
    EXPECT_EQ(propertyOfAll(read(), "Message"), shown);
}

TEST_F(EventJournal, AJournalComesBeforeALogFile) {
    host_.syslog = folder_ / "syslog";
    std::ofstream(host_.syslog) << "a line\n";
    addNumbered(1);
    ASSERT_TRUE(journal_.write());
    EXPECT_EQ(propertyOfAll(read(), "Message"), std::vector<std::string>{"message 0"});
}

TEST_F(EventJournal, ALongMessageIsWholeUpTo64KB) {
    const std::string message(60'000, 'm');
    journal_.add(firstEntry, {{"MESSAGE", message}});
    ASSERT_TRUE(journal_.write());
    EXPECT_TRUE(propertyOfAll(read(), "Message") == std::vector<std::string>{message});
}

TEST_F(EventJournal, BehindABrokenEndIsReadWhatJournalctlReads) {
    addNumbered(300);
    ASSERT_TRUE(journal_.write());
    overwrite(usedBytes() - 2000, 2000);
    const auto shown = shownByJournalctl(host_.journal, "MESSAGE");
    const auto messages = propertyOfAll(read(), "Message");
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.back(), "message 0");
    EXPECT_LT(messages.size(), 300u);
    EXPECT_GT(messages.size(), 200u);
    if (!shown.empty()) {
        EXPECT_EQ(messages, shown);
    }
}

TEST_F(EventJournal, AnyBrokenPlaceEndsAtMostTheReading) {
    addNumbered(300);
    ASSERT_TRUE(journal_.write());
    const std::size_t used = usedBytes();
    const std::string whole = contentsOf(host_.journal);
    for (std::size_t back = 300; back < 60'000; back += 1777) {
        std::ofstream(host_.journal, std::ios::binary) << whole;
        overwrite(used - back, 300);
        EXPECT_LE(read().size(), 300u) << back;
    }
}

TEST_F(EventJournal, TheLogFileStandsInForACutJournal) {
    host_.syslog = folder_ / "syslog";
    std::ofstream(host_.syslog) << "a line\n";
    addNumbered(300);
    ASSERT_TRUE(journal_.write());
    // The header says where the file ends, and the library opens no file that ends before.
    for (const std::size_t size :
         {usedBytes() - 2000, std::size_t{200'000}, std::size_t{100}, std::size_t{0}}) {
        ASSERT_EQ(truncate(host_.journal.c_str(), static_cast<off_t>(size)), 0);
        EXPECT_EQ(propertyOfAll(read(), "Message"), std::vector<std::string>{"a line"}) << size;
    }
}

}  // namespace
}  // namespace velmora::linuxhost
