#include "forms/form1.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

struct Form1Test : testing::Test {
    Form1 form;
};

TEST_F(Form1Test, TheLabelsUnderTheListHaveTheirOrderCaptionsAndToolTips) {
    const struct {
        const char* caption;
        const char* toolTip;
    } labels[] = {{"(..)", "Add a Drive/Path to list"},
                  {"Remove", "Remove Selected  from List"},
                  {"Clear", "Attempts to clear all from listing"},
                  {"Select Drive", "Select Drive for Watch"},
                  {"Show/Refresh Drive(s)", "Show or Refresh System Aware Drive Paths"}};
    ASSERT_EQ(form.lblDP.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(form.lblDP[i].Name(), "lblDP");
        EXPECT_EQ(form.lblDP[i].Index(), i);
        EXPECT_EQ(form.lblDP[i].Caption(), labels[i].caption);
        EXPECT_EQ(form.lblDP[i].ToolTipText(), labels[i].toolTip);
    }
}

TEST_F(Form1Test, TheWatchListBeginsWithoutRowsAndColumns) {
    EXPECT_EQ(form.ListView1.Count(), 0);
    EXPECT_EQ(form.ListView1.ColumnCount(), 0);
    EXPECT_FALSE(form.ListView1.Sorted());
    EXPECT_FALSE(form.Text1.Visible());
    EXPECT_FALSE(form.lstInfo.Visible());
}

TEST_F(Form1Test, TheMinimumSpaceBeginsInKilobytesForAllRows) {
    EXPECT_EQ(form.OpDriv[0].Caption(), "By Size in (KB)");
    EXPECT_EQ(form.OpDriv[1].Caption(), "By %");
    EXPECT_EQ(form.OpDriv[1].Index(), 1);
    EXPECT_TRUE(form.OpDriv[0].Value());
    EXPECT_FALSE(form.OpDriv[1].Value());
    EXPECT_EQ(form.chkDrive.Caption(), "Set Size Individually");
    EXPECT_FALSE(form.chkDrive.ticked());
    EXPECT_EQ(form.txtSpace.Text(), "");
    EXPECT_TRUE(form.txtSpace.Enabled());
    EXPECT_EQ(form.lblMB.Caption(), "");
    EXPECT_EQ(form.lblGB.Caption(), "");
}

TEST_F(Form1Test, TheSliderRunsFrom0To100AndBeginsHidden) {
    EXPECT_EQ(form.Slider1.Min(), 0);
    EXPECT_EQ(form.Slider1.Max(), 100);
    EXPECT_EQ(form.Slider1.SmallChange(), 1);
    EXPECT_EQ(form.Slider1.LargeChange(), 5);
    EXPECT_FALSE(form.Slider1.Visible());
}

TEST_F(Form1Test, TheAlertListHasItsColumnsAndNoRows) {
    ASSERT_EQ(form.LVAlert.ColumnCount(), 4);
    EXPECT_EQ(form.LVAlert.ColumnHeaders(1).Text, "Rating");
    EXPECT_EQ(form.LVAlert.ColumnHeaders(2).Text, "Time/Date");
    EXPECT_EQ(form.LVAlert.ColumnHeaders(3).Text, "Action Taken");
    EXPECT_EQ(form.LVAlert.ColumnHeaders(4).Text, "Alerts");
    EXPECT_EQ(form.LVAlert.Count(), 0);
}

TEST_F(Form1Test, TheAlertLimitBeginsAt50AndRunsTo1000) {
    EXPECT_EQ(form.lblE.Caption(), "Limit Alerts to:");
    EXPECT_EQ(form.txtAmt.Text(), "50");
    EXPECT_EQ(form.UpDown3.Max(), 1000);
    form.UpDown3.userUp();
    EXPECT_EQ(form.txtAmt.Text(), "51");
}

