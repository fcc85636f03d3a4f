#include "persist/settings_file.h"

#include <gtest/gtest.h>

#include <limits>

#include "fake/fake_parts.h"
#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct SettingsFileTest : testing::Test, SettingsRig {};

constexpr std::int16_t otherDirections[] = {0, 3, -1, std::numeric_limits<std::int16_t>::max(),
                                            std::numeric_limits<std::int16_t>::min()};

TEST_F(SettingsFileTest, AnyOtherDirectionTouchesNoFileButStillChecksTheInterval) {
    for (const std::int16_t bSet : otherDirections) {
        form1.txtTime.setText("-3");
        EXPECT_EQ(run(bSet), 0) << bSet;
        EXPECT_EQ(form1.txtTime.Text(), "5") << bSet;
        form1.txtTime.setText("");
        EXPECT_EQ(run(bSet), error::typeMismatch) << bSet;
    }
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_TRUE(machine.files.empty());
    EXPECT_EQ(host.yields, 0);
}

TEST_F(SettingsFileTest, TheIntervalIsCheckedAfterTheWriting) {
    form1.txtTime.setText("0");
    EXPECT_EQ(run(1), 0);
    EXPECT_TRUE(contains(content(), shifted("txtTime=0\r\n", 1)));
    EXPECT_EQ(form1.txtTime.Text(), "5");
}

TEST_F(SettingsFileTest, AnEmptyIntervalIsWrittenAndFailsThen) {
    EXPECT_EQ(run(1), error::typeMismatch);
    EXPECT_TRUE(contains(content(), "\r\n" + shifted("txtTime=\r\n", 1) + "\r\n"));
    EXPECT_TRUE(contains(content(), shifted("updateauto=0\r\n", 1))) << "the file is whole";
}

TEST_F(SettingsFileTest, TheCheckedIntervalLeavesThePickerAsItWas) {
    form1.DTPInterval.setHour(3);
    form1.txtTime.setText("0");
    run(0);
    EXPECT_EQ(form1.DTPInterval.Hour(), 3);
    EXPECT_EQ(form1.DTPInterval.Minute(), 1);
}

TEST_F(SettingsFileTest, ADecimalIntervalIsReadInTheRegionalForm) {
    machine.platform().regional = {.digitGroup = ".", .decimalPoint = ","};
    form1.txtTime.setText("0,5");
    EXPECT_EQ(run(0), 0);
    EXPECT_EQ(form1.txtTime.Text(), "0,5");
    form1.txtTime.setText("-0,5");
    EXPECT_EQ(run(0), 0);
    EXPECT_EQ(form1.txtTime.Text(), "5");
}

TEST_F(SettingsFileTest, SavingReplacesTheWholeContent) {
    form1.txtTime.setText("60");
    machine.files[path] = std::string(100000, 'o');
    EXPECT_EQ(run(1), 0);
    const std::string once = content();
    EXPECT_LT(once.size(), 2000u);
    EXPECT_EQ(run(1), 0);
    EXPECT_EQ(content(), once);
}

TEST_F(SettingsFileTest, SavingMakesNoOtherFile) {
    form1.txtTime.setText("60");
    run(1);
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(machine.log.calls(), Lines{"writeOver " + path});
    EXPECT_TRUE(machine.privateFiles.contains(fake::keyOf(path)));  // the mail password is in it
}

TEST_F(SettingsFileTest, ReadingLeavesTheFileAsItIs) {
    const std::string file = fileOf({"txtTime=0\r\n"});
    EXPECT_EQ(readBytes(file), 0);
    EXPECT_EQ(content(), file);
}

TEST_F(SettingsFileTest, TheFileIsTheOneThatTheGlobalsName) {
    machine.folders.insert("d:\\other");
    forms.globals.strSettings = "D:\\other\\mine.dat";
    form1.txtTime.setText("60");
    EXPECT_EQ(run(1), 0);
    EXPECT_EQ(machine.files.count("D:\\other\\mine.dat"), 1u);
    EXPECT_EQ(machine.files.count(path), 0u);
}

TEST_F(SettingsFileTest, TheEmptySavingProcedureDoesNothing) {
    settings.prcSaveSettings();
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(form1.txtTime.Text(), "");
}

TEST_F(SettingsFileTest, ReadingDoesNotYield) {
    EXPECT_EQ(read({"notcboEmail=a", "lstAct=1", "path=C:\\"}), 0);
    EXPECT_EQ(host.yields, 0);
}

// Twice the lines, twice the work: the machine is asked once for the file and once a line at most.
TEST_F(SettingsFileTest, ATenMegabyteFileTakesWorkInProportionToItsSize) {
    const auto callsFor = [](int lines) {
        std::string file = fileOf({"txtTime=60"});
        const std::string line = fileOf(
            {"txtAudio0=C:\\gone.wav", "cboFile=C:\\f\r\n", "notCustMsg=" + std::string(150, 'm')});
        for (int i = 0; i < lines; ++i) file += line;
        SettingsRig rig;
        EXPECT_EQ(rig.readBytes(file), 0);
        EXPECT_EQ(rig.form1.cboFile.ListCount(), lines);
        EXPECT_GT(file.size(), static_cast<std::size_t>(lines) * 200);
        return rig.machine.log.count();
    };
    EXPECT_EQ(callsFor(25'000), 1 + 2 * 25'000);
    EXPECT_EQ(callsFor(50'000), 1 + 2 * 50'000);
}

}  // namespace
}  // namespace velmora::tests
