// The places of the windows, from one run of the program to the next.
#include "shell/window_places.h"

#include <gtest/gtest.h>

#include "fake/fake_surface.h"
#include "shell/tool_bar_commands.h"
#include "shell/window_layout.h"

namespace velmora::tests {
namespace {

// One run of the program, up to the end of its start.
struct ProgramRun {
    explicit ProgramRun(UserState& state) : places(forms, state) {
        form1.Show();
        form1.setSize(form1_size::startWidth, form1_size::fullHeight);
        form1.Frame8.setBounds({0, 600, 8030, 2900});
        places.afterStart();
    }

    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Form1& form1 = forms.form1;
    WindowLayout layout{form1};
    ToolBarCommands toolBar{form1, forms.frmWizard, machine.platform(), surface.host, layout};
    WindowPlaces places;
};

struct WindowPlacesTest : testing::Test {
    fake::FakeUserState state;

    void keepText(const std::string& text) { state.kept["windows"] = text; }
    const std::string& keptText() { return state.kept["windows"]; }
};

TEST_F(WindowPlacesTest, AtTheFirstStartAWindowHasItsToldSizeAndNoPlace) {
    ProgramRun run(state);
    EXPECT_FALSE(run.form1.isPlaced());
    EXPECT_EQ(run.form1.Height(), 9100);
    EXPECT_EQ(run.form1.Width(), 8070);
    run.forms.frmHistory.Show();
    EXPECT_FALSE(run.forms.frmHistory.isPlaced());
}

TEST_F(WindowPlacesTest, PlaceAndSizeComeBack) {
    {
        ProgramRun run(state);
        run.form1.moveTo(1500, -900);
        run.form1.setSize(12000, 10500);
        run.forms.frmHistory.Show();
        run.forms.frmHistory.moveTo(-30000, 450);
        run.forms.frmHistory.setSize(9900, 7200);
        run.places.keep();
    }
    ProgramRun run(state);
    EXPECT_EQ(run.form1.Left(), 1500);
    EXPECT_EQ(run.form1.Top(), -900);
    EXPECT_EQ(run.form1.Width(), 12000);
    EXPECT_EQ(run.form1.Height(), 10500);
    EXPECT_FALSE(run.forms.frmHistory.isPlaced());
    run.forms.frmHistory.Show();
    EXPECT_EQ(run.forms.frmHistory.Left(), -30000);
    EXPECT_EQ(run.forms.frmHistory.Top(), 450);
    EXPECT_EQ(run.forms.frmHistory.Width(), 9900);
    EXPECT_EQ(run.forms.frmHistory.Height(), 7200);
}

TEST_F(WindowPlacesTest, TheUpperLeftCornerOfTheScreenIsAPlace) {
    {
        ProgramRun run(state);
        run.form1.moveTo(0, 0);
        run.places.keep();
    }
    EXPECT_TRUE(ProgramRun(state).form1.isPlaced());
}

TEST_F(WindowPlacesTest, TheMainWindowHasItsPlaceBeforeItIsShown) {
    keepText("Form1 9000 9600 at 1500 900\n");
    Forms forms;
    const WindowPlaces places(forms, state);
    bool wasPlaced = false;
    forms.form1.Shown.connect([&] { wasPlaced = forms.form1.Left() == 1500; });
    forms.form1.Show();
    EXPECT_TRUE(wasPlaced);
}

TEST_F(WindowPlacesTest, AWindowThatWasNotOpenedKeepsItsPlace) {
    keepText("dlgDriveInfo 10200 8400 at 150 300\n");
    {
        ProgramRun run(state);
        run.form1.moveTo(15, 15);
        run.places.keep();
    }
    ProgramRun run(state);
    run.forms.dlgDriveInfo.Show();
    EXPECT_EQ(run.forms.dlgDriveInfo.Left(), 150);
    EXPECT_EQ(run.forms.dlgDriveInfo.Top(), 300);
}

TEST_F(WindowPlacesTest, AHiddenWindowKeepsItsPlaceToo) {
    ProgramRun run(state);
    run.form1.moveTo(1500, 900);
    run.form1.Hide();
    run.places.keep();
    EXPECT_EQ(ProgramRun(state).form1.Left(), 1500);
}

TEST_F(WindowPlacesTest, WithoutAPlaceTheSizeIsKeptAlone) {
    {
        ProgramRun run(state);
        run.form1.setSize(12000, 10500);
        run.places.keep();
    }
    ProgramRun run(state);
    EXPECT_FALSE(run.form1.isPlaced());
    EXPECT_EQ(run.form1.Height(), 10500);
}

TEST_F(WindowPlacesTest, AWindowAsLargeAsItsContentKeepsItsPlaceAlone) {
    {
        ProgramRun run(state);
        run.forms.frmNotify.Show();
        run.forms.frmNotify.moveTo(600, 700);
        run.places.keep();
    }
    ProgramRun run(state);
    run.forms.frmNotify.Show();
    EXPECT_EQ(run.forms.frmNotify.Left(), 600);
    EXPECT_EQ(run.forms.frmNotify.Width(), 0);
}

TEST_F(WindowPlacesTest, TheCompactViewComesBackWithItsCaptionAndLeadsToTheFullOne) {
    {
        ProgramRun run(state);
        run.form1.Toolbar1.userClickPart(tool::view);
        ASSERT_EQ(run.form1.Toolbar1.Buttons(tool::view).Caption, "View +");
        run.form1.setSize(9900, 4050);
        run.places.keep();
    }
    ProgramRun run(state);
    EXPECT_EQ(run.form1.Toolbar1.Buttons(tool::view).Caption, "View +");
    EXPECT_FALSE(run.form1.Frame1.Visible());
    EXPECT_FALSE(run.form1.Frame5.Visible());
    EXPECT_EQ(run.form1.Height(), 4050);
    EXPECT_EQ(run.form1.Width(), 9900);
    run.form1.Toolbar1.userClickPart(tool::view);
    EXPECT_EQ(run.form1.Height(), 9100);
    EXPECT_TRUE(run.form1.Frame1.Visible());
}

TEST_F(WindowPlacesTest, AMaximisedWindowComesBackSoAndHasItsNormalSizeBelow) {
    {
        ProgramRun run(state);
        run.form1.moveTo(1500, 900);
        run.form1.setSize(9900, 9600);
        run.form1.setState(WindowState::maximised);
        run.form1.setSize(28800, 15600);
        run.places.keep();
    }
    ProgramRun run(state);
    EXPECT_EQ(run.form1.State(), WindowState::maximised);
    run.form1.setSize(28800, 15600);
    run.form1.setState(WindowState::normal);
    EXPECT_EQ(run.form1.Width(), 9900);
    EXPECT_EQ(run.form1.Height(), 9600);
    EXPECT_EQ(run.form1.Left(), 1500);
}

TEST_F(WindowPlacesTest, AMinimisedWindowComesBackNormal) {
    {
        ProgramRun run(state);
        run.form1.moveTo(1500, 900);
        run.form1.setState(WindowState::minimised);
        run.places.keep();
    }
    EXPECT_EQ(ProgramRun(state).form1.State(), WindowState::normal);
}

TEST_F(WindowPlacesTest, ASizeBelowTheLeastIsRaisedAsEver) {
    keepText("Form1 3000 2000 at 15 15\n");
    ProgramRun run(state);
    EXPECT_EQ(run.form1.Width(), 8070);
    EXPECT_GE(run.form1.Height(), 3400);  // the list's frame and 500
}

TEST_F(WindowPlacesTest, OnlyChangesAreWritten) {
    ProgramRun run(state);
    run.form1.moveTo(1500, 900);
    run.places.keep();
    run.places.keep();
    EXPECT_EQ(state.writes, 1);
    run.form1.setCaption("Velmora - Watching Activated");
    run.places.keep();
    EXPECT_EQ(state.writes, 1);
    run.form1.moveTo(1515, 900);
    run.places.keep();
    EXPECT_EQ(state.writes, 2);
}

TEST_F(WindowPlacesTest, WhatCouldNotBeWrittenIsWrittenTheNextTime) {
    ProgramRun run(state);
    run.form1.moveTo(1500, 900);
    state.hasFolder = false;
    run.places.keep();
    state.hasFolder = true;
    run.places.keep();
    EXPECT_EQ(ProgramRun(state).form1.Left(), 1500);
}

TEST_F(WindowPlacesTest, LinesThatCanNotBeReadCountForNothing) {
    for (const char* text :
         {"", "\n\n", "Form1", "Form1 x y", "Form1 9000", "Form1 -1 9600", "Form1 9000 99999999",
          "Form1 9000 9600 at", "Form1 9000 9600 at 15", "Form1 9000 9600 at 15 x",
          "Form1 9000 9600 at 15 9999999", "Form1 9000 9600 at 99999999999999999999 1",
          "Form2 9000 9600 at 15 15", "\x01\xff 9000 9600 at 15 15"}) {
        keepText(text);
        ProgramRun run(state);
        EXPECT_FALSE(run.form1.isPlaced()) << text;
        EXPECT_EQ(run.form1.Height(), 9100) << text;
    }
    keepText("Form1 junk\nfrmHistory 9900 7200 at 15 30 later words\n");
    ProgramRun run(state);
    run.forms.frmHistory.Show();
    EXPECT_EQ(run.forms.frmHistory.Top(), 30);
    EXPECT_EQ(run.forms.frmHistory.Width(), 9900);
}

TEST_F(WindowPlacesTest, OtherWindowsAreNotKept) {
    ProgramRun run(state);
    run.forms.frmAbout.Show();
    run.forms.frmAbout.moveTo(150, 150);
    run.forms.dlgAlert.Show();
    run.forms.dlgAlert.moveTo(150, 150);
    run.places.keep();
    EXPECT_EQ(keptText().find("frmAbout"), std::string::npos);
    EXPECT_EQ(keptText().find("dlgAlert"), std::string::npos);
}

}  // namespace
}  // namespace velmora::tests