TEST_F(Form1Test, TheActionsHaveTheirOrderAndBeginUnticked) {
    const char* const actions[] = {"Alert on Space Shortage",
                                   "Move Sp. Files to Sp. Path",
                                   "Delete Specified Files",
                                   "Send Specified Files to Recycle Bin",
                                   "Auto Move Files to Largest Avail. Path-Space",
                                   "Sound Audio Alert",
                                   "Empty Recycle Bin",
                                   "Run specified programs(s)",
                                   "Notify specified Email(s)",
                                   "Auto Run Clean Manager",
                                   "Pause Velmora on Alert ",
                                   "Show progress dialog on checking!"};
    ASSERT_EQ(form.lstAct.ListCount(), 12);
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(form.lstAct.List(i), actions[i]);
        EXPECT_FALSE(form.lstAct.Selected(i));
    }
    EXPECT_EQ(form.lstAct.List(act::progressDialog), "Show progress dialog on checking!");
}

TEST_F(Form1Test, TheEventsHaveTheirOrderAndBeginUnticked) {
    const char* const events[] = {"No Change in Free Space Size (Stagnancy)",
                                  "Change in Free Space Size ",
                                  "Change in Amount of File/Folder(s)", "Modification to file(s)",
                                  "Listed Drive/Path become N/A"};
    ASSERT_EQ(form.lstEvt.ListCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(form.lstEvt.List(i), events[i]);
        EXPECT_FALSE(form.lstEvt.Selected(i));
    }
}

TEST_F(Form1Test, TheToolBarHasItsButtonsInOrder) {
    const struct {
        const char* caption;
        const char* toolTip;
    } buttons[] = {
        {"Start", "Activate/Pause the Velmora Timer to check drive/path(s)"},
        {"Wizard Settings", "A Wizard to assist in understanding and configuring program options"},
        {"Adv. Info", "Advance Information on Drive/Path(s) attributes"},
        {"Functions", "Additional Functions"},
        {"View -", "Toggle View"},
        {"Help", "Help"}};
    ASSERT_EQ(form.Toolbar1.ButtonCount(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(form.Toolbar1.Buttons(i + 1).Caption, buttons[i].caption);
        EXPECT_EQ(form.Toolbar1.Buttons(i + 1).ToolTipText, buttons[i].toolTip);
    }
}

TEST_F(Form1Test, TheTimerThePanelsAndTheStartButtonHaveTheirFirstState) {
    EXPECT_EQ(form.Timer1.Interval(), 5000);
    EXPECT_TRUE(form.Timer1.Enabled());
    EXPECT_EQ(form.StatusBar1.PanelCount(), 3);
    EXPECT_EQ(form.cmdPause.Caption(), "Start Watch");
    EXPECT_EQ(form.txtTime.Text(), "");
    EXPECT_EQ(form.txtDrive.Text(), "");
}

TEST_F(Form1Test, TheSwitchesOfCheckAndLogBeginUnticked) {
    for (const CheckBox* box :
         {&form.chkOnTopMonitor, &form.chkSaveSet, &form.chkLogTimeMon, &form.chkAutoSave}) {
        EXPECT_FALSE(box->ticked()) << box->Name();
        EXPECT_TRUE(box->Enabled()) << box->Name();
    }
    EXPECT_EQ(form.chkSaveSet.Caption(), "Auto Save Settings");
    EXPECT_EQ(form.chkLogTimeMon.Caption(), "Log time when auto checking");
    EXPECT_EQ(form.chkAutoSave.Caption(), "Auto Save Log to file");
    EXPECT_EQ(form.txtAlert.Text(), "");
}

TEST_F(Form1Test, TheExitButtonsHaveTheirCaptionsAndToolTip) {
    EXPECT_EQ(form.mnuExit.Caption(), "Exit");
    EXPECT_EQ(form.Command6.Caption(), " (X)");
    EXPECT_EQ(form.Command6.ToolTipText(), "End Program");
    EXPECT_EQ(form.mnuShowAl.Caption(), "Show Alert Dialog");
}

TEST_F(Form1Test, TheSpecifiedFilesHaveTheirColumnsInOrderAndNoRows) {
    const char* const columns[] = {
        "File/Folder(s)", "Size", "File Path Location", "Last Accessed", "Modified",
        "Created",        "Type"};
    ASSERT_EQ(form.LVFile.ColumnCount(), 7);
    for (int i = 0; i < 7; ++i) EXPECT_EQ(form.LVFile.ColumnHeaders(i + 1).Text, columns[i]);
    EXPECT_EQ(form.LVFile.Count(), 0);
    EXPECT_EQ(form.cboFile.ListCount(), 0);
}

TEST_F(Form1Test, TheSpecifiedProgramsHaveTheirColumnsInOrderAndNoRows) {
    const char* const columns[] = {"Program", "Action", "File Path ", "Type"};
    ASSERT_EQ(form.LVProg.ColumnCount(), 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(form.LVProg.ColumnHeaders(i + 1).Text, columns[i]);
    EXPECT_EQ(form.LVProg.Count(), 0);
    EXPECT_EQ(form.cboProg.ListCount(), 0);
}

TEST_F(Form1Test, TheButtonsOfTheFilesHaveTheirPlacesAndCaptions) {
    const char* const captions[] = {"Add",        "Remove",   "Move", "Delete File",    "Clear All",
                                    "Delete All", "Move All", "...",  "Show Attributes"};
    ASSERT_EQ(form.lblSF.size(), 9u);
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(form.lblSF[i].Name(), "lblSF");
        EXPECT_EQ(form.lblSF[i].Index(), i);
        EXPECT_EQ(form.lblSF[i].Caption(), captions[i]);
    }
}

TEST_F(Form1Test, TheButtonsOfTheProgramsHaveTheirPlacesAndCaptions) {
    const char* const captions[] = {"Add", "Remove",        "Clear All",  "Run",
                                    "...", "Check Updates", "Get Updates"};
    ASSERT_EQ(form.Label5.size(), 7u);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(form.Label5[i].Name(), "Label5");
        EXPECT_EQ(form.Label5[i].Index(), i);
        EXPECT_EQ(form.Label5[i].Caption(), captions[i]);
    }
    EXPECT_EQ(form.cmdPAdd.Caption(), "Add");
}

