#include "console/event_report.h"

#include <gtest/gtest.h>

#include <optional>

#include "session.h"

namespace velmora::console {
namespace {

struct EventReportTest : testing::Test, tests::Session {
    EventReportTest() {
        for (const char* header : {"Rating", "Time/Date", "Action Taken"}) {
            alerts.addColumn({header});
        }
        output.setWatch(true);
        report.emplace(raised, form1.StatusBar1, forms.frmNotify.StatusTxt, output, waiting);
    }
    ListItem& alert() {
        ListItem& row = alerts.Add("High");
        row.setSubItems(2, "Short of space");
        return row;
    }

    ListView alerts{form1, "lvTest"};
    Notice<const ListItem&> raised;
    std::optional<EventReport> report;
};

TEST_F(EventReportTest, PrintsANewAlert) {
    raised(alert());
    EXPECT_NE(printed().find("Short of space"), std::string::npos);
}

TEST_F(EventReportTest, PrintsAPanelOnceForEachNewText) {
    form1.StatusBar1.setPanelText(1, "Checking");
    EXPECT_NE(printed().find("Checking"), std::string::npos);
    form1.StatusBar1.setPanelPicture(1, 2);
    EXPECT_EQ(printed(), "");
    form1.StatusBar1.setPanelText(3, "Checking");
    EXPECT_NE(printed().find("Checking"), std::string::npos);
}

TEST_F(EventReportTest, LetsAWaitForATextEnd) {
    Timer timer{form1, "tmrTest", 2000, true};
    timers.add(timer);
    timer.Tick.connect([this] { form1.StatusBar1.setPanelText(2, "Checked: 1"); });
    EXPECT_TRUE(waiting.until("Checked"));
    EXPECT_EQ(slept, 2000);
}

TEST_F(EventReportTest, LetsAWaitForAnAlertEnd) {
    Timer timer{form1, "tmrTest", 2000, true};
    timers.add(timer);
    timer.Tick.connect([this] { raised(alert()); });
    EXPECT_TRUE(waiting.until("Short"));
}

TEST_F(EventReportTest, AWaitForAnAlertPassesOverAPanelThatSaysTheSame) {
    Timer timer{form1, "tmrTest", 2000, true};
    timers.add(timer);
    int ticks = 0;
    timer.Tick.connect([&] {
        ++ticks;
        if (ticks == 1) form1.StatusBar1.setPanelText(2, "Short of space");
        if (ticks == 2) forms.frmNotify.StatusTxt.setText("Short of space");
        if (ticks == 3) raised(alert());
    });
    EXPECT_TRUE(run("wait until alert of space").ends_with("ok\n"));
    EXPECT_EQ(slept, 6000);
    // One that was there before is none.
    EXPECT_TRUE(run("wait until alert of space")
                    .ends_with("error: no such alert within 600 s: of space\n"));
    EXPECT_EQ(slept, 606'000);
}

TEST_F(EventReportTest, AWaitTakesItsTextAsItStands) {
    form1.StatusBar1.setPanelText(2, "say \"alert\"x and alert here");
    for (const char* text : {"\"alert\"x and", "\"alert", "$\"alert here\""}) {
        EXPECT_TRUE(run("wait until " + std::string(text)).ends_with("ok\n")) << text;
    }
    EXPECT_EQ(slept, 0);
}

TEST_F(EventReportTest, AWaitForTheWordAlertAloneIsForAText) {
    form1.StatusBar1.setPanelText(2, "no alert\t");
    EXPECT_TRUE(run("wait until alert").ends_with("ok\n"));
    EXPECT_TRUE(run("wait until alert\t").ends_with("ok\n"));
    EXPECT_EQ(slept, 0);
}

TEST_F(EventReportTest, ReportsNothingAfterItsEnd) {
    report.reset();
    raised(alert());
    form1.StatusBar1.setPanelText(1, "Checking");
    EXPECT_EQ(printed(), "");
    EXPECT_FALSE(raised.connected());
}

}  // namespace
}  // namespace velmora::console
