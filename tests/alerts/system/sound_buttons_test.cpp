// The buttons beside the sounds of the settings.
#include "alerts/system/sound_buttons.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "fake/fake_surface.h"
#include "forms/forms.h"

namespace velmora::tests {
namespace {

using Played = std::vector<std::pair<std::string, std::int32_t>>;

struct SoundButtonsTest : testing::Test {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeUser32 user32;
    Forms forms;
    Form1& form1 = forms.form1;
    SystemActions actions{forms.form1, machine.platform(), user32};
    SoundButtons buttons{forms.form1, machine.platform(), host, actions};

    SoundButtonsTest() {
        EXPECT_EQ(machine.log.count(), 0) << "nothing is asked for before the start";
        buttons.setDefaults();
        machine.log.clear();
    }
};

TEST_F(SoundButtonsTest, BothSoundsAreTheSystemsChimeUntilOthersAreChosen) {
    for (const TextBox& sound : form1.txtAudio) {
        EXPECT_EQ(sound.Text(), "C:\\Windows\\media\\chimes.wav");
    }
}

TEST(SoundDefaults, ChosenSoundsStayAndAFailureLeavesThemEmpty) {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeUser32 user32;
    Forms chosen;
    chosen.form1.txtAudio[1].setText("D:\\mine.wav");
    SystemActions chosenActions{chosen.form1, machine.platform(), user32};
    SoundButtons first{chosen.form1, machine.platform(), host, chosenActions};
    first.setDefaults();
    EXPECT_EQ(chosen.form1.txtAudio[0].Text(), "C:\\Windows\\media\\chimes.wav");
    EXPECT_EQ(chosen.form1.txtAudio[1].Text(), "D:\\mine.wav");

    Forms failing;
    SystemActions failingActions{failing.form1, machine.platform(), user32};
    SoundButtons second{failing.form1, machine.platform(), host, failingActions};
    machine.log.failCall(1, error::deviceIo);
    second.setDefaults();
    EXPECT_EQ(failing.form1.txtAudio[0].Text(), "");
    machine.windowsFolder = "";
    second.setDefaults();
    EXPECT_EQ(failing.form1.txtAudio[0].Text(), "");
}

TEST_F(SoundButtonsTest, EachPlaysItsOwnSoundTrimmedAndWithoutTheSystemsDefault) {
    machine.files["C:\\a.wav"] = machine.files["C:\\b ö.wav"] = "RIFF";
    form1.txtAudio[0].setText("C:\\a.wav");
    form1.txtAudio[1].setText("  C:\\b ö.wav ");
    form1.cmdPlay[0].userClick();
    form1.cmdPlay[1].userClick();
    EXPECT_EQ(machine.played, (Played{{"C:\\a.wav", 2}, {"C:\\b ö.wav", 2}}));
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SoundButtonsTest, AMissingFileIsReported) {
    for (const char* name : {"C:\\gone.wav", ""}) {
        host.boxes.clear();
        form1.txtAudio[1].setText(name);
        form1.cmdPlay[1].userClick();
        ASSERT_EQ(host.boxes.size(), 1u);
        EXPECT_EQ(host.boxes[0].text, std::string("File Does not exists: ") + name);
    }
    EXPECT_TRUE(machine.played.empty());
}

TEST_F(SoundButtonsTest, ASoundThatCantBePlayedIsNotReported) {
    machine.files["C:\\a.wav"] = "no sound";
    form1.txtAudio[0].setText("C:\\a.wav");
    machine.playResult = 0;
    EXPECT_NO_THROW(form1.cmdPlay[0].userClick());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SoundButtonsTest, AChosenFileBecomesTheSoundOfItsPlace) {
    machine.files["D:\\new.wav"] = "RIFF";
    for (const std::size_t place : {0u, 1u}) {
        host.paths.push_back("D:\\new.wav");
        form1.cmdAudio[place].userClick();
        EXPECT_EQ(form1.txtAudio[place].Text(), "D:\\new.wav");
        EXPECT_EQ(host.fileDialogs.back().Filter, "wav (*.wav)|*.wav;|*.*|*.*");
        EXPECT_EQ(host.fileDialogs.back().Flags, 0);
    }
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(machine.played.empty());
}

TEST_F(SoundButtonsTest, AChosenFileThatIsMissingIsReportedAndChangesNothing) {
    host.paths.push_back("D:\\gone.wav");
    form1.cmdAudio[0].userClick();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "File Does not exists: D:\\gone.wav");
    EXPECT_EQ(form1.txtAudio[0].Text(), "C:\\Windows\\media\\chimes.wav");
}

TEST_F(SoundButtonsTest, ADismissedDialogChangesNothingAndSaysNothing) {
    form1.cmdAudio[1].userClick();
    EXPECT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(form1.txtAudio[1].Text(), "C:\\Windows\\media\\chimes.wav");
}

TEST_F(SoundButtonsTest, TheProgramsOwnSoundIsPlayedWithoutLookingForIt) {
    machine.log.clear();
    form1.cmdSnd.userClick();
    EXPECT_EQ(machine.played, (Played{{"C:\\Program Files\\Velmora\\sound\\alert.WAV", 2}}));
    EXPECT_EQ(machine.log.count(), 1);
}

TEST_F(SoundButtonsTest, AFailingCallGoesToTheCallerAndChangesNothing) {
    machine.files["D:\\new.wav"] = "RIFF";
    host.paths.push_back("D:\\new.wav");
    machine.log.failCall(1, error::deviceIo);
    EXPECT_EQ(errorOf([&] { form1.cmdAudio[0].userClick(); }), error::deviceIo);
    EXPECT_EQ(form1.txtAudio[0].Text(), "C:\\Windows\\media\\chimes.wav");
    machine.log.failCall(1, error::deviceIo);
    EXPECT_EQ(errorOf([&] { form1.cmdPlay[0].userClick(); }), error::deviceIo);
    EXPECT_TRUE(machine.played.empty());
    EXPECT_TRUE(host.boxes.empty());
}

}  // namespace
}  // namespace velmora::tests