TEST_F(Form1Test, TheOlderButtonsOfTheFilesSayWhatTheirLabelsSay) {
    EXPECT_EQ(form.Command2.Caption(), "Add");
    const struct {
        const CommandButton& button;
        const char* caption;
        const char* toolTip;
        const Label& label;
    } pairs[] = {{form.cmdMove, "Move", "Move selected file(s) to Specified Path",
                  form.lblSF[file_button::move]},
                 {form.cmdDelete, "Delete File", "Delete Selected File(s) from Drive/Path",
                  form.lblSF[file_button::deleteFile]},
                 {form.cmdDeleteAll, "Delete All", "Attempts to delete all file(s) listed",
                  form.lblSF[file_button::deleteAll]},
                 {form.cmdMoveAll, "Move All", "Attempts to move all file(s) listed",
                  form.lblSF[file_button::moveAll]}};
    for (const auto& [button, caption, toolTip, label] : pairs) {
        EXPECT_EQ(button.Caption(), caption);
        EXPECT_EQ(label.Caption(), caption);
        EXPECT_EQ(button.ToolTipText(), toolTip);
        EXPECT_EQ(label.ToolTipText(), toolTip);
    }
}

TEST_F(Form1Test, TheFieldsOfThePageSpecSayWhatTheyAreFor) {
    EXPECT_EQ(form.cboFile.ToolTipText(), "Listing of File(s) to be used to Free Space");
    EXPECT_EQ(form.cboProg.ToolTipText(),
              "Listing of File(s) to be executed on Minimum Space Trigger");
    EXPECT_EQ(form.txtFileType.ToolTipText(),
              "Specified File Type(s) deemed acceptable to be used to free space by Automatic "
              "Action Option");
    EXPECT_EQ(form.txtFileType.Text(), "");
    EXPECT_EQ(form.chkSeq.Caption(), "Sequential Action");
    EXPECT_EQ(form.chkSeq.ToolTipText(),
              "This sets the program to act (move, delete, send to bin) on the Listed Files one at "
              "time on each checking period");
    EXPECT_FALSE(form.chkSeq.ticked());
}

}  // namespace
}  // namespace velmora::tests
