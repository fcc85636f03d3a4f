// The window of the mail settings.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct NotifyWindowTest : testing::Test, NotifyRig {
    NotifyWindow window{forms, host, inventory};
    int sendings = 0;

    NotifyWindowTest() {
        form.SendEmail.connect([this] { ++sendings; });
        for (TextBox* box : {&form.txtMailServer, &form.txtUser, &form.txtPass}) {
            box->setText("filled");
        }
    }

    std::vector<Timer*> watchTimers() { return {&form1.Timer1, &form1.tmrStat, &form1.TimerCust}; }
    void stopWatch() {
        for (Timer* timer : watchTimers()) timer->setEnabled(false);
    }
    /// How many of the watch's timers run.
    int running() {
        int count = 0;
        for (const Timer* timer : watchTimers()) count += timer->Enabled() ? 1 : 0;
        return count;
    }
    /// Notes how many run while a box is shown, and stops them then.
    void stopAtBox() {
        host.onBox = [this](const Box&) {
            runningAtBox = running();
            stopWatch();
        };
    }
    Texts entries() {
        Texts all;
        for (int i = 0; i < form.cboNotEmail.ListCount(); ++i) {
            all.push_back(form.cboNotEmail.List(i));
        }
        return all;
    }
    void add(const std::string& text) {
        form.cboNotEmail.setText(text);
        form.cmdAdd.userClick();
    }
    std::vector<bool> pagesShown() {
        std::vector<bool> shown;
        for (const Frame& page : form.frE) shown.push_back(page.Visible());
        return shown;
    }

    int runningAtBox = -1;
};

const std::string incomplete =
    "You have not fill in all your email account settings\r\n"
    "Mail Server, UserName, Password, To: Email(s), etc.\r\n"
    "Do you wish to leave it like it is";

TEST_F(NotifyWindowTest, SendNowAsksFirst) {
    form.Command1.userClick();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "Are you sure you want to send notifications now?");
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_EQ(sendings, 0);
}

TEST_F(NotifyWindowTest, SendNowSendsAfterAYes) {
    for (const BoxAnswer answer : {BoxAnswer::no, BoxAnswer::yes, BoxAnswer::no}) {
        host.answers = {answer};
        form.Command1.userClick();
    }
    EXPECT_EQ(sendings, 1);
}

TEST_F(NotifyWindowTest, TheWatchRunsBeforeAndAfterTheQuestionOfSendNow) {
    for (const BoxAnswer answer : {BoxAnswer::yes, BoxAnswer::no}) {
        stopWatch();
        stopAtBox();
        host.answers = {answer};
        form.Command1.userClick();
        EXPECT_EQ(runningAtBox, 3);
        EXPECT_EQ(running(), 3);
    }
}

TEST_F(NotifyWindowTest, TheWatchRunsWhileTheMailGoesOut) {
    stopAtBox();
    form.SendEmail.connect([this] { EXPECT_EQ(running(), 3); });
    host.answers = {BoxAnswer::yes};
    form.Command1.userClick();
    EXPECT_EQ(sendings, 1);
}

TEST_F(NotifyWindowTest, AnAccountThatIsFilledInIsAppliedWithoutAWord) {
    form.cmdApply.userClick();
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NotifyWindowTest, EachOfTheFiveTextsMustBeThere) {
    for (TextBox* box : {&form.txtMailPort, &form.txtMailServer, &form.txtMailFromDisplayName,
                         &form.txtUser, &form.txtPass}) {
        const std::string filled = box->Text();
        box->setText("");
        host.boxes.clear();
        form.cmdApply.userClick();
        ASSERT_EQ(host.boxes.size(), 1u) << box->Name();
        EXPECT_EQ(host.boxes[0].text, incomplete);
        EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
        EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
        EXPECT_EQ(box->Text(), "");
        box->setText(filled);
    }
}

TEST_F(NotifyWindowTest, SectionsMustBeThereThoughNoneNeedsToBeTicked) {
    form.lstNotContent.Clear();
    form.cmdApply.userClick();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, incomplete);
}

TEST_F(NotifyWindowTest, NoOtherSettingMustBeThere) {
    ASSERT_EQ(form.cboNotEmail.ListCount(), 0);
    for (TextBox* box : {&form.txtYourEmail, &form.txtMailSubj, &form.txtCustMsg}) {
        box->setText("");
    }
    form.txtMailServer.setText(" ");  // a blank is a text
    form.cmdApply.userClick();
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NotifyWindowTest, OnlyANoSetsTheWatchRunning) {
    form.txtUser.setText("");
    stopWatch();
    stopAtBox();
    host.answers = {BoxAnswer::yes, BoxAnswer::no};
    form.cmdApply.userClick();
    EXPECT_EQ(runningAtBox, 0);
    EXPECT_EQ(running(), 0);
    form.cmdApply.userClick();
    EXPECT_EQ(runningAtBox, 0);
    EXPECT_EQ(running(), 3);
    EXPECT_EQ(form.txtUser.Text(), "");
}

