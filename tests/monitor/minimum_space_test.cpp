#include "monitor/minimum_space.h"

#include <gtest/gtest.h>

#include "base/regionals.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

struct MinimumSpaceTest : testing::Test {
    MinimumSpaceTest() { rig.load(); }
    void type(const std::string& text) { rig.form1.txtSpace.setText(text); }
    const std::string& space() { return rig.form1.txtSpace.Text(); }
    const std::string& header() { return rig.list.ColumnHeaders(4).Text; }
    const std::string& mb() { return rig.form1.lblMB.Caption(); }
    const std::string& gb() { return rig.form1.lblGB.Caption(); }
    std::string trigger(int row) { return ConstWatchRow(rig.list.ListItems(row)).trigger(); }
    std::vector<std::string> messages() {
        std::vector<std::string> texts;
        for (const Box& box : rig.host.boxes) texts.push_back(box.text);
        return texts;
    }
    void chooseKB() { rig.form1.OpDriv[0].userClick(); }
    void choosePercent() { rig.form1.OpDriv[1].userClick(); }

    using Texts = std::vector<std::string>;
    Rig rig;
};

using SpaceTextTest = MinimumSpaceTest;
using UnitTest = MinimumSpaceTest;
using SpinnerTest = MinimumSpaceTest;
using IndividualTest = MinimumSpaceTest;

TEST_F(SpaceTextTest, IsEchoedInMegabytesAndGigabytesByDecimalFactors) {
    type("50000");
    EXPECT_EQ(mb(), "50.0 MB");
    EXPECT_EQ(gb(), "0.05 GB");
    type("1234567");
    EXPECT_EQ(mb(), "1234.57 MB");
    EXPECT_EQ(gb(), "1.23 GB");
    type("0");
    EXPECT_EQ(mb(), "0.0 MB");
    EXPECT_EQ(gb(), "0.0 GB");
}

TEST_F(SpaceTextTest, IsReadAndEchoedInTheRegionalForm) {
    rig.machine.platform().regional = germany;
    type("1.500,5");
    EXPECT_EQ(rig.host.boxes.size(), 0u);
    EXPECT_EQ(mb(), "1,5 MB");
}

TEST_F(SpaceTextTest, ThatIsNoNumberIsReportedAndBecomesOne) {
    for (const char* text : {"abc", "", " ", "5O", "50000 KB", "1..2", "\u0663", "-"}) {
        type("50000");
        rig.clearRecords();
        type(text);
        EXPECT_EQ(messages(), Texts{"Please input only numbers."}) << text;
        EXPECT_EQ(rig.host.boxes.at(0).title, "Velmora");
        EXPECT_EQ(space(), "1");
        EXPECT_EQ(mb(), "0.0 MB");
        EXPECT_EQ(gb(), "0.0 GB");
    }
}

TEST_F(SpaceTextTest, ThatIsNoNumberIsReportedInPercentModeToo) {
    choosePercent();
    type("abc");
    EXPECT_EQ(messages(), Texts{"Please input only numbers."});
    EXPECT_EQ(space(), "1");
    EXPECT_EQ(mb(), "");
}

