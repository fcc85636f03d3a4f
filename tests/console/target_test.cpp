#include "console/target.h"

#include <gtest/gtest.h>

#include "console/words.h"

namespace velmora::console {
namespace {

struct TargetTest : testing::Test {
    Target of(const std::string& name) { return resolve(forms, name); }
    PropertyValue read(const std::string& name) { return of(name).find().get(); }
    Forms forms;
};

TEST_F(TargetTest, IsAControlOfForm1UnlessAFormIsNamed) {
    EXPECT_EQ(of("txtAmt").control, &forms.form1.txtAmt);
    EXPECT_EQ(of("Form1.txtAmt").control, &forms.form1.txtAmt);
    EXPECT_EQ(of("Timer1").control, &forms.form1.Timer1);
    EXPECT_EQ(of("frmIndDri.Timer1").control, &forms.frmIndDri.Timer1);
}

TEST_F(TargetTest, IsFoundInAnyLetterCase) {
    EXPECT_EQ(of("TXTAMT").control, &forms.form1.txtAmt);
    EXPECT_EQ(of("FRMINDDRI.timer1").control, &forms.frmIndDri.Timer1);
    EXPECT_EQ(read("TXTAMT.TEXT"), PropertyValue{"50"});
}

TEST_F(TargetTest, TakesAnIndexIntoAControlArray) {
    EXPECT_EQ(of("lblDP(3)").control, &forms.form1.lblDP[3]);
    EXPECT_EQ(of("Form1.OpDriv(1).Value").control, &forms.form1.OpDriv[1]);
    EXPECT_FALSE(of("lblDP(3)").part);
}

TEST_F(TargetTest, TakesAnIndexOfAPartOfAControl) {
    const Target panel = of("StatusBar1(2)");
    EXPECT_EQ(panel.control, &forms.form1.StatusBar1);
    EXPECT_EQ(panel.part, 2);
    EXPECT_EQ(read("Toolbar1(1).Caption"), PropertyValue{"Start"});
    EXPECT_EQ(read("LVAlert(1).Text"), PropertyValue{"Rating"});
    EXPECT_EQ(read("lstEvt(4)"), PropertyValue{"Listed Drive/Path become N/A"});
}

TEST_F(TargetTest, WithoutAPropertyMeansTheMainOne) {
    EXPECT_EQ(of("txtAmt").find().name, "Text");
    EXPECT_EQ(of("chkDrive").find().name, "Value");
    EXPECT_EQ(of("lblE").find().name, "Caption");
    EXPECT_EQ(of("StatusBar1(1)").find().name, "Text");
    EXPECT_EQ(of("Toolbar1(1)").find().name, "Caption");
    EXPECT_EQ(of("Form1").find().name, "Caption");
}

TEST_F(TargetTest, MayBeTheFormItself) {
    const Target form = of("dlgAlert.Visible");
    EXPECT_EQ(form.form, &forms.dlgAlert);
    EXPECT_EQ(form.control, nullptr);
    EXPECT_EQ(form.find().get(), PropertyValue{false});
}

TEST_F(TargetTest, IsRefusedForANameThatIsntThere) {
    for (const char* name :
         {"", ".", "..", "...", "txtAmt.", ".txtAmt", "Form1..Text", "Nobody", "Nobody.Text",
          "frmNobody.txtAmt", "Form1.Nobody.Text", "frmIndDri.txtAmt.Text", "lblDP", "lblDP(5)",
          "Form1(0)", "(0)", "txtAmt.Text.Length", "Form1.txtAmt.Text.Length"}) {
        EXPECT_THROW(of(name), CommandError) << name;
    }
}

TEST_F(TargetTest, IsRefusedForWhatIsNoIndex) {
    for (const char* name :
         {"lblDP(", "lblDP()", "lblDP(x)", "lblDP(0", "lblDP(0)x", "lblDP(0))", "lblDP(-1)",
          "txtAmt(-1)", "lblDP(+0)", "lblDP( 0)", "lblDP(99999999999999999999)"}) {
        EXPECT_THROW(of(name), CommandError) << name;
    }
}

TEST_F(TargetTest, HasNoPropertyOfAnUnknownName) {
    for (const char* name :
         {"txtAmt.Nothing", "Form1.Nothing", "StatusBar1(1).Caption", "lstAct.Selected(0)"}) {
        EXPECT_THROW(of(name).find(), CommandError) << name;
    }
}

TEST_F(TargetTest, HasNoPartOutsideItsRange) {
    for (const char* name : {"StatusBar1(0)", "StatusBar1(4)", "Toolbar1(0)", "Toolbar1(7)",
                             "LVAlert(0)", "LVAlert(5)", "lstAct(12)", "txtAmt(0)"}) {
        EXPECT_THROW(of(name).find(), Refused) << name;
    }
}

TEST_F(TargetTest, AsAControlIsNeitherFormNorProperty) {
    EXPECT_EQ(resolveControl(forms, "txtAmt").control, &forms.form1.txtAmt);
    EXPECT_THROW(resolveControl(forms, "Form1"), CommandError);
    EXPECT_THROW(resolveControl(forms, "txtAmt.Text"), CommandError);
}

}  // namespace
}  // namespace velmora::console
