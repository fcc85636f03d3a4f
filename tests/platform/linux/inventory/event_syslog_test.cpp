#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "platform/linux/inventory/event_records.h"
#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

using Texts = std::vector<std::string>;

// Bytes that this process has read by calls, from its first day on; -1 when the host doesn't tell.
long long bytesReadByCalls() {
    std::ifstream file("/proc/self/io");
    std::string name;
    long long bytes = -1;
    file >> name >> bytes;
    return name == "rchar:" ? bytes : -1;
}

class EventSyslog : public testing::Test {
  protected:
    EventSyslog() {
        host_.journal = folder_ / "no journal";
        host_.syslog = folder_ / "syslog";
    }
    std::vector<Record> read(std::size_t most = 100) const {
        return readRecords(*eventSource(host_), most);
    }
    // How many bytes the last ten events cost behind so much of a hole.
    long long costBehind(off_t size) const {
        std::ofstream(host_.syslog, std::ios::trunc).close();
        EXPECT_EQ(truncate(host_.syslog.c_str(), size), 0);
        std::ofstream end(host_.syslog, std::ios::app);
        for (int i = 0; i < 10'000; ++i) end << "\nNov 22 05:29:47 box cron[1]: event " << i;
        end.close();
        const long long before = bytesReadByCalls();
        EXPECT_EQ(propertyOfAll(read(10), "Message"),
                  (Texts{"event 9999", "event 9998", "event 9997", "event 9996", "event 9995",
                         "event 9994", "event 9993", "event 9992", "event 9991", "event 9990"}));
        return bytesReadByCalls() - before;
    }

    TestFolder folder_;
    InventoryZone zone_{"UTC0"};
    HostSources host_;
};

TEST_F(EventSyslog, IsReadWhereThereIsNoJournal) {
    std::ofstream(host_.syslog) << "no form\n"
                                << "2026-11-22T05:29:47.123456+01:00 box cron[7]: run\n"
                                << "2026-11-22T05:29:48Z box\x01 cr\xFFon: two\tthree\n";
    const auto records = read();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0], (Record{{"ComputerName", "box?"},
                                  {"Logfile", "syslog"},
                                  {"Message", "two\tthree"},
                                  {"SourceName", "cr\xEF\xBF\xBDon"},
                                  {"TimeGenerated", "20261122052948.000000+000"},
                                  {"TimeWritten", "20261122052948.000000+000"}}));
    EXPECT_EQ(records[1], (Record{{"ComputerName", "box"},
                                  {"Logfile", "syslog"},
                                  {"Message", "run"},
                                  {"SourceName", "cron"},
                                  {"TimeGenerated", "20261122042947.123456+000"},
                                  {"TimeWritten", "20261122042947.123456+000"}}));
    EXPECT_EQ(records[2], (Record{{"Message", "no form"}}));
}

TEST_F(EventSyslog, NeitherFileGivesNoEvent) {
    EXPECT_TRUE(read().empty());
}

TEST_F(EventSyslog, TheEndStaysTheEnd) {
    std::ofstream(host_.syslog) << "one\n";
    const auto source = eventSource(host_);
    EXPECT_TRUE(source->next());
    EXPECT_FALSE(source->next());
    EXPECT_FALSE(source->next());
}

TEST_F(EventSyslog, AGigabyteCostsWhatAMegabyteDoes) {
    if (bytesReadByCalls() < 0) GTEST_SKIP() << "/proc/self/io can't be read here";
    const long long small = costBehind(1 << 20);
    const long long large = costBehind(1 << 30);
    // Reading /proc/self/io counts, too; its length differs by some digits.
    EXPECT_NEAR(static_cast<double>(small), static_cast<double>(large), 200);
    EXPECT_LT(large, 256 * 1024);
    EXPECT_GT(small, 300);
}

}  // namespace
}  // namespace velmora::linuxhost