TEST_F(NotifyWindowTest, ACompleteAccountLeavesThePausedWatchAlone) {
    stopWatch();
    form.cmdApply.userClick();
    EXPECT_EQ(running(), 0);
}

TEST_F(NotifyWindowTest, OkAppliesAndHides) {
    form.txtUser.setText("");
    for (const BoxAnswer answer : {BoxAnswer::yes, BoxAnswer::no}) {
        form.Show();
        bool shownAtBox = false;
        host.onBox = [&](const Box&) { shownAtBox = form.Visible(); };
        host.answers = {answer};
        form.cmdOK.userClick();
        EXPECT_TRUE(shownAtBox);
        EXPECT_FALSE(form.Visible());
    }
    EXPECT_EQ(host.boxes.size(), 2u);
}

TEST_F(NotifyWindowTest, CancelAndTheCrossHideAndUndoNothing) {
    form.txtUser.setText("");
    for (CommandButton* button : {&form.cmdCancel, &form.Command2}) {
        form.Show();
        form.txtMailSubj.setText("changed");
        button->userClick();
        EXPECT_FALSE(form.Visible()) << button->Name();
        EXPECT_EQ(form.txtMailSubj.Text(), "changed");
    }
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NotifyWindowTest, NothingIsWrittenToDisk) {
    for (CommandButton* button :
         {&form.cmdApply, &form.cmdOK, &form.cmdCancel, &form.Command2, &form.cmdAdd}) {
        button->userClick();
    }
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(NotifyWindowTest, AddTakesATextWithAnAtSignAndADot) {
    add("  a@example.org ");
    add(".@");
    EXPECT_EQ(entries(), (Texts{"a@example.org", ".@"}));
    EXPECT_EQ(form.cboNotEmail.Text(), ".@");
}

TEST_F(NotifyWindowTest, AddRefusesOtherTextsWithoutAWord) {
    for (const char* text : {"", "example.org", "a@example", "@", ".", "  "}) add(text);
    EXPECT_TRUE(entries().empty());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NotifyWindowTest, EnterTakesAnyTextAsItStands) {
    form.cboNotEmail.setText(" somebody ");
    form.cboNotEmail.KeyPress(13);
    form.cboNotEmail.setText("");
    form.cboNotEmail.KeyPress(13);
    EXPECT_EQ(entries(), (Texts{" somebody ", ""}));
}

TEST_F(NotifyWindowTest, OtherKeysAddNothing) {
    form.cboNotEmail.setText("a@example.org");
    for (const int code : {8, 10, 12, 14, 27, 97}) form.cboNotEmail.KeyPress(code);
    EXPECT_TRUE(entries().empty());
}

TEST_F(NotifyWindowTest, ClearAllTakesEveryRecipientAway) {
    add("a@example.org");
    add("b@example.org");
    form.cmdClear.userClick();
    EXPECT_TRUE(entries().empty());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(NotifyWindowTest, RemoveTakesTheChosenRecipient) {
    for (const char* text : {"a@b.c", "d@e.f", "g@h.i"}) add(text);
    form.cboNotEmail.setListIndex(1);
    form.cmdRemove.userClick();
    EXPECT_EQ(entries(), (Texts{"a@b.c", "g@h.i"}));
    form.cboNotEmail.setListIndex(0);
    form.cmdRemove.userClick();
    EXPECT_EQ(entries(), Texts{"g@h.i"});
}

TEST_F(NotifyWindowTest, RemoveWithoutAChosenRecipientDoesNothing) {
    add("a@b.c");
    form.cmdRemove.userClick();
    EXPECT_EQ(entries(), Texts{"a@b.c"});
    form.cboNotEmail.setListIndex(0);
    form.cmdRemove.userClick();
    form.cmdRemove.userClick();
    EXPECT_TRUE(entries().empty());
}

TEST_F(NotifyWindowTest, TheFileOfTheCustomContentIsChosenInADialog) {
    host.paths = {"C:\\notes.txt"};
    form.cmdNotOpenFile.userClick();
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(host.fileDialogs[0].InitDir, "C:");
    EXPECT_EQ(host.fileDialogs[0].Filter,
              "*.txt,*.xml,*.html,*.htm|*.txt;*.xml;*.html;*.htm|*.*|*");
    EXPECT_EQ(host.fileDialogs[0].Flags, 0);
    EXPECT_EQ(form.txtCustomContent.Text(), "C:\\notes.txt");
}

TEST_F(NotifyWindowTest, ADismissedDialogKeepsTheFile) {
    form.txtCustomContent.setText("C:\\old.txt");
    form.cmdNotOpenFile.userClick();
    EXPECT_EQ(form.txtCustomContent.Text(), "C:\\old.txt");
}

TEST_F(NotifyWindowTest, TheEventButtonHasNoEffect) {
    ASSERT_TRUE(form.cmdNT.Click.connected());
    form.cmdNT.userClick();
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(form.StatusTxt.Text(), "");
    EXPECT_EQ(form1.LVAlert.Count(), 0);
}

TEST_F(NotifyWindowTest, TheProxysFieldsAreEnabledWhileItIsUsed) {
    EXPECT_FALSE(form.txtProxy.Enabled());
    EXPECT_FALSE(form.txtPort.Enabled());
    form.chkProxy.setValue(1);
    EXPECT_TRUE(form.txtProxy.Enabled());
    EXPECT_TRUE(form.txtPort.Enabled());
    form.chkProxy.setValue(0);
    EXPECT_FALSE(form.txtProxy.Enabled());
    EXPECT_FALSE(form.txtPort.Enabled());
}

TEST_F(NotifyWindowTest, TheFirstPageIsShownAtLoad) {
    EXPECT_EQ(pagesShown(), (std::vector<bool>{true, false, false, false}));
}

TEST_F(NotifyWindowTest, ATabShowsItsPageAlone) {
    for (int tab = 1; tab <= 4; ++tab) {
        form.TabStrip1.userClickPart(tab);
        std::vector<bool> expected(4, false);
        expected[static_cast<std::size_t>(tab - 1)] = true;
        EXPECT_EQ(pagesShown(), expected) << tab;
    }
}

TEST_F(NotifyWindowTest, APageTakesItsPlaceBesideTheStrip) {
    form.TabStrip1.setBounds({300, 450, 7000, 5500});
    form.TabStrip1.userClickPart(3);
    EXPECT_EQ(form.frE[2].bounds(), (Bounds{600, 450, 7000, 5000}));
}

// Ticking the section of the custom file, which is connected once the settings are read.
struct CustomSectionTest : NotifyWindowTest {
    CustomSectionTest() { window.afterLoad(); }

    bool ticked() const { return form.lstNotContent.Selected(6); }
};

TEST_F(CustomSectionTest, AskedForAFileThatIsMissing) {
    host.answers = {BoxAnswer::yes};
    host.paths = {"C:\\notes.txt"};
    form.lstNotContent.userTick(6, true);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "A text base file must be specified.  Select a file now?");
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_EQ(form.txtCustomContent.Text(), "C:\\notes.txt");
    EXPECT_TRUE(ticked());
}

TEST_F(CustomSectionTest, ANoTakesTheTickAway) {
    host.answers = {BoxAnswer::no};
    host.paths = {"C:\\notes.txt"};
    form.lstNotContent.userTick(6, true);
    EXPECT_TRUE(host.fileDialogs.empty());
    EXPECT_FALSE(ticked());
    EXPECT_EQ(host.boxes.size(), 1u);
}

TEST_F(CustomSectionTest, ADismissedDialogTakesTheTickAway) {
    host.answers = {BoxAnswer::yes};
    form.lstNotContent.userTick(6, true);
    EXPECT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_FALSE(ticked());
}

TEST_F(CustomSectionTest, AFileThatIsNamedMeanwhileKeepsTheTick) {
    host.onBox = [this](const Box&) { form.txtCustomContent.setText("C:\\a.txt"); };
    form.lstNotContent.userTick(6, true);
    EXPECT_TRUE(ticked());
}

TEST_F(CustomSectionTest, WithAFileThereIsNoQuestion) {
    form.txtCustomContent.setText("C:\\a.txt");
    form.lstNotContent.userTick(6, true);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(ticked());
}

TEST_F(CustomSectionTest, OtherSectionsAndUntickingAskNothing) {
    for (int section = 0; section < form.lstNotContent.ListCount(); ++section) {
        if (section == 6) continue;
        form.lstNotContent.userTick(section, true);
        EXPECT_TRUE(form.lstNotContent.Selected(section));
    }
    form.txtCustomContent.setText("C:\\a.txt");
    form.lstNotContent.userTick(6, true);
    form.txtCustomContent.setText("");
    form.lstNotContent.userTick(6, false);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(host.fileDialogs.empty());
}

TEST_F(CustomSectionTest, TheWatchRunsBeforeAndAfterTheQuestion) {
    for (const BoxAnswer answer : {BoxAnswer::yes, BoxAnswer::no}) {
        stopWatch();
        stopAtBox();
        host.answers = {answer};
        form.lstNotContent.userTick(6, true);
        EXPECT_EQ(runningAtBox, 3);
        EXPECT_EQ(running(), 3);
    }
}

TEST_F(NotifyWindowTest, BeforeTheEndOfTheStartTheSectionIsTickedWithoutAQuestion) {
    form.lstNotContent.setSelected(6, true);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(form.lstNotContent.Selected(6));
}

}  // namespace
}  // namespace velmora::tests
