// The section of one list view.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct ListSectionTest : testing::Test, NotifyRig {
    Form other{"Form1"};
    ListView list{other, "List"};

    void addRows(ListView& view, int count) {
        for (int i = 1; i <= count; ++i) view.Add("row " + std::to_string(i));
    }
    /// Number of rows in the section; each ends with a rule, as the heading does.
    int rowsOf(const ListView& view) {
        const std::string text = content.prcNotContent(view);
        int rules = 0;
        for (std::size_t at = text.find("============="); at != std::string::npos;
             at = text.find("=============", at + 1)) {
            ++rules;
        }
        return rules - 1;
    }
};

TEST_F(ListSectionTest, AnEmptyListIsItsHeadingARuleAndNoInfo) {
    list.setTag("Something");
    EXPECT_EQ(content.prcNotContent(list), "Something\r\n=============\r\nno info");
}

TEST_F(ListSectionTest, ARowIsItsHeadingsAndCellsSideBySide) {
    ListItem& row = form1.LVProg.Add("sweep");
    row.setSubItems(1, "Run");
    row.setSubItems(2, "C:\\sweep.exe");
    row.setSubItems(3, "exe");
    form1.LVProg.Add("next").setSubItems(1, "Stop");
    EXPECT_EQ(content.prcNotContent(form1.LVProg),
              "Listed Specified Program(s)\r\n=============\r\n"
              "Program: sweep Action: Run File Path : C:\\sweep.exe Type: exe \r\n"
              "=============\r\n"
              "Program: next Action: Stop File Path :  Type:  \r\n=============\r\n");
}

TEST_F(ListSectionTest, AlertsAreFifteenAtMost) {
    for (const auto& [rows, shown] : {std::pair{14, 14}, {15, 15}, {16, 15}, {20, 15}}) {
        form1.LVAlert.Clear();
        addRows(form1.LVAlert, rows);
        EXPECT_EQ(rowsOf(form1.LVAlert), shown) << rows;
    }
}

TEST_F(ListSectionTest, AnyListWithAlertInItsTagHasThatLimit) {
    list.addColumn({"Text"});
    addRows(list, 20);
    for (const char* tag : {"alert", "my ALERTS", "Alerts"}) {
        list.setTag(tag);
        EXPECT_EQ(rowsOf(list), 15) << tag;
    }
    list.setTag("Aler t");
    EXPECT_EQ(rowsOf(list), 20);
}

TEST_F(ListSectionTest, OtherListsAreAHundredAndFiftyRowsAtMost) {
    for (const auto& [rows, shown] : {std::pair{149, 149}, {150, 150}, {151, 150}, {200, 150}}) {
        form1.LVFile.Clear();
        addRows(form1.LVFile, rows);
        EXPECT_EQ(rowsOf(form1.LVFile), shown) << rows;
    }
}

TEST_F(ListSectionTest, TheFirstRowsAreShown) {
    addRows(form1.LVFile, 151);
    const std::string text = content.prcNotContent(form1.LVFile);
    EXPECT_NE(text.find(": row 1 "), std::string::npos);
    EXPECT_NE(text.find(": row 150 "), std::string::npos);
    EXPECT_EQ(text.find(": row 151 "), std::string::npos);
}

TEST_F(ListSectionTest, HandlersRunBetweenTheRows) {
    addRows(form1.LVFile, 3);
    content.prcNotContent(form1.LVFile);
    EXPECT_EQ(host.yields, 3);
}

TEST_F(ListSectionTest, RowsThatAHandlerRemovesAreLeftOut) {
    list.addColumn({"Text"});
    addRows(list, 5);
    host.onYield = [this](int yield) {
        if (yield == 2) list.Clear();
    };
    EXPECT_EQ(content.prcNotContent(list),
              "\r\n=============\r\n"
              "Text: row 1 \r\n=============\r\n"
              "Text: row 2 \r\n=============\r\n");
}

TEST_F(ListSectionTest, RowsThatAHandlerAddsAreLeftOut) {
    addRows(form1.LVFile, 2);
    host.onYield = [this](int) { form1.LVFile.Add("more"); };
    EXPECT_EQ(rowsOf(form1.LVFile), 2);
}

}  // namespace
}  // namespace velmora::tests
