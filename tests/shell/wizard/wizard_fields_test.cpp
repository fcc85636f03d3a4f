// Every field of the wizard shows its counterpart when it opens, and goes there when it is applied.
#include <functional>

#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

/// A field of the wizard with one value, and the one that it stands for.
struct FieldPair {
    const char* mine;
    const char* theirForm;
    const char* theirs;
    int index = -1;
    Words values = {"some text", "another", ""};
};

const Words ticks{"1", "0"};
const Words timesOfDay{"6:30:00", "23:59:00"};

const FieldPair fieldPairs[] = {
    {"txtDrive", "Form1", "txtDrive"},
    {"txtFileType", "Form1", "txtFileType"},
    {"txtFreeSpace", "Form1", "txtSpace", -1, {"777", "12345678"}},
    {"chkCustTime", "Form1", "chkCustTime", -1, ticks},
    {"cboFile", "Form1", "cboFile"},
    {"cboProg", "Form1", "cboProg"},
    {"txtMailServer", "frmNotify", "txtMailServer"},
    {"txtMailPort", "frmNotify", "txtMailPort"},
    {"cboEncryption", "frmNotify", "cboEncryption", -1, {"TLS", "STARTTLS", "None"}},
    {"txtYourEmail", "frmNotify", "txtYourEmail"},
    {"txtUser", "frmNotify", "txtUser"},
    {"txtPass", "frmNotify", "txtPass"},
    {"txtMailFromDisplayName", "frmNotify", "txtMailFromDisplayName"},
    {"txtMailSubj", "frmNotify", "txtMailSubj"},
    {"cboNotEmail", "frmNotify", "cboNotEmail"},
    {"chkIsHTML", "frmNotify", "chkIsHTML", -1, ticks},
};

struct WizardFieldsTest : testing::Test, WizardRig {
    Control& field(const std::string& form, const std::string& name, int index = -1) {
        return *forms.find(form)->find(name, index);
    }
    /// The main value, of a masked text box the text itself.
    static std::string valueIn(Control& control) {
        if (const auto* box = dynamic_cast<TextBox*>(&control)) return box->Text();
        for (const Property& each : control.properties()) {
            if (each.name != control.mainProperty()) continue;
            const PropertyValue value = each.get();
            if (const auto* text = std::get_if<std::string>(&value)) return *text;
            if (const auto* on = std::get_if<bool>(&value)) return *on ? "1" : "0";
            return std::to_string(std::get<std::int64_t>(value));
        }
        return "no value";
    }
    static void put(Control& control, const std::string& value) {
        for (const Property& each : control.properties()) {
            if (each.name == control.mainProperty()) each.set(value);
        }
    }
};

TEST_F(WizardFieldsTest, AFieldShowsWhatItStandsForWhenTheWizardOpens) {
    for (const FieldPair& pair : fieldPairs) {
        for (const std::string& value : pair.values) {
            put(field(pair.theirForm, pair.theirs), value);
            reopen();
            EXPECT_EQ(valueIn(field("frmWizard", pair.mine)), value) << pair.mine;
        }
    }
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardFieldsTest, AFieldGoesThereWhenTheWizardIsAppliedAndNotBefore) {
    for (const FieldPair& pair : fieldPairs) {
        Control& theirs = field(pair.theirForm, pair.theirs);
        for (const std::string& value : pair.values) {
            const std::string before = valueIn(theirs);
            put(field("frmWizard", pair.mine), value);
            EXPECT_EQ(valueIn(theirs), before) << pair.mine;
            apply();
            EXPECT_EQ(valueIn(theirs), value) << pair.mine;
            EXPECT_EQ(valueIn(field("frmWizard", pair.mine)), value) << pair.mine;
        }
    }
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardFieldsTest, ThePasswordIsMaskedInTheWizardToo) {
    mail.txtPass.setText("secret");
    reopen();
    EXPECT_EQ(std::get<std::string>([this] {
                  for (const Property& each : wizard.txtPass.properties()) {
                      if (each.name == "Text") return each.get();
                  }
                  return PropertyValue{std::string()};
              }()),
              "******");
}

