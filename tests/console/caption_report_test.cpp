// What a menu item's caption says, on the console.
#include <gtest/gtest.h>

#include "console/session.h"

namespace velmora::tests {
namespace {

struct CaptionReport : testing::Test, Session {};

TEST_F(CaptionReport, APlainCaptionHasFewLines) {
    EXPECT_EQ(run("report caption Open"),
              "Caption: Open\nHotKeyPos: 0\nIcon: 0\nDefault: False\nRaised: False\n"
              "Separator: False\nSubItem: False\nWritten: Open\n");
    EXPECT_EQ(run(R"(report caption "-")"),
              "Caption: -\nHotKeyPos: 0\nIcon: 0\nDefault: False\nRaised: False\n"
              "Separator: True\nSubItem: False\nWritten: -\n");
}

TEST_F(CaptionReport, EachMarkHasItsLine) {
    EXPECT_EQ(
        run(R"(REPORT Caption $"{IMG:3|TIP:Says \"no\"|Default}{Raised}+&Open|N|ID:4\tCtrl+O")"),
        "Caption: $\"&Open\\tCtrl+O\"\nHotKeyPos: 7\nHotKey: Ctrl+O\nIcon: 3\n"
        "HelpTip: Says \"no\"\nDefault: True\nTicked: False\nID: 4\nRaised: True\n"
        "Separator: False\nSubItem: True\n"
        "Written: $\"{IMG:3|TIP:Says \\\"no\\\"}{Raised}+&Open\\tCtrl+O|Default|N|ID:4\"\n");
}

TEST_F(CaptionReport, ASideBarFollowsTheItem) {
    const std::string item =
        "HotKeyPos: 0\nIcon: 0\nDefault: False\nRaised: False\nSeparator: False\nSubItem: False\n";
    EXPECT_EQ(run(R"(report caption "{SIDEBAR:TEXT|ID:2|CAPTION:Files<BR!>more|FONT:Serif|FSIZE:14)"
                  R"(|MINFONTSIZE:9|FCOLOR:16777215|BCOLOR:&H800000&|WIDTH:30|Bold|Underline)"
                  R"(|Italic|GRADIENT|ALIGN:Top}")"),
              item +
                  "SideBar: TEXT\nSideBar.ID: 2\nSideBar.CAPTION: $\"Files\\r\\nmore\"\n"
                  "SideBar.FONT: Serif\nSideBar.FSIZE: 14\nSideBar.MINFONTSIZE: 9\n"
                  "SideBar.FCOLOR: &HFFFFFF&\nSideBar.BCOLOR: &H800000&\nSideBar.WIDTH: 30\n"
                  "SideBar.Bold: True\nSideBar.Underline: True\nSideBar.Italic: True\n"
                  "SideBar.Gradient: Gradient\nSideBar.ALIGN: Top\n"
                  "Written: {SIDEBAR:TEXT|ID:2|CAPTION:Files<BR!>more|FONT:Serif|FSIZE:14"
                  "|MINFONTSIZE:9|FCOLOR:&HFFFFFF&|WIDTH:30|BCOLOR:&H800000&|Bold|Underline"
                  "|Italic|Gradient|ALIGN:Top}\n");
    EXPECT_EQ(run("report caption {SIDEBAR:7|BCOLOR:NONE|GRADIENT:REVERSE}"),
              item +
                  "SideBar: 7\nSideBar.FSIZE: 12\nSideBar.MINFONTSIZE: 8\n"
                  "SideBar.FCOLOR: &H80000007&\nSideBar.BCOLOR: NONE\n"
                  "SideBar.Bold: False\nSideBar.Underline: False\nSideBar.Italic: False\n"
                  "SideBar.Gradient: Gradient:Reverse\nSideBar.ALIGN: Bottom\n"
                  "Written: {SIDEBAR:7|BCOLOR:NONE|Gradient:Reverse}\n");
    EXPECT_NE(run("report caption {SIDEBAR:7}").find("\nSideBar.BCOLOR: BACK\n"),
              std::string::npos);
}

TEST_F(CaptionReport, UnderJsonTheyAreFields) {
    run("json on");
    EXPECT_EQ(run(R"(report caption "{IMG:3}Open|Y CTRL+Y|ID:x")"),
              R"({"ok":[{"Caption":"Open|Y CTRL+Y|ID:x","HotKeyPos":8,"HotKey":"CTRL+Y|ID:x",)"
              R"("Icon":3,"HelpTip":"","Default":false,"Raised":false,"Separator":false,)"
              R"("SubItem":false,"Written":"{IMG:3}Open|{IMG:3}Y CTRL+Y|{IMG:3}ID:x"}]})"
              "\n");
    EXPECT_EQ(run(R"(report caption "|Y|ID:5{SIDEBAR:7|WIDTH:9}")"),
              R"({"ok":[{"Caption":"","HotKeyPos":0,"HotKey":"","Icon":0,"HelpTip":"",)"
              R"("Default":false,"Ticked":true,"ID":5,"Raised":false,"Separator":false,)"
              R"("SubItem":false,"SideBar":"7","SideBar.CAPTION":"","SideBar.FONT":"",)"
              R"("SideBar.FSIZE":12,"SideBar.MINFONTSIZE":8,"SideBar.FCOLOR":"&H80000007&",)"
              R"("SideBar.BCOLOR":"BACK","SideBar.WIDTH":9,"SideBar.Bold":false,)"
              R"("SideBar.Underline":false,"SideBar.Italic":false,"SideBar.Gradient":"",)"
              R"("SideBar.ALIGN":"Bottom","Written":"{SIDEBAR:7|WIDTH:9}|Y|ID:5"}]})"
              "\n");
}

TEST_F(CaptionReport, AnEmptyCaptionHasNoText) {
    EXPECT_TRUE(run(R"(report caption "")").starts_with("HotKeyPos: 0\n"));
}

TEST_F(CaptionReport, ExactlyOneWordIsTaken) {
    for (const char* line : {"report caption", "report caption a b", R"(report caption "a)",
                             R"(report caption "a"b)"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

}  // namespace
}  // namespace velmora::tests