TEST_F(SpaceTextTest, IsNotEchoedInPercentMode) {
    type("90");
    EXPECT_NE(mb(), "");
    choosePercent();
    type("40");
    EXPECT_EQ(mb(), "");
    EXPECT_EQ(gb(), "");
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(UnitTest, SwitchingToPercentWith50000YieldsTheMessageAnd10) {
    type("50000");
    choosePercent();
    ASSERT_EQ(messages(), Texts{"Cannot set over 100%"});
    EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
    EXPECT_EQ(space(), "10");
    EXPECT_EQ(rig.form1.Slider1.Value(), 10);
    EXPECT_EQ(header(), "Trigger S( %)");
    EXPECT_EQ(mb(), "");
}

TEST_F(UnitTest, SwitchingToPercentWith40KeepsItWhileTheSliderShows10) {
    type("40");
    choosePercent();
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(space(), "40");
    EXPECT_EQ(rig.form1.Slider1.Value(), 10);
    EXPECT_TRUE(rig.form1.Slider1.Visible());
    EXPECT_EQ(header(), "Trigger S(KB)");
}

TEST_F(UnitTest, Exactly100IsNotOver100) {
    type("100");
    choosePercent();
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(space(), "100");
    chooseKB();
    type("100.01");
    choosePercent();
    EXPECT_EQ(space(), "10");
}

TEST_F(UnitTest, AnEmptySpaceIsIgnored) {
    choosePercent();
    EXPECT_EQ(messages(), Texts{});
    EXPECT_EQ(space(), "");
    EXPECT_EQ(rig.form1.Slider1.Value(), 10);
}

TEST_F(UnitTest, SwitchingToKilobytesHidesTheSliderAndChangesTheUnitInTheHeader) {
    type("50000");
    choosePercent();
    chooseKB();
    EXPECT_FALSE(rig.form1.Slider1.Visible());
    EXPECT_EQ(header(), "Trigger S(KB)");
    EXPECT_EQ(space(), "10");
}

TEST_F(UnitTest, TheFirstClickCutsTheHeaderToItsFirstNineCharacters) {
    rig.list.setColumnText(4, "Trigger Space");
    chooseKB();
    EXPECT_EQ(header(), "Trigger S(KB)");
    chooseKB();
    EXPECT_EQ(header(), "Trigger S(KB)");
}

TEST_F(UnitTest, EveryOccurrenceOfTheLastFourCharactersIsRemoved) {
    rig.list.setColumnText(4, "(KB)Trig(KB)ger(KB)");
    chooseKB();
    EXPECT_EQ(header(), "Trigger(KB)");
    rig.list.setColumnText(4, "abc");
    chooseKB();
    EXPECT_EQ(header(), "(KB)");
}

TEST_F(UnitTest, AScrollOfTheSliderBecomesTheSpace) {
    choosePercent();
    rig.form1.Slider1.userScroll(73);
    EXPECT_EQ(space(), "73");
    rig.form1.Slider1.userScroll(0);
    EXPECT_EQ(space(), "0");
}

TEST_F(SpinnerTest, StepsTheSpaceByOne) {
    type("50000");
    rig.form1.UpDownSpace.userUp();
    EXPECT_EQ(space(), "50001");
    rig.form1.UpDownSpace.userDown();
    rig.form1.UpDownSpace.userDown();
    EXPECT_EQ(space(), "49999");
}

TEST_F(SpinnerTest, AtZeroNeitherDirectionActs) {
    type("1");
    rig.form1.UpDownSpace.userDown();
    EXPECT_EQ(space(), "0");
    rig.form1.UpDownSpace.userDown();
    rig.form1.UpDownSpace.userUp();
    EXPECT_EQ(space(), "0");
}

TEST_F(SpinnerTest, BelowZeroNeitherDirectionActs) {
    type("-5");
    rig.form1.UpDownSpace.userUp();
    rig.form1.UpDownSpace.userDown();
    EXPECT_EQ(space(), "-5");
}

TEST_F(SpinnerTest, IgnoresASpaceThatIsNoNumber) {
    rig.form1.UpDownSpace.userUp();
    rig.form1.UpDownSpace.userDown();
    EXPECT_EQ(space(), "");
    EXPECT_EQ(messages(), Texts{});
}

TEST_F(SpinnerTest, GoesOnBeyond32Bits) {
    type("2147483647");
    rig.form1.UpDownSpace.userUp();
    EXPECT_EQ(space(), "2147483648");
}

TEST_F(IndividualTest, TickingWritesTheSpaceIntoEveryRowAndDisablesTheText) {
    type("1234");
    rig.row("C:\\");
    rig.row("D:\\", false);
    rig.form1.chkDrive.userClick();
    ASSERT_EQ(messages(), Texts{"Set the Listed Path's Specified Drive Space by Double Clicking on "
                                "the Value shown in the List."});
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
    EXPECT_EQ(trigger(1), "1234");
    EXPECT_EQ(trigger(2), "1234");
    EXPECT_FALSE(rig.form1.txtSpace.Enabled());
}

TEST_F(IndividualTest, TheMessageComesBeforeTheRowsAreWritten) {
    type("1234");
    rig.row("C:\\");
    rig.host.onBox = [this](const Box&) {
        EXPECT_EQ(trigger(1), "");
        EXPECT_TRUE(rig.form1.txtSpace.Enabled());
    };
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(trigger(1), "1234");
}

TEST_F(IndividualTest, ClearingEmptiesEveryRowAndEnablesTheText) {
    type("1234");
    rig.row("C:\\");
    rig.form1.chkDrive.userClick();
    rig.clearRecords();
    WatchRow(rig.list.ListItems(1)).setTrigger("99");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(trigger(1), "");
    EXPECT_TRUE(rig.form1.txtSpace.Enabled());
    EXPECT_EQ(messages(), Texts{});
}

TEST_F(IndividualTest, TheFirstHeaderThatContainsTriggerIsUsed) {
    type("7");
    rig.row("C:\\");
    rig.list.setColumnText(3, "My Trigger");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(rig.list.ListItems(1).SubItems(2), "7");
    EXPECT_EQ(trigger(1), "");
}

TEST_F(IndividualTest, WithoutSuchAHeaderNothingIsWritten) {
    type("7");
    rig.row("C:\\");
    rig.list.setColumnText(4, "trigger");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(trigger(1), "");
    EXPECT_FALSE(rig.form1.txtSpace.Enabled());
}

TEST_F(IndividualTest, WritesTenThousandRows) {
    type("7");
    for (int i = 0; i < 10000; ++i) rig.row("C:\\");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(trigger(10000), "7");
}

TEST_F(IndividualTest, ClearingFindsTheColumnByItsHeaderTheSameWay) {
    type("7");
    rig.row("C:\\");
    rig.form1.chkDrive.userClick();
    rig.list.setColumnText(4, "no such word");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(trigger(1), "7");
    EXPECT_TRUE(rig.form1.txtSpace.Enabled());
}

TEST_F(UnitTest, ATakenSettingIsTheUnitThenTheNumberWithoutAMessage) {
    rig.form1.OpDriv[0].choose();
    type("50000");
    rig.clearRecords();
    rig.minimumSpace.take({.unit = 1, .space = "15", .slider = 35});
    EXPECT_TRUE(rig.form1.OpDriv[1].Value());
    EXPECT_EQ(space(), "15");
    EXPECT_EQ(header(), "Trigger S( %)");
    EXPECT_EQ(rig.form1.Slider1.Value(), 35);
    EXPECT_TRUE(rig.form1.Slider1.Visible());
    EXPECT_EQ(messages(), Texts{});
    rig.minimumSpace.take({.unit = 0, .space = "2500000"});
    EXPECT_TRUE(rig.form1.OpDriv[0].Value());
    EXPECT_EQ(mb(), "2500.0 MB");
    EXPECT_EQ(header(), "Trigger S(KB)");
    EXPECT_EQ(messages(), Texts{});
    choosePercent();
    EXPECT_EQ(messages(), Texts{"Cannot set over 100%"});
}

TEST_F(UnitTest, ATakenUnitThatIsSetAlreadyIsNoClick) {
    type("70");
    int clicks = 0;
    for (OptionButton& unit : rig.form1.OpDriv) unit.Click.connect([&] { ++clicks; });
    rig.minimumSpace.take({.unit = 0, .space = "80"});
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(space(), "80");
}

TEST_F(IndividualTest, TakenItIsSwitchedWithoutAMessage) {
    rig.row("C:\\");
    type("900");
    rig.clearRecords();
    rig.minimumSpace.takeIndividual(1);
    EXPECT_EQ(trigger(1), "900");
    EXPECT_FALSE(rig.form1.txtSpace.Enabled());
    EXPECT_EQ(messages(), Texts{});
    rig.minimumSpace.takeIndividual(0);
    EXPECT_EQ(trigger(1), "");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(messages().size(), 1u);
}

TEST_F(UnitTest, WithoutItsRulesTheFieldsTakeAnyValue) {
    rig.minimumSpace.disconnect();
    choosePercent();
    type("abc");
    rig.form1.chkDrive.userClick();
    EXPECT_EQ(space(), "abc");
    EXPECT_TRUE(rig.form1.txtSpace.Enabled());
    EXPECT_EQ(messages(), Texts{});
    rig.minimumSpace.connect();
    rig.minimumSpace.connect();
    type("abd");
    EXPECT_EQ(messages(), Texts{"Please input only numbers."});
}

}  // namespace
}  // namespace velmora::tests