TEST_F(WizardFieldsTest, EachEventGoesThereAndBack) {
    for (std::size_t i = 0; i < wizard.chkop.size(); ++i) {
        const int index = static_cast<int>(i);
        wizard.chkop[i].userClick();
        EXPECT_EQ(ticksOf(form1.lstEvt), std::vector<int>{}) << i;
        apply();
        EXPECT_EQ(ticksOf(form1.lstEvt), std::vector{index}) << i;
        form1.lstEvt.userTick(index, false);
        reopen();
        EXPECT_FALSE(wizard.chkop[i].ticked()) << i;
        form1.lstEvt.userTick(index, true);
        reopen();
        for (std::size_t j = 0; j < wizard.chkop.size(); ++j) {
            EXPECT_EQ(wizard.chkop[j].ticked(), i == j);
        }
        wizard.chkop[i].userClick();
        apply();
        EXPECT_EQ(ticksOf(form1.lstEvt), std::vector<int>{}) << i;
    }
}

TEST_F(WizardFieldsTest, AnEventIsTickedAsByAClick) {
    Words fired;
    form1.lstEvt.ItemCheck.connect([&](int index) { fired.push_back(std::to_string(index)); });
    form1.lstEvt.Click.connect([&] { fired.emplace_back("click"); });
    wizard.chkop[3].userClick();
    apply();
    EXPECT_EQ(fired, (Words{"3", "click"}));
}

TEST_F(WizardFieldsTest, EachActionGoesThereAndBack) {
    for (int i = 0; i < wizard.lstAct.ListCount(); ++i) {
        host.answers = {BoxAnswer::no};  // for the mail's
        wizard.lstAct.userTick(i, true);
        host.answers.clear();
        host.boxes.clear();
        EXPECT_EQ(ticksOf(form1.lstAct), std::vector<int>{}) << i;
        apply();
        EXPECT_EQ(ticksOf(form1.lstAct), std::vector{i});
        form1.lstAct.userTick(i, false);
        reopen();
        EXPECT_EQ(ticksOf(wizard.lstAct), std::vector<int>{}) << i;
        host.answers = {BoxAnswer::no};
        form1.lstAct.userTick(i, true);
        host.answers.clear();
        host.boxes.clear();
        reopen();
        EXPECT_EQ(ticksOf(wizard.lstAct), std::vector{i});
        wizard.lstAct.userTick(i, false);
        apply();
        EXPECT_EQ(ticksOf(form1.lstAct), std::vector<int>{}) << i;
        EXPECT_EQ(said(), Words{}) << i;
    }
}

TEST_F(WizardFieldsTest, BothEndsOfTheCustomTimeGoThereAndBack) {
    for (std::size_t i = 0; i < 2; ++i) {
        form1.DTTime1[i].setValue({.hour = 5, .minute = 41, .second = 7});
        reopen();
        EXPECT_EQ(wizard.DTTime1[i].Value(), (DateTime{.hour = 5, .minute = 41, .second = 7}));
        wizard.DTTime1[i].setHour(22);
        EXPECT_EQ(form1.DTTime1[i].Hour(), 5);
        apply();
        EXPECT_EQ(form1.DTTime1[i].Value(), (DateTime{.hour = 22, .minute = 41, .second = 7}));
    }
}

TEST_F(WizardFieldsTest, TheCustomTimeIsSwitchedOnAsByAClick) {
    EXPECT_FALSE(form1.DTTime1[0].Enabled());
    wizard.chkCustTime.userClick();
    wizard.DTTime1[0].setHour(7);
    wizard.DTTime1[1].setHour(19);
    EXPECT_FALSE(form1.DTTime1[0].Enabled());
    apply();
    for (const DatePicker& end : form1.DTTime1) EXPECT_TRUE(end.Enabled());
    EXPECT_EQ(form1.DTTime1[0].Hour(), 7);
    EXPECT_EQ(form1.DTTime1[1].Hour(), 19);
    wizard.chkCustTime.userClick();
    apply();
    for (const DatePicker& end : form1.DTTime1) EXPECT_FALSE(end.Enabled());
}

// What every check goes by is the picker; the text follows it.
TEST_F(WizardFieldsTest, TheIntervalIsThatOfThePickerInSeconds) {
    EXPECT_EQ(wizard.txtTime.Text(), "60");
    form1.DTPInterval.setValue({.hour = 2, .minute = 3, .second = 4});
    form1.txtTime.setText("65");
    reopen();
    EXPECT_EQ(wizard.txtTime.Text(), "7384");
    wizard.txtTime.setText("3725");
    apply();
    EXPECT_EQ(form1.DTPInterval.Value(), (DateTime{.hour = 1, .minute = 2, .second = 5}));
    EXPECT_EQ(form1.txtTime.Text(), "3725");
}

