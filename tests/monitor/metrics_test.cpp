// The figures of the watch as text for programs that collect them.
#include "monitor/metrics.h"

#include "monitor/check_rig.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

struct MetricsRig : Rig {
    MetricsRig() {
        addWatchColumns(list);
        form1.txtSpace.setText("1000");
    }
    WatchRow add(const std::string& path, const std::string& free, const std::string& total) {
        WatchRow added(row(path));
        added.setFreeSpace(free);
        added.setTotalSize(total);
        return added;
    }
    WatchRow addChecked(const std::string& path, const std::string& free,
                        const std::string& total = "10,000 KB") {
        WatchRow added = add(path, free, total);
        added.setLastChecked("03/14 15:09:26");
        added.item().setChecked(true);
        return added;
    }
    std::string text() { return metricsText(forms, platform.regional, 1'773'500'966); }
    /// The lines of one figure's samples.
    std::vector<std::string> samples(const std::string& name) {
        std::vector<std::string> found;
        for (const std::string& line : split(text(), "\n")) {
            if (line.starts_with(name + '{') || line.starts_with(name + ' ')) found.push_back(line);
        }
        return found;
    }
};

using Samples = std::vector<std::string>;

TEST(MetricsTest, TheWholeTextOfOneCheckedDrive) {
    MetricsRig rig;
    rig.addChecked("C:\\", "2,500 KB");
    rig.forms.globals.lngTimesChecked = 7;
    rig.forms.globals.lngAlertsRaised = 3;
    rig.forms.globals.lngHighRatedAlerts = 2;
    EXPECT_EQ(rig.text(),
              "# TYPE velmora_watched gauge\n"
              "# HELP velmora_watched Whether the path is watched.\n"
              "velmora_watched{path=\"C:\\\\\"} 1\n"
              "# TYPE velmora_available gauge\n"
              "# HELP velmora_available Whether a watched path gave figures at the last check.\n"
              "velmora_available{path=\"C:\\\\\"} 1\n"
              "# TYPE velmora_short_of_space gauge\n"
              "# HELP velmora_short_of_space Whether a watched path is below its minimum.\n"
              "velmora_short_of_space{path=\"C:\\\\\"} 0\n"
              "# TYPE velmora_free_bytes gauge\n"
              "# UNIT velmora_free_bytes bytes\n"
              "# HELP velmora_free_bytes Free space of the path.\n"
              "velmora_free_bytes{path=\"C:\\\\\"} 2560000\n"
              "# TYPE velmora_size_bytes gauge\n"
              "# UNIT velmora_size_bytes bytes\n"
              "# HELP velmora_size_bytes Total size of the path.\n"
              "velmora_size_bytes{path=\"C:\\\\\"} 10240000\n"
              "# TYPE velmora_minimum_bytes gauge\n"
              "# UNIT velmora_minimum_bytes bytes\n"
              "# HELP velmora_minimum_bytes Free space below which the path is short.\n"
              "velmora_minimum_bytes{path=\"C:\\\\\"} 1024000\n"
              "# TYPE velmora_checks counter\n"
              "# HELP velmora_checks Finished checks since the start.\n"
              "velmora_checks_total 7\n"
              "# TYPE velmora_alerts counter\n"
              "# HELP velmora_alerts Alerts since the start.\n"
              "velmora_alerts_total 3\n"
              "# TYPE velmora_high_rated_alerts counter\n"
              "# HELP velmora_high_rated_alerts High-rated alerts since the start.\n"
              "velmora_high_rated_alerts_total 2\n"
              "# TYPE velmora_last_check_timestamp_seconds gauge\n"
              "# UNIT velmora_last_check_timestamp_seconds seconds\n"
              "# HELP velmora_last_check_timestamp_seconds End of the last check, since 1970-01-01 "
              "UTC.\n"
              "velmora_last_check_timestamp_seconds 1773500966\n"
              "# EOF\n");
}

TEST(MetricsTest, AShortageIsAFigure) {
    MetricsRig rig;
    rig.addChecked("C:\\", "999 KB");
    rig.addChecked("D:\\", "1,000 KB");
    EXPECT_EQ(rig.samples("velmora_short_of_space"),
              (Samples{"velmora_short_of_space{path=\"C:\\\\\"} 1",
                       "velmora_short_of_space{path=\"D:\\\\\"} 0"}));
}

TEST(MetricsTest, WhatIsNotKnownIsLeftOut) {
    MetricsRig rig;
    rig.addChecked("C:\\", "N/A, drive not ready", "");
    rig.add("D:\\", "2,500 KB", "10,000 KB").item().setChecked(false);
    WatchRow fresh = rig.add("E:\\", "2,500 KB", "10,000 KB");
    fresh.item().setChecked(true);
    EXPECT_EQ(rig.samples("velmora_watched"),
              (Samples{"velmora_watched{path=\"C:\\\\\"} 1", "velmora_watched{path=\"D:\\\\\"} 0",
                       "velmora_watched{path=\"E:\\\\\"} 1"}));
    EXPECT_EQ(rig.samples("velmora_available"), (Samples{"velmora_available{path=\"C:\\\\\"} 0"}));
    EXPECT_EQ(rig.samples("velmora_short_of_space"),
              (Samples{"velmora_short_of_space{path=\"C:\\\\\"} 0"}));
    EXPECT_EQ(rig.samples("velmora_free_bytes").size(), 2U);
    EXPECT_EQ(rig.samples("velmora_size_bytes").size(), 2U);
    EXPECT_EQ(rig.samples("velmora_minimum_bytes").size(), 3U);
    rig.form1.chkDrive.setValue(1);
    fresh.setTrigger("");
    EXPECT_EQ(rig.samples("velmora_minimum_bytes").size(), 2U);
}

TEST(MetricsTest, LabelsAreQuotedAndUtf8) {
    MetricsRig rig;
    rig.addChecked("C:\\a \"b\"\nc", "1 KB");
    rig.addChecked("C:\\\xC3\xA4\xFF", "1 KB");
    EXPECT_EQ(rig.samples("velmora_watched"),
              (Samples{"velmora_watched{path=\"C:\\\\a \\\"b\\\"\\nc\"} 1",
                       "velmora_watched{path=\"C:\\\\\xC3\xA4\xEF\xBF\xBD\"} 1"}));
}

TEST(MetricsTest, OfTwoRowsWithOnePathTheFirstCounts) {
    MetricsRig rig;
    rig.addChecked("C:\\", "1 KB");
    rig.addChecked("C:\\", "2 KB");
    EXPECT_EQ(rig.samples("velmora_free_bytes"),
              (Samples{"velmora_free_bytes{path=\"C:\\\\\"} 1024"}));
}

TEST(MetricsTest, LargeSizesAreExact) {
    MetricsRig rig;
    rig.addChecked("C:\\", "9,007,199,254,740 KB", "18,014,398,509,481 KB");
    EXPECT_EQ(rig.samples("velmora_free_bytes"),
              (Samples{"velmora_free_bytes{path=\"C:\\\\\"} 9223372036853760"}));
}

}  // namespace
}  // namespace velmora::tests
