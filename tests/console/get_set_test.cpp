// Reading and setting fields of every kind by the commands get and set.
#include <gtest/gtest.h>

#include <utility>

#include "base/runtime_error.h"
#include "session.h"

namespace velmora::console {
namespace {

struct GetSetTest : testing::Test, tests::Session {
    // Sets the field and reads it again.
    std::string after(const std::string& name, const std::string& value) {
        const std::string reply = run("set " + name + " " + value);
        return reply == "ok\n" ? run("get " + name) : reply;
    }
    int fired = 0;
    std::function<void()> count = [this] { ++fired; };
};

TEST_F(GetSetTest, ReadsTheDesignValuesOfEveryKindOfField) {
    const std::pair<const char*, const char*> values[] = {
        {"txtAmt", "50"},
        {"txtAmt.Text", "50"},
        {"txtAmt.Enabled", "True"},
        {"txtAmt.Tag", ""},
        {"lblE", "Limit Alerts to:"},
        {"lblDP(1).ToolTipText", "Remove Selected  from List"},
        {"cmdPause", "Start Watch"},
        {"chkDrive", "0"},
        {"chkDrive.Caption", "Set Size Individually"},
        {"OpDriv(0)", "True"},
        {"OpDriv(1).Value", "False"},
        {"mnuExit", "Exit"},
        {"mnuExit.Checked", "False"},
        {"lstEvt", "5"},
        {"lstEvt(0).Selected", "False"},
        {"LVAlert", "0"},
        {"LVAlert.Sorted", "False"},
        {"LVAlert(2)", "Time/Date"},
        {"LVAlert(2).Width", "1800"},
        {"Slider1", "0"},
        {"Slider1.Visible", "False"},
        {"UpDown3", "50"},
        {"DTPInterval", "0:01:00"},
        {"DTPInterval.Minute", "1"},
        {"Timer1", "True"},
        {"Timer1.Interval", "5000"},
        {"StatusBar1(1)", ""},
        {"StatusBar1(1).Picture", "0"},
        {"Toolbar1(2)", "Wizard Settings"},
        {"Icon0.fraProgress.Visible", "False"},
        {"Frame8.Left", "0"},
        {"Frame8.Top", "600"},
        {"Frame8.Width", "8030"},
        {"Frame8.Height", "2700"},
        {"frmWizard.Frame1(6)", "Specified Files"},
        {"Form1", "Velmora"},
        {"Form1.Visible", "False"},
    };
    for (const auto& [name, value] : values) {
        EXPECT_EQ(run(std::string("get ") + name), std::string(value) + "\n") << name;
    }
}

TEST_F(GetSetTest, ReadsNumbersAndSwitchesAsSuchInJson) {
    run("json on");
    EXPECT_EQ(run("get Timer1.Interval"), "{\"ok\":5000}\n");
    EXPECT_EQ(run("get Timer1"), "{\"ok\":true}\n");
    EXPECT_EQ(run("get chkDrive"), "{\"ok\":0}\n");
    EXPECT_EQ(run("get txtAmt"), "{\"ok\":\"50\"}\n");
}

TEST_F(GetSetTest, SetsATextBoxToTheRestOfTheLine) {
    form1.txtDrive.Change.connect(count);
    EXPECT_EQ(after("txtDrive.Text", R"(C:\new "a b"  c)"), "C:\\new \"a b\"  c\n");
    EXPECT_EQ(after("txtDrive.Text", ""), "\n");
    EXPECT_EQ(after("txtDrive.Text", R"($"a\r\nb")"), "$\"a\\r\\nb\"\n");
    EXPECT_EQ(form1.txtDrive.Text(), "a\r\nb");
    EXPECT_EQ(fired, 3);
}

TEST_F(GetSetTest, CarriesAnyTextBothWaysInJson) {
    run("json on");
    const std::string literal = R"("a \"q\"\r\n\tb\\ größe Привет 日本 🙂 \u0000")";
    EXPECT_EQ(run("set txtDrive.Text $" + literal), "{\"ok\":true}\n");
    EXPECT_EQ(run("get txtDrive"), "{\"ok\":" + literal + "}\n");
}

TEST_F(GetSetTest, RefusesTextThatIsNoUtf8InATextBox) {
    EXPECT_TRUE(refuses("set txtDrive.Text a\xff"));
    EXPECT_TRUE(refuses("set txtDrive.Text \xed\xa0\x80"));
    EXPECT_EQ(form1.txtDrive.Text(), "");
}

TEST_F(GetSetTest, PressesKeysInATextBox) {
    form1.Text1.KeyPress.connect([this](int key) { fired = key; });
    EXPECT_EQ(run("set Text1.KeyPress 13"), "ok\n");
    EXPECT_EQ(fired, 13);
    EXPECT_TRUE(refuses("set Text1.KeyPress Enter"));
}

TEST_F(GetSetTest, SetsACheckBoxWhichClicksWhenItChanges) {
    form1.chkDrive.Click.connect(count);
    EXPECT_EQ(after("chkDrive.Value", "1"), "1\n");
    EXPECT_EQ(after("chkDrive.Value", "on"), "1\n");
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(after("chkDrive.Value", "False"), "0\n");
    EXPECT_EQ(fired, 2);
    EXPECT_TRUE(refuses("set chkDrive.Value 7"));
    EXPECT_TRUE(refuses("set chkDrive.Value"));
}

TEST_F(GetSetTest, SetsAnOptionButtonWhichClearsTheOthers) {
    form1.OpDriv[1].Click.connect(count);
    EXPECT_EQ(after("OpDriv(1).Value", "True"), "True\n");
    EXPECT_EQ(run("get OpDriv(0)"), "False\n");
    EXPECT_EQ(fired, 1);
    EXPECT_TRUE(refuses("set OpDriv(1).Value off"));
}

TEST_F(GetSetTest, ScrollsASliderWithinItsRange) {
    form1.Slider1.Scroll.connect(count);
    EXPECT_EQ(after("Slider1.Value", "100"), "100\n");
    EXPECT_EQ(fired, 1);
    for (const char* value : {"101", "-1", "ten", "", "1.5", "99999999999999999999"}) {
        EXPECT_TRUE(refuses(std::string("set Slider1.Value ") + value)) << value;
    }
    EXPECT_EQ(form1.Slider1.Value(), 100);
}

TEST_F(GetSetTest, MovesASpinnerWithItsBuddy) {
    form1.UpDown3.Change.connect(count);
    EXPECT_EQ(after("UpDown3.Value", "7"), "7\n");
    EXPECT_EQ(form1.txtAmt.Text(), "7");
    EXPECT_EQ(fired, 1);
    EXPECT_TRUE(refuses("set UpDown3.Value 1001"));
}

TEST_F(GetSetTest, SetsATimePickerWholeOrInParts) {
    form1.DTPInterval.Change.connect(count);
    EXPECT_EQ(after("DTPInterval.Value", "12:34:56"), "12:34:56\n");
    EXPECT_EQ(after("DTPInterval.Hour", "3"), "3\n");
    EXPECT_EQ(after("DTPInterval.Minute", "0"), "0\n");
    EXPECT_EQ(after("DTPInterval.Second", "9"), "9\n");
    EXPECT_EQ(run("get DTPInterval"), "3:00:09\n");
    EXPECT_EQ(fired, 4);
}

TEST_F(GetSetTest, RefusesTimesThatDontExist) {
    for (const char* line :
         {"Value 25:00:00", "Value 24:00:00", "Value 1:60:00", "Value 1:00:60", "Value 1:00",
          "Value 1:00:00:00", "Value noon", "Value", "Hour 24", "Minute 60", "Second -1"}) {
        EXPECT_TRUE(refuses(std::string("set DTPInterval.") + line)) << line;
    }
    EXPECT_EQ(run("get DTPInterval"), "0:01:00\n");
}

TEST_F(GetSetTest, SetsAComboBox) {
    ComboBox combo{form1, "cmbTest"};
    combo.Change.connect(count);
    EXPECT_EQ(after("cmbTest.Text", "a b"), "a b\n");
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(run("get cmbTest.ListCount"), "0\n");
}

TEST_F(GetSetTest, RefusesToSetWhatAHandCantSet) {
    for (const char* name :
         {"txtAmt.Enabled", "txtAmt.Visible", "txtAmt.Tag", "lblE.Caption", "cmdPause.Caption",
          "mnuExit.Checked", "lstAct.ListCount", "lstAct(0).Selected", "LVAlert.Count",
          "LVAlert(1).Text", "Timer1.Interval", "Timer1.Enabled", "StatusBar1(1).Text",
          "Toolbar1(1).Caption", "Form1.Caption", "Form1.Visible"}) {
        EXPECT_TRUE(refuses(std::string("set ") + name + " 1")) << name;
    }
}

TEST_F(GetSetTest, RefusesNamesThatDontLeadToAProperty) {
    for (const char* line : {"get Nobody", "get txtAmt.Nothing", "get lblDP(9)", "get frmNobody.a",
                             "get StatusBar1(4)", "get ListView1(0)", "set txtAmt 5",
                             "set OpDriv(0) on", "set Nobody.Text 5", "set txtAmt.Nothing 5"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(GetSetTest, RefusesToSetOrClickADisabledField) {
    for (Control* control : form1.controls()) {
        if (dynamic_cast<Timer*>(control) == nullptr) control->setEnabled(false);
    }
    form1.ListView1.Add("a");
    for (const char* line : {"set txtAmt.Text 5",
                             "set txtAmt.KeyPress 13",
                             "set chkDrive.Value on",
                             "set OpDriv(1).Value on",
                             "set Slider1.Value 5",
                             "set UpDown3.Value 5",
                             "set DTPInterval.Value 1:00:00",
                             "set DTPInterval.Hour 1",
                             "click chkDrive",
                             "click OpDriv(1)",
                             "click lblDP(0)",
                             "click cmdPause",
                             "click UpDown3.Up",
                             "click UpDown3.Down",
                             "click Toolbar1(1)",
                             "click LVAlert(1)",
                             "menu mnuExit",
                             "tick lstAct 0 on",
                             "tick ListView1 1 on",
                             "select ListView1 1",
                             "doubleclick ListView1 row 1",
                             "drop ListView1 /a",
                             "exit"}) {
        const std::string reply = run(line);
        EXPECT_TRUE(reply.starts_with("error: ") && reply.ends_with(" is disabled\n"))
            << line << " -> " << reply;
    }
}

TEST_F(GetSetTest, ARunTimeErrorInAHandlerOfASetFieldEndsTheProgram) {
    form1.txtDrive.Change.connect([] { throw RuntimeError(error::overflow); });
    EXPECT_THROW(run("set txtDrive.Text x"), ProgramEnd);
    EXPECT_NE(printed().find("Run-time error '6':"), std::string::npos);
}

}  // namespace
}  // namespace velmora::console