TEST_F(WizardFieldsTest, AnIntervalThatIsNoneIsRefusedWithItsReason) {
    for (const char* text : {"", "abc", "0", "-5", "86400", "1.5"}) {
        wizard.txtTime.setText(text);
        apply();
        EXPECT_EQ(said(), Words{"The time interval must be a whole number of seconds from 1 to "
                                "86399. The interval stays as it was."})
            << text;
        host.boxes.clear();
        EXPECT_EQ(form1.DTPInterval.Value(), timeOfDay(0, 1)) << text;
        EXPECT_EQ(wizard.txtTime.Text(), text);
    }
    for (const auto& [text, expected] :
         {std::pair{"1", DateTime{.second = 1}},
          std::pair{"86399", DateTime{.hour = 23, .minute = 59, .second = 59}}}) {
        wizard.txtTime.setText(text);
        apply();
        EXPECT_EQ(form1.DTPInterval.Value(), expected) << text;
    }
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardFieldsTest, EntriesOfTheBoxesGoThereAndBack) {
    for (const auto& [mine, theirs] :
         {std::pair<ComboBox&, ComboBox&>{wizard.cboFile, form1.cboFile},
          {wizard.cboProg, form1.cboProg},
          {wizard.cboNotEmail, mail.cboNotEmail}}) {
        for (const char* entry : {"one", "two", "two", "three"}) theirs.AddItem(entry);
        reopen();
        EXPECT_EQ(entriesOf(mine), (Words{"one", "two", "two", "three"})) << mine.Name();
        mine.RemoveItem(1);
        mine.RemoveItem(0);
        mine.AddItem("four");
        EXPECT_EQ(theirs.ListCount(), 4);
        apply();
        EXPECT_EQ(entriesOf(theirs), (Words{"two", "three", "four"})) << mine.Name();
        EXPECT_EQ(entriesOf(mine), (Words{"two", "three", "four"}));
    }
}

TEST_F(WizardFieldsTest, RowsOfFilesAndProgramsGoThereAndBackWhole) {
    machine.files["D:\\a.bin"] = "12345";
    machine.files["D:\\b.bin"] = "x";
    machine.folders.insert("d:\\full");
    for (const auto& [mine, theirs] : {std::pair<ListView&, ListView&>{wizard.LVFile, form1.LVFile},
                                       {wizard.LVProg, form1.LVProg}}) {
        theirs.userDrop({"D:\\a.bin", "D:\\b.bin", "D:\\a.bin"});
        reopen();
        ASSERT_EQ(mine.Count(), 3) << mine.Name();
        for (int i = 1; i <= 3; ++i) {
            EXPECT_EQ(mine.ListItems(i).Tag(), theirs.ListItems(i).Tag());
            EXPECT_EQ(mine.ListItems(i).Text(), theirs.ListItems(i).Text());
            for (int sub = 1; sub <= theirs.ListItems(i).SubItemCount(); ++sub) {
                EXPECT_EQ(mine.ListItems(i).SubItems(sub), theirs.ListItems(i).SubItems(sub));
            }
        }
        mine.Remove(3);
        mine.Remove(2);
        mine.userDrop({"D:\\b.bin", "D:\\b.bin"});
        EXPECT_EQ(theirs.Count(), 3);
        apply();
        EXPECT_EQ(tagsOf(theirs), (Words{"D:\\a.bin", "D:\\b.bin", "D:\\b.bin"})) << mine.Name();
        EXPECT_EQ(theirs.ListItems(2).SubItems(1), mine.ListItems(2).SubItems(1));
    }
    // The size behind the text goes with it.
    EXPECT_EQ(form1.LVFile.ListItems(1).ListSubItems(1).Tag(), "5");
    EXPECT_EQ(form1.LVFile.ListItems(2).ListSubItems(1).Tag(), "1");
}

TEST_F(WizardFieldsTest, AFieldThatTheMainWindowDisablesIsDisabledHereToo) {
    EXPECT_TRUE(wizard.txtDrive.Enabled());
    EXPECT_FALSE(wizard.DTTime1[0].Enabled());
    EXPECT_FALSE(wizard.DTTime1[1].Enabled());
    EXPECT_TRUE(wizard.txtFreeSpace.Enabled());
    form1.lstAct.userClick();
    form1.chkCustTime.userClick();
    form1.chkDrive.userClick();
    reopen();
    EXPECT_FALSE(wizard.txtDrive.Enabled());
    EXPECT_TRUE(wizard.DTTime1[0].Enabled());
    EXPECT_TRUE(wizard.DTTime1[1].Enabled());
    EXPECT_FALSE(wizard.txtFreeSpace.Enabled());
}

}  // namespace
}  // namespace velmora::tests
