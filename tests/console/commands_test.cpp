// The commands that do what a hand does: click, menu, tick, select, drop, fire, answer, wait.
#include "console/commands.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "rows/watch_columns.h"
#include "session.h"

namespace velmora::console {
namespace {

struct CommandsTest : testing::Test, tests::Session {
    std::string done;  // what the handlers of a test did
};

TEST_F(CommandsTest, GiveABlankLineNoReply) {
    EXPECT_EQ(run(""), "");
    EXPECT_EQ(run(" \t "), "");
}

TEST_F(CommandsTest, AreKnownInAnyLetterCase) {
    EXPECT_EQ(run("GET TXTAMT"), "50\n");
}

TEST_F(CommandsTest, ThatAreUnknownGetAnError) {
    for (const char* line : {"nonsense", "\"", "$\"x", "\xff\xfe", "{}", "get\rtxtAmt"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
    EXPECT_TRUE(refuses(std::string("get\0txtAmt", 10)));
}

TEST_F(CommandsTest, WithTooFewWordsGetAnError) {
    for (const char* line : {"get",
                             "set",
                             "click",
                             "doubleclick",
                             "menu",
                             "tick",
                             "tick lstAct",
                             "tick lstAct 1",
                             "select",
                             "select ListView1",
                             "rows",
                             "drop",
                             "drop ListView1",
                             "fire",
                             "answer",
                             "answer text",
                             "answer file",
                             "answer folder",
                             "wait",
                             "wait until",
                             "json",
                             "watch",
                             "row",
                             "row LVFile",
                             "at",
                             "at yield",
                             "at yield 1",
                             "wait until"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(CommandsTest, WithTooManyWordsGetAnErrorAndDoNothing) {
    form1.lblDP[watch_button::add].Click.connect([this] { done += "click"; });
    form1.mnuExit.Click.connect([this] { done += "exit"; });
    form1.Timer1.Tick.connect([this] { done += "tick"; });
    for (const char* line :
         {"get txtAmt x", "click lblDP(0) x", "doubleclick ListView1 row 1 x", "row ListView1 1 x",
          "status x", "refresh x", "menu mnuExit x", "tick lstAct 1 on x", "rows lstAct x",
          "fire Timer1 x", "answer yes no", "wait 5 x", "wait forever x", "json on x", "watch on x",
          "help get x", "exit x"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
    EXPECT_EQ(done, "");
    EXPECT_EQ(slept, 0);
    EXPECT_FALSE(form1.lstAct.Selected(act::move));
}

TEST_F(CommandsTest, ThatAreRefusedTellWhy) {
    const std::pair<const char*, const char*> reasons[] = {
        {"get", "something is missing at the end of the line"},
        {"get \"txtAmt", "a closing quote is missing"},
        {"get $\"txtAmt", "a closing quote is missing"},
        {"get \"txtAmt\"x", "a blank is missing behind a closing quote"},
        {R"(set txtAmt.Text $"\q")", "not a text with valid escapes"},
        {"get txtAmt x", "more than the command takes: x"},
        {"get lblDP(x)", "not an index: lblDP(x)"},
        {"get Form1.txtAmt.Text.more", "not a name: Form1.txtAmt.Text.more"},
        {"set txtAmt 5", "a property is missing: txtAmt"},
        {"click Form1", "a form can't be clicked"},
        {"click txtAmt.Text", "a control, not a property: Text"},
        {"tick lstAct.Text 1 on", "a control, not a property: lstAct.Text"},
        {"doubleclick LVFile line 2", "row and a number may follow"},
        {"doubleclick txtAmt row 1", "not a list of rows: txtAmt"},
        {"row LVFile 1", "no row of that number: 1"},
        {"select LVFile", "an index or none is missing"},
        {"drop LVFile", "a path is missing"},
        {"after soon exit", "not a number of seconds: soon"},
        {"after 5", "a command is missing"},
        {"at yield 1", "a command is missing"},
        {"answer text", "a text is missing"},
        {"answer maybe", "unknown answer: maybe"},
        {"answer yes no", "more than the command takes: no"},
        {R"(answer files C:\a\x C:\b\y)",
         R"(not in the folder of the first: drive path of C:\b\y)"},
        {"wait until", "a text is missing"},
        {"report drive x:y", "not a drive: x:y"},
    };
    for (const auto& [line, reason] : reasons) {
        EXPECT_EQ(run(line), std::string("error: ") + reason + "\n") << line;
    }
}

TEST_F(CommandsTest, ClickRunsTheHandlerBeforeTheReply) {
    form1.lblDP[watch_button::clear].Click.connect([this] { host.MsgBox({.text = "Clear?"}); });
    EXPECT_EQ(run("click lblDP(2)"), "box: Velmora | none | Clear? | ok -> ok\nok\n");
}

TEST_F(CommandsTest, ClickTurnsACheckBoxAndChoosesAnOption) {
    form1.chkDrive.Click.connect([this] { done += "drive"; });
    EXPECT_EQ(run("click chkDrive"), "ok\n");
    EXPECT_EQ(form1.chkDrive.Value(), 1);
    EXPECT_EQ(run("click chkDrive"), "ok\n");
    EXPECT_EQ(form1.chkDrive.Value(), 0);
    EXPECT_EQ(done, "drivedrive");
    EXPECT_EQ(run("click OpDriv(1)"), "ok\n");
    EXPECT_TRUE(form1.OpDriv[1].Value());
    EXPECT_FALSE(form1.OpDriv[0].Value());
}

TEST_F(CommandsTest, ClickTakesToolBarButtonsColumnsAndSpinnerArrows) {
    form1.Toolbar1.ButtonClick.connect([this](int i) { done += "button" + std::to_string(i); });
    form1.LVAlert.ColumnClick.connect([this](int i) { done += "column" + std::to_string(i); });
    form1.UpDownSpace.UpClick.connect([this] { done += "up"; });
    form1.UpDownSpace.DownClick.connect([this] { done += "down"; });
    for (const char* line : {"click Toolbar1(6)", "click LVAlert(4)", "click UpDownSpace.Up",
                             "click UpDownSpace.down"}) {
        EXPECT_EQ(run(line), "ok\n") << line;
    }
    EXPECT_EQ(done, "button6column4updown");
}

TEST_F(CommandsTest, ClickRefusesWhatCantBeClicked) {
    for (const char* line :
         {"click Form1", "click txtAmt", "click Slider1", "click UpDown3", "click Timer1",
          "click Toolbar1(0)", "click Toolbar1(7)", "click LVAlert(5)", "click lblDP",
          "click lblDP(0).Caption", "click chkDrive.Up", "click Nobody"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(CommandsTest, DoubleClickNeedsASelectedRowOrARow) {
    form1.LVAlert.DblClick.connect([this] { done += form1.LVAlert.SelectedItem()->Text(); });
    form1.LVAlert.Add("a");
    form1.LVAlert.Add("b");
    EXPECT_TRUE(refuses("doubleclick LVAlert"));
    EXPECT_EQ(run("doubleclick LVAlert row 2"), "ok\n");
    EXPECT_EQ(run("doubleclick LVAlert"), "ok\n");
    EXPECT_EQ(done, "bb");
    EXPECT_TRUE(refuses("doubleclick LVAlert row 3"));
    EXPECT_EQ(run("doubleclick LVAlert(2)"),
              "error: a column can't be double-clicked; a row: doubleclick LVAlert row 2\n");
    EXPECT_TRUE(refuses("doubleclick LVAlert line 2"));
    EXPECT_TRUE(refuses("doubleclick txtSpace row 1"));
    EXPECT_TRUE(refuses("doubleclick lblDP(0)"));
    EXPECT_TRUE(refuses("doubleclick Form1"));
}

TEST_F(CommandsTest, MenuChoosesMenuEntriesOnly) {
    form1.mnuShowAlert.Click.connect([this] { done += "show"; });
    EXPECT_EQ(run("menu mnuShowAlert"), "ok\n");
    EXPECT_EQ(done, "show");
    EXPECT_TRUE(refuses("menu cmdClear"));
    EXPECT_TRUE(refuses("menu mnuNobody"));
}

TEST_F(CommandsTest, TickCountsEntriesFromZeroAndRowsFromOne) {
    form1.ListView1.Add("a");
    form1.lstAct.ItemCheck.connect([this](int i) { done += "entry" + std::to_string(i); });
    form1.ListView1.ItemCheck.connect([this](ListItem& row) { done += "row" + row.Text(); });
    EXPECT_EQ(run("tick lstAct 0 on"), "ok\n");
    EXPECT_EQ(run("tick ListView1 1 on"), "ok\n");
    EXPECT_EQ(run("tick ListView1 1 off"), "ok\n");
    EXPECT_EQ(done, "entry0rowarowa");
    EXPECT_TRUE(form1.lstAct.Selected(act::alert));
    EXPECT_FALSE(form1.ListView1.ListItems(1).Checked());
}

TEST_F(CommandsTest, ARowIsTickedByItsPathWhereverItStands) {
    for (const char* text : {"a", "drive path of /srv", "drive path of D:\\"})
        form1.ListView1.Add(text);
    form1.ListView1.ItemCheck.connect([this](ListItem& row) { done += row.Text() + '|'; });
    EXPECT_EQ(run("tick ListView1 /srv on"), "ok\n");
    EXPECT_EQ(run("tick ListView1 D: on"), "ok\n");
    EXPECT_EQ(run("tick ListView1 \"D:\\\" off"), "ok\n");
    EXPECT_EQ(done, "drive path of /srv|drive path of D:\\|drive path of D:\\|");
    EXPECT_TRUE(form1.ListView1.ListItems(2).Checked());
    EXPECT_FALSE(form1.ListView1.ListItems(3).Checked());
    EXPECT_EQ(run("tick ListView1 /sr on"), "error: no row of that path: /sr\n");
    EXPECT_TRUE(refuses("tick lstAct /srv on"));
}

TEST_F(CommandsTest, RemarksAreNoCommands) {
    form1.ListView1.Add("a");
    EXPECT_EQ(run("# tick ListView1 1 on"), "");
    EXPECT_EQ(run("  #"), "");
    EXPECT_FALSE(form1.ListView1.ListItems(1).Checked());
    EXPECT_TRUE(refuses("tick # 1 on"));
}

TEST_F(CommandsTest, TickRefusesWhatIsntThere) {
    form1.ListView1.Add("a");
    for (const char* line :
         {"tick lstAct 12 on", "tick lstAct -1 on", "tick ListView1 0 on", "tick ListView1 2 on",
          "tick lstAct 1 maybe", "tick lstAct x on", "tick lstAct 99999999999999999999 on",
          "tick txtAmt 0 on", "tick lstAct(0) 1 on"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(CommandsTest, SelectSelectsTheseRowsAndNoOthers) {
    for (const char* text : {"a", "b", "c"}) form1.ListView1.Add(text);
    const auto selected = [this] {
        std::string texts;
        for (int i = 1; i <= 3; ++i) {
            if (form1.ListView1.ListItems(i).Selected())
                texts += form1.ListView1.ListItems(i).Text();
        }
        return texts;
    };
    EXPECT_EQ(run("select ListView1 1 3"), "ok\n");
    EXPECT_EQ(selected(), "ac");
    EXPECT_TRUE(refuses("select ListView1 2 4"));
    EXPECT_TRUE(refuses("select ListView1 2 none"));
    EXPECT_TRUE(refuses("select ListView1 0"));
    EXPECT_EQ(selected(), "ac");
    EXPECT_EQ(run("select ListView1 none"), "ok\n");
    EXPECT_EQ(selected(), "");
    EXPECT_TRUE(refuses("select lstAct 1"));
}

TEST_F(CommandsTest, RowsShowListsCheckListsAndComboBoxes) {
    ComboBox combo{form1, "cmbTest"};
    combo.AddItem("one");
    EXPECT_EQ(run("rows LVAlert"), "0 row(s)\n");
    EXPECT_EQ(run("rows lstEvt").substr(0, 12), "0 [ ] No Cha");
    EXPECT_EQ(run("rows cmbTest"), "0 one\n1 entries\n");
    EXPECT_TRUE(refuses("rows txtAmt"));
    EXPECT_TRUE(refuses("rows lstEvt(0)"));
    EXPECT_TRUE(refuses("rows Form1"));
}

TEST_F(CommandsTest, DropHandsOverDrivePaths) {
    EXPECT_TRUE(refuses("drop ListView1 /a"));  // nothing takes them yet
    form1.ListView1.Drop.connect([this](const std::vector<std::string>& paths) {
        for (const std::string& path : paths) done += "<" + path + ">";
    });
    EXPECT_EQ(run("drop ListView1 \"/a b\" /c\xff"), "ok\n");
    EXPECT_EQ(done, "<drive path of /a b><drive path of /c\xff>");
    EXPECT_TRUE(refuses("drop ListView1 \"unclosed"));
    EXPECT_TRUE(refuses("drop lstAct /a"));
}

TEST_F(CommandsTest, FireTicksATimerNow) {
    forms.frmIndDri.Timer1.Tick.connect([this] { done += "tick"; });
    EXPECT_EQ(run("fire frmIndDri.Timer1"), "ok\n");  // also one that is off
    EXPECT_EQ(done, "tick");
    EXPECT_EQ(slept, 0);
    EXPECT_EQ(run("fire ListView1"), "error: not a timer: ListView1\n");
    EXPECT_EQ(run("menu ListView1"), "error: not a menu entry: ListView1\n");
    EXPECT_EQ(run("rows Timer1"), "error: not a list: Timer1\n");
    EXPECT_TRUE(refuses("fire Timer1(1)"));
}

TEST_F(CommandsTest, AnswerQueuesForQuestionsAndDialogs) {
    for (const char* line : {"answer yes", "answer OK", "answer text \"a b\" $\"c\\nd\"",
                             "answer file /f", "answer folder \"/g h\""}) {
        EXPECT_EQ(run(line), "ok\n") << line;
    }
    EXPECT_EQ(host.MsgBox({.text = "?", .buttons = BoxButtons::yesNo}), BoxAnswer::yes);
    EXPECT_EQ(host.MsgBox({.text = "?", .buttons = BoxButtons::okCancel}), BoxAnswer::ok);
    for (const char* text : {"a b", "c\nd", "drive path of /f", "drive path of /g h", ""}) {
        EXPECT_EQ(host.BrowseForFolder(""), text);
    }
}

TEST_F(CommandsTest, AnswerFilesQueuesFilesOfOneFolder) {
    EXPECT_EQ(run("answer files C:\\a\\x.txt \"C:\\a\\y z.txt\""), "ok\n");
    const std::string folderAndNames{"drive path of C:\\a\0x.txt\0y z.txt", 32};
    EXPECT_EQ(host.OpenFileDialog({.Flags = file_dialog::allowMultiselect}), folderAndNames);
    EXPECT_EQ(run("answer files C:\\a\\x.txt C:\\a\\y.txt"), "ok\n");
    EXPECT_EQ(host.OpenFileDialog({}), "drive path of C:\\a\\x.txt");
    EXPECT_TRUE(refuses("answer files C:\\a\\x.txt C:\\b\\y.txt"));
    EXPECT_TRUE(refuses("answer files"));
}

TEST_F(CommandsTest, TheFirstOfSeveralFilesMayHaveNoName) {
    host.queueText({"C:\\a\0\0y.txt", 11});
    EXPECT_EQ(host.OpenFileDialog({}), "C:\\a\\");
}

TEST_F(CommandsTest, AnswerRefusesOthersAndQueuesNothing) {
    EXPECT_TRUE(refuses("answer maybe"));
    EXPECT_TRUE(refuses("answer yes yes"));
    EXPECT_TRUE(refuses("answer file /f \"unclosed"));
    EXPECT_EQ(host.MsgBox({.text = "?", .buttons = BoxButtons::yesNo}), BoxAnswer::no);
    EXPECT_EQ(host.OpenFileDialog({}), "");
}

TEST_F(CommandsTest, WaitLetsTheTimersRunBeforeTheReply) {
    form1.Timer1.Tick.connect([this] { host.MsgBox({.text = "tick"}); });
    EXPECT_EQ(run("wait 5"), "box: Velmora | none | tick | ok -> ok\nok\n");
    EXPECT_EQ(run("wait 0.5"), "ok\n");
    EXPECT_EQ(slept, 5500);
}

TEST_F(CommandsTest, WaitRefusesWhatIsNoTime) {
    for (const char* line : {"wait -1", "wait x", "wait nan", "wait inf", "wait 1e10", "wait 1e999",
                             "wait 99999999999999999999", "wait \"\""}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
    EXPECT_EQ(slept, 0);
}

TEST_F(CommandsTest, WaitUntilEndsAtOnceWhenAPanelHoldsTheText) {
    form1.StatusBar1.setPanelText(2, "Checked: 15:09");
    EXPECT_EQ(run("wait until Checked: 1"), "ok\n");
    EXPECT_EQ(slept, 0);
}

TEST_F(CommandsTest, WaitUntilGetsAnErrorAfterTenMinutes) {
    EXPECT_EQ(run("wait until pigs  fly"), "error: not seen within 600 s: pigs  fly\n");
    EXPECT_EQ(slept, 600'000);
}

TEST_F(CommandsTest, ARunTimeErrorEndsTheProgramAfterItsBoxWithoutAReply) {
    form1.lblDP[watch_button::add].Click.connect([] { throw RuntimeError(error::typeMismatch); });
    EXPECT_THROW(run("click lblDP(0)"), ProgramEnd);
    EXPECT_EQ(
        printed(),
        "box: Velmora | critical | $\"Run-time error '13':\\r\\nType mismatch\" | ok -> ok\n");
}

TEST_F(CommandsTest, SwitchToJsonWithTheReplyAndBack) {
    EXPECT_EQ(run("json on"), "{\"ok\":true}\n");
    EXPECT_EQ(run("get txtAmt"), "{\"ok\":\"50\"}\n");
    EXPECT_EQ(run("nonsense"), "{\"error\":\"unknown command: nonsense\"}\n");
    EXPECT_EQ(run("json off"), "ok\n");
    EXPECT_TRUE(refuses("json perhaps"));
}

TEST_F(CommandsTest, HelpOfOneCommandHasItsLinesAlone) {
    EXPECT_EQ(run("help tick"),
              "tick LIST INDEX on|off        tick an entry of a check list (from 0) or a row "
              "(from 1)\n"
              "tick LIST \"PATH\" on|off       tick the row of this path\n");
    EXPECT_EQ(run("help ROW"),
              "row LIST N                    print one row with its tags, keys and icons\n");
    const std::string report = run("help report");
    EXPECT_TRUE(report.starts_with("report NAME "));
    EXPECT_NE(report.find("netstat"), std::string::npos);
    EXPECT_EQ(report.find("\nwatch on"), std::string::npos);
    EXPECT_EQ(run("help nonsense"), "error: unknown command: nonsense\n");
}

TEST_F(CommandsTest, RefreshListsTheDrivesAnew) {
    EXPECT_EQ(run("refresh"), "ok\n");
    EXPECT_EQ(refreshed, 1);
}

TEST_F(CommandsTest, ARowIsPrintedWithAllThatItCarries) {
    addWatchColumns(form1.ListView1);
    ListItem& row = form1.ListView1.Add("C:\\");
    EXPECT_EQ(run("row ListView1 1"), "1 [ ] C:\\ |  |  |  | \n");
    row.setTag("a tag");
    row.setSmallIcon("drive");
    row.setSubItems(1, "5 KB");
    row.setSubTag(1, "first");
    row.setSubKey(1, "key");
    row.setReportIcon(1, "alert");
    row.setSubTag(4, "fourth");
    EXPECT_EQ(run("row ListView1 1"),
              "1 [ ] C:\\ | 5 KB |  |  |  <alert>\n"
              "    Tag a tag\n    SmallIcon drive\n"
              "    Tag(1) first\n    Key(1) key\n    ReportIcon(1) alert\n"
              "    Tag(4) fourth\n");
    run("json on");
    EXPECT_EQ(run("row ListView1 1"),
              R"({"ok":{"Text":"C:\\","SubItems":["5 KB","","",""],"Checked":false,)"
              R"("Selected":false,"Bold":false,"Tag":"a tag","SubTags":["first","","","fourth"],)"
              R"("ReportIcon":"alert","SmallIcon":"drive","SubKeys":["key","","",""],)"
              R"("SubIcons":["alert","","",""]}})"
              "\n");
}

TEST_F(CommandsTest, ARowThatIsNotThereIsAnError) {
    form1.ListView1.Add("C:\\");
    for (const char* line :
         {"row ListView1 0", "row ListView1 2", "row lstAct 0", "row ListView1 x"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(CommandsTest, HelpNamesEveryCommand) {
    const std::string help = run("help");
    for (const char* name :
         {"get",  "set",  "click",  "doubleclick", "menu",    "tick",  "select", "rows",
          "drop", "fire", "answer", "wait",        "report",  "watch", "json",   "help",
          "exit", "row",  "fields", "status",      "refresh", "at",    "after"}) {
        EXPECT_TRUE(("\n" + help).find("\n" + std::string(name) + " ") != std::string::npos)
            << name;
    }
}

TEST_F(CommandsTest, ExitChoosesTheExitCommandOfTheProgram) {
    form1.mnuExit.Click.connect([this] { done += "exit"; });
    EXPECT_EQ(run("exit"), "ok\n");
    EXPECT_EQ(done, "exit");
}

}  // namespace
}  // namespace velmora::console
