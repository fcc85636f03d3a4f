#include <gtest/gtest.h>

#include "console/event_report.h"
#include "console/session.h"

namespace velmora::tests {

namespace {

struct LaterSession : Session {
    LaterSession() {
        later.setRun([this](const std::string& line) { commands.run(line); });
    }
    bool ran(const char* text) { return forms.form1.txtSpace.Text() == text; }
};

}  // namespace

TEST(LaterCommands, ACommandRunsAtTheFirstYieldAfterItsTime) {
    LaterSession session;
    session.commands.run("after 5 set txtSpace.Text 17");
    session.machine.advance(4999);
    session.host.DoEvents();
    EXPECT_FALSE(session.ran("17"));
    session.machine.advance(1);
    EXPECT_FALSE(session.ran("17"));
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("17"));
}

TEST(LaterCommands, ACommandRunsAtTheYieldOfItsNumber) {
    LaterSession session;
    session.host.DoEvents();
    EXPECT_EQ(session.run("at yield 3 set txtSpace.Text 17"), "ok\n");
    session.host.DoEvents();
    session.host.DoEvents();
    EXPECT_FALSE(session.ran("17"));
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("17"));
    session.forms.form1.txtSpace.setText("own");
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("own"));
}

TEST(LaterCommands, AtTakesTheWordYield) {
    LaterSession session;
    EXPECT_EQ(session.run("at 3 set txtSpace.Text 17"), "error: at yield NUMBER COMMAND\n");
    EXPECT_EQ(session.run("at YIELD 3 set txtSpace.Text 17"), "ok\n");
}

TEST(LaterCommands, AWaitIsNoYield) {
    LaterSession session;
    session.run("at yield 1 set txtSpace.Text 17");
    session.run("wait 2");
    EXPECT_FALSE(session.ran("17"));
}

TEST(LaterCommands, AYieldWithinACommandCountsToo) {
    LaterSession session;
    session.form1.lblDP[0].Click.connect([&session] { session.host.DoEvents(); });
    session.run("at yield 1 click lblDP(0)");
    session.run("at yield 2 set txtSpace.Text 17");
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("17"));
}

TEST(LaterCommands, AYieldHasANumberFromOne) {
    LaterSession session;
    for (const char* line : {"at yield 0 exit", "at yield -1 exit", "at yield many exit",
                             "at yield 1", "at once exit"}) {
        EXPECT_TRUE(session.refuses(line)) << line;
    }
}

TEST(LaterCommands, AWaitDoesNotOversleepThem) {
    LaterSession session;
    session.commands.run("after 0.25 set txtSpace.Text 17");
    session.commands.run("wait 0.3");
    EXPECT_TRUE(session.ran("17"));
    EXPECT_EQ(session.slept, 300);
}

TEST(LaterCommands, RunInTheOrderOfTheirTimesAndOnce) {
    LaterSession session;
    session.commands.run("after 2 set txtSpace.Text second");
    session.commands.run("after 1 set txtSpace.Text first");
    session.machine.advance(2000);
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("second"));
    session.forms.form1.txtSpace.setText("own");
    session.host.DoEvents();
    EXPECT_TRUE(session.ran("own"));
}

TEST(LaterCommands, ACommandMayWaitForAnother) {
    LaterSession session;
    session.commands.run("after 1 wait 3");
    session.commands.run("after 2 set txtSpace.Text inner");
    session.commands.run("wait 1");
    EXPECT_TRUE(session.ran("inner"));
}

TEST(LaterCommands, TheFirstCanEndTheProgram) {
    LaterSession session;
    session.commands.run("answer ok");
    session.commands.run("after 1 menu mnuExit");
    session.forms.form1.mnuExit.Click.connect([] { throw ProgramEnd{0}; });
    EXPECT_THROW(session.commands.run("wait forever"), ProgramEnd);
    EXPECT_EQ(session.slept, 1000);
}

TEST(LaterCommands, BadOnesAreRefused) {
    for (const char* line : {"after", "after 1", "after x help", "after -1 help"}) {
        LaterSession session;
        session.commands.run(line);
        EXPECT_EQ(session.later.untilNext(), std::nullopt) << line;
        EXPECT_NE(session.stream.str().find("error"), std::string::npos) << line;
    }
}

TEST(LaterCommands, AnUnknownCommandIsReportedWhenItRuns) {
    LaterSession session;
    session.commands.run("after 0 nonsense");
    session.host.DoEvents();
    EXPECT_NE(session.stream.str().find("unknown command: nonsense"), std::string::npos);
}

TEST(MailStatus, IsAStatusEventOfPanelZero) {
    LaterSession session;
    Notice<const ListItem&> raised;
    const console::EventReport report(raised, session.forms.form1.StatusBar1,
                                      session.forms.frmNotify.StatusTxt, session.output,
                                      session.waiting);
    session.commands.run("json on");
    session.forms.frmNotify.StatusTxt.setText("Busy sending mail...");
    EXPECT_NE(
        session.stream.str().find(R"({"event":"status","panel":0,"text":"Busy sending mail..."})"),
        std::string::npos)
        << session.stream.str();
    session.commands.run("wait until Busy sending");
    EXPECT_EQ(session.slept, 0);
}

}  // namespace velmora::tests
