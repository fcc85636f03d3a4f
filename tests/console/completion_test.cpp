// How a line that is being typed can go on.
#include "console/completion.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "console/commands.h"

namespace velmora::console {
namespace {

using Found = std::vector<std::string>;

struct CompletionTest : testing::Test {
    Found of(const std::string& text) { return completionsOf(forms, text); }
    bool offers(const std::string& text, const std::string& word) {
        const Found found = of(text);
        return std::count(found.begin(), found.end(), word) == 1;
    }

    Forms forms;
};

TEST_F(CompletionTest, TheFirstWordIsACommand) {
    EXPECT_EQ(of("doub"), Found{"doubleclick"});
    EXPECT_EQ(of("DOUB"), Found{"doubleclick"});
    EXPECT_EQ(of("re"), (Found{"refresh", "report"}));
    EXPECT_EQ(of(""), Commands::names());
    EXPECT_EQ(of("  wa"), (Found{"wait", "watch"}));
    EXPECT_EQ(of("nothing"), Found{});
}

TEST_F(CompletionTest, AFieldIsNamedAsGetTakesIt) {
    EXPECT_EQ(of("get txtsp"), Found{"txtSpace"});
    EXPECT_EQ(of("get   txtsp"), Found{"txtSpace"});
    EXPECT_EQ(of("get frmnotify.txtcustm"), Found{"frmNotify.txtCustMsg"});
    EXPECT_TRUE(offers("get ", "txtSpace"));
    EXPECT_TRUE(offers("get lblDP", "lblDP(0)"));
    EXPECT_FALSE(offers("get ", "Form1.txtSpace"));
}

TEST_F(CompletionTest, BehindThePointStandProperties) {
    EXPECT_EQ(of("set txtSpace.te"), Found{"txtSpace.Text"});
    EXPECT_TRUE(offers("get txtSpace.", "txtSpace.Visible"));
    EXPECT_TRUE(offers("get frmNotify.txtCustMsg.", "frmNotify.txtCustMsg.Text"));
    EXPECT_EQ(of("get nothing.te"), Found{});
    EXPECT_EQ(of("get txtAmt(1)."), Found{});
    EXPECT_EQ(of("get StatusBar1(99)."), Found{});
    EXPECT_EQ(of("click txtSpace."), Found{});
}

TEST_F(CompletionTest, ForSetOnlyThoseThatCanBeSet) {
    const Found readable = of("get ListView1.");
    const Found settable = of("set ListView1.");
    EXPECT_TRUE(offers("get ListView1.", "ListView1.Count"));
    EXPECT_FALSE(offers("set ListView1.", "ListView1.Count"));
    EXPECT_LT(settable.size(), readable.size());
}

TEST_F(CompletionTest, EachCommandHasFieldsOfItsKind) {
    EXPECT_EQ(of("fire timer1"), Found{"Timer1"});
    EXPECT_FALSE(offers("fire ", "txtSpace"));
    EXPECT_TRUE(offers("tick ", "ListView1"));
    EXPECT_TRUE(offers("tick ", "lstAct"));
    EXPECT_TRUE(offers("rows ", "lstAct"));
    EXPECT_TRUE(offers("rows ", "cboFile"));
    for (const char* command : {"row ", "select "}) {
        EXPECT_TRUE(offers(command, "ListView1")) << command;
        EXPECT_FALSE(offers(command, "lstAct")) << command;
    }
    EXPECT_TRUE(offers("drop ", "LVFile"));
    EXPECT_TRUE(offers("drop ", "cboFile"));
    EXPECT_FALSE(offers("drop ", "lstAct"));
    EXPECT_TRUE(offers("menu ", "mnuExit"));
    EXPECT_FALSE(offers("menu ", "cmdPause"));
    for (const char* command : {"click ", "doubleclick ", "set "}) {
        EXPECT_TRUE(offers(command, "cmdPause")) << command;
    }
}

TEST_F(CompletionTest, OtherWordsThatACommandTakes) {
    EXPECT_EQ(of("answer "),
              (Found{"cancel", "file", "files", "folder", "no", "ok", "text", "yes"}));
    EXPECT_EQ(of("answer f"), (Found{"file", "files", "folder"}));
    EXPECT_EQ(of("wait "), (Found{"forever", "until"}));
    EXPECT_EQ(of("wait until "), Found{"alert"});
    EXPECT_EQ(of("report net"), Found{"netstat"});
    EXPECT_EQ(of("help doub"), Found{"doubleclick"});
    EXPECT_EQ(of("json "), (Found{"off", "on"}));
    EXPECT_EQ(of("watch "), (Found{"off", "on"}));
    EXPECT_EQ(of("tick ListView1 1 "), (Found{"off", "on"}));
    EXPECT_EQ(of("doubleclick ListView1 r"), Found{"row"});
    EXPECT_EQ(of("select ListView1 n"), Found{"none"});
}

TEST_F(CompletionTest, WhereAnythingCanFollowNothingIsOffered) {
    for (const char* text : {"set txtSpace.Text t", "tick ListView1 ", "get txtSpace ", "fields t",
                             "status ", "drop LVFile ", "wait until alert ", "row ListView1 "}) {
        EXPECT_EQ(of(text), Found{}) << text;
    }
}

TEST_F(CompletionTest, ACommandCanStandBehindADelay) {
    EXPECT_EQ(of("after 5 doub"), Found{"doubleclick"});
    EXPECT_EQ(of("after 5 get txtsp"), Found{"txtSpace"});
    EXPECT_EQ(of("at "), Found{"yield"});
    EXPECT_EQ(of("at yield 3 doub"), Found{"doubleclick"});
    EXPECT_EQ(of("after 5 at yield 3 fire timer1"), Found{"Timer1"});
    EXPECT_EQ(of("after "), Found{});
    EXPECT_EQ(of("after 5"), Found{});
    EXPECT_EQ(of("at yield 3"), Found{});
    EXPECT_EQ(of("at yield "), Found{});
}

// What the help lists for a report can be completed.
TEST_F(CompletionTest, EveryReportOfTheHelpIsOffered) {
    for (const char* report :
         {"ram", "users", "processes", "processlist", "jobs", "netstat", "ntevents", "drive",
          "bootsector", "chart", "watch", "message", "caption"}) {
        EXPECT_TRUE(offers("report ", report)) << report;
        EXPECT_NE(helpOf("report").find(report), std::string::npos) << report;
    }
}

}  // namespace
}  // namespace velmora::console
