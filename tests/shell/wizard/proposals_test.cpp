// What the answers to the wizard's questions propose.
#include "shell/wizard/proposals.h"

#include "base/errors.h"
#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

struct ProposalsTest : testing::Test, WizardRig {
    void answer(std::size_t kind) { wizard.chkFileKind[kind].userClick(); }
    const std::string& types() { return wizard.txtFileType.Text(); }
};

const std::string leftovers = ".tmp|.bak|.old|.log|.dmp";
const std::string media = "|.avi|.mpg|.wmv|.mp4|.mkv|.mp3|.wav";
const std::string pages = "|.htm|.html|.swf";

TEST_F(ProposalsTest, TheKindsThatAreUsedOftenAreLeftOut) {
    answer(file_kind::business);
    EXPECT_EQ(types(), leftovers + media + pages);
    answer(file_kind::media);
    EXPECT_EQ(types(), leftovers + pages);
    answer(file_kind::business);
    EXPECT_EQ(types(), leftovers + pages);
    answer(file_kind::internet);
    EXPECT_EQ(types(), leftovers);
    answer(file_kind::media);
    EXPECT_EQ(types(), leftovers + media);
}

// No answer may propose what somebody works with.
TEST_F(ProposalsTest, DocumentsAndDatabasesAreNeverProposed) {
    for (const bool usesMedia : {false, true}) {
        for (const bool usesInternet : {false, true}) {
            const std::string proposed = proposedTypes(usesMedia, usesInternet) + "|";
            for (const char* type : {".doc|", ".docx|", ".xls|", ".xlsx|", ".ppt|", ".pdf|",
                                     ".odt|", ".mdb|", ".db|", ".txt|", ".xml|", ".zip|"}) {
                EXPECT_EQ(proposed.find(type), std::string::npos) << type;
            }
        }
    }
}

TEST_F(ProposalsTest, AnAnswerSaysWhatItProposesAndTakenBackRestoresWhatWasThere) {
    wizard.txtFileType.setText(".own");
    EXPECT_EQ(wizard.lblFileProposal.Caption(), "");
    answer(file_kind::media);
    EXPECT_EQ(wizard.lblFileProposal.Caption(),
              "Proposed: types of files that can be spared. What you use often is left out, and "
              "documents and databases always are. The list is kept; no action goes by it yet.");
    answer(file_kind::internet);
    answer(file_kind::media);
    EXPECT_NE(types(), ".own");
    answer(file_kind::internet);
    EXPECT_EQ(types(), ".own");
    EXPECT_EQ(wizard.lblFileProposal.Caption(), "");
}

TEST_F(ProposalsTest, AProposalCanBeChangedAndIsAppliedLikeAnyValue) {
    answer(file_kind::business);
    wizard.txtFileType.setText(types() + "|.iso");
    EXPECT_EQ(form1.txtFileType.Text(), "");
    apply();
    EXPECT_EQ(form1.txtFileType.Text(), leftovers + media + pages + "|.iso");
}

TEST_F(ProposalsTest, ASlowerConnectionIsCheckedMoreRarely) {
    EXPECT_EQ(proposedInterval(0), 60);
    EXPECT_EQ(proposedInterval(1), 45);
    EXPECT_EQ(proposedInterval(2), 30);
    EXPECT_EQ(errorOf([] { proposedInterval(3); }), 9);
    EXPECT_EQ(errorOf([] { proposedInterval(-1); }), 9);
}

TEST_F(ProposalsTest, TheSpeedProposesTheInterval) {
    wizard.cboSpeed.userChoose(2);
    EXPECT_EQ(wizard.txtTime.Text(), "30");
    EXPECT_NE(wizard.lblSpeedProposal.Caption().find("Proposed: a check every 30 seconds."),
              std::string::npos);
    wizard.cboSpeed.userChoose(1);
    EXPECT_EQ(wizard.txtTime.Text(), "45");
    // The same once more, after another number.
    wizard.txtTime.setText("7");
    wizard.cboSpeed.userChoose(1);
    EXPECT_EQ(wizard.txtTime.Text(), "45");
    apply();
    EXPECT_EQ(form1.DTPInterval.Value(), (DateTime{.second = 45}));
}

TEST_F(ProposalsTest, WithoutASpeedTheFormerIntervalIsBack) {
    wizard.cboSpeed.userChoose(0);
    wizard.cboSpeed.userChoose(2);
    wizard.cboSpeed.userChoose(-1);
    EXPECT_EQ(wizard.txtTime.Text(), "60");
    EXPECT_EQ(wizard.lblSpeedProposal.Caption(), "");
    wizard.txtTime.setText("7");
    wizard.cboSpeed.userChoose(-1);
    EXPECT_EQ(wizard.txtTime.Text(), "7");
}

// An interval that a saved and read settings file keeps: ten seconds at least, and no more than 65.
TEST_F(ProposalsTest, AProposedIntervalOutlivesARestart) {
    for (int speed = 0; speed < wizard.cboSpeed.ListCount(); ++speed) {
        wizard.cboSpeed.userChoose(speed);
        apply();
        form1.chkSaveSet.setValue(1);
        const DateTime interval = form1.DTPInterval.Value();
        // A check saves at its end.
        for (int i = 0; i < 20; ++i) form1.Timer1.Tick();
        Forms fresh;
        fresh.globals.strSettings = settingsPath;
        SettingsFile(fresh, machine.platform(), host).prcSettings(settings_order::read);
        EXPECT_EQ(fresh.form1.DTPInterval.Value(), interval) << speed;
    }
    EXPECT_GT(forms.globals.lngTimesChecked, 2);
}

}  // namespace
}  // namespace velmora::tests
