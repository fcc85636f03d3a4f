// The window of the setup wizard: its steps by mouse and keyboard, and its fields.
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <functional>

#include "qt/window_test.h"
#include "qt/windows/step_list.h"

namespace velmora::tests {
namespace {

struct WizardWindowTest : WindowTest {
    WizardWindowTest() {
        start();
        open();
    }

    FrmWizard& form() { return program->forms().frmWizard; }
    QWidget* wizard() { return program->window("frmWizard"); }
    void open() {
        click("Toolbar1(2)");
        wizard()->activateWindow();
        settle();
    }
    template <typename Widget = QWidget>
    Widget* part(const QString& field) {
        return find<Widget>(field, "frmWizard");
    }
    void press(int key, Qt::KeyboardModifiers with = {}) {
        QWidget* at = QApplication::focusWidget();
        QTest::keyClick(at == nullptr ? wizard() : at, static_cast<Qt::Key>(key), with);
        settle();
    }
    /// Presses the button of that letter, which takes a moment, as under the mouse.
    void pressLetter(Qt::Key letter, const std::function<bool()>& done) {
        press(letter, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(done));
        settle();
    }
    void pressLetterFor(Qt::Key letter, int step) {
        pressLetter(letter, [&] { return pages() == std::vector{step}; });
    }
    void goTo(int step) {
        form().lblStep[static_cast<std::size_t>(step)].userClick();
        settle();
    }
    /// The pages that are visible.
    std::vector<int> pages() {
        std::vector<int> all;
        for (const Frame& step : form().Frame1) {
            const QString name = QStringLiteral("Frame1(%1)").arg(step.Index());
            if (part(name)->isVisible()) all.push_back(step.Index());
        }
        return all;
    }
    static std::string focusName() {
        QWidget* at = QApplication::focusWidget();
        if (at == nullptr) return "";
        const QWidget* box = at->parentWidget();
        const bool isPart = qobject_cast<const QComboBox*>(box) != nullptr;
        return (isPart ? box : at)->objectName().toStdString();
    }
    static QString accessible(QWidget* widget, QAccessible::Text text) {
        return QAccessible::queryAccessibleInterface(widget)->text(text);
    }
};

TEST_F(WizardWindowTest, OpensAtItsFirstStepWithTheKeyboardOnNext) {
    EXPECT_TRUE(wizard()->isVisible());
    EXPECT_EQ(wizard()->windowTitle(), "Velmora Wizard/Pref.");
    EXPECT_EQ(pages(), std::vector{0});
    EXPECT_EQ(focusName(), "cmdProgress");
    EXPECT_EQ(part<QLabel>("lblOp")->text(), "Options: 1/10");
    EXPECT_FALSE(part("cmdReverse")->isEnabled());
}

TEST_F(WizardWindowTest, EveryFieldHasAWidgetOfItsName) {
    for (const Control* control : form().controls()) {
        const QString name = QString::fromStdString(control->Name());
        EXPECT_NE(
            part(control->Index() < 0 ? name
                                      : QStringLiteral("%1(%2)").arg(name).arg(control->Index())),
            nullptr)
            << control->Name() << " " << control->Index();
    }
}

TEST_F(WizardWindowTest, NextAndBackShowTheStepsByMouseAndByTheirLetters) {
    click("cmdProgress", "frmWizard");
    EXPECT_EQ(pages(), std::vector{1});
    pressLetterFor(Qt::Key_N, 2);
    pressLetterFor(Qt::Key_B, 1);
    click("cmdReverse", "frmWizard");
    EXPECT_EQ(pages(), std::vector{0});
}

TEST_F(WizardWindowTest, TheFirstFieldOfAStepHasTheKeyboard) {
    const char* const first[] = {"cmdProgress", "ListView1",    "txtFreeSpace", "lstAct",
                                 "txtDrive",    "cboProg",      "cboFile",      "txtTime",
                                 "chkop(0)",    "txtMailServer"};
    for (int step = 0; step < 10; ++step) {
        goTo(step);
        EXPECT_EQ(focusName(), first[step]);
    }
    for (int step = 8; step >= 0; --step) {
        pressLetterFor(Qt::Key_B, step);
        EXPECT_EQ(focusName(), first[step]);
    }
}

// From whatever field has the focus; the list of drives too, whose rows nothing opens here.
TEST_F(WizardWindowTest, EnterGoesForwardToTheLastStepAndThenFinishes) {
    for (int step = 1; step < 10; ++step) {
        press(step % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(pages(), std::vector{step});
    }
    part<QLineEdit>("txtUser")->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), "me");
    press(Qt::Key_Return);
    EXPECT_FALSE(wizard()->isVisible());
    EXPECT_EQ(program->forms().frmNotify.txtUser.Text(), "me");
}

TEST_F(WizardWindowTest, EnterPressesTheButtonThatHasTheFocus) {
    goTo(3);
    part("cmdReverse")->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(pages(), std::vector{2});
    part("cmdCancel")->setFocus();
    press(Qt::Key_Enter);
    EXPECT_FALSE(wizard()->isVisible());
}

TEST_F(WizardWindowTest, EnterAmongTheRecipientsAddsOneAndStays) {
    goTo(wizard_step::mail);
    QLineEdit* entry = part<QComboBox>("cboNotEmail")->lineEdit();
    entry->setFocus();
    QTest::keyClicks(entry, "a@b.c");
    for (const int enter : {Qt::Key_Return, Qt::Key_Enter}) press(enter);
    EXPECT_TRUE(wizard()->isVisible());
    EXPECT_EQ(form().cboNotEmail.ListCount(), 2);
    EXPECT_EQ(form().cboNotEmail.List(0), "a@b.c");
}

TEST_F(WizardWindowTest, EscapeAndTheFrameDiscard) {
    for (const bool byKey : {true, false}) {
        goTo(wizard_step::mail);
        QTest::keyClicks(part<QLineEdit>("txtUser"), "me");
        if (byKey) {
            press(Qt::Key_Escape);
        } else {
            wizard()->close();
            settle();
        }
        EXPECT_FALSE(wizard()->isVisible());
        EXPECT_EQ(program->forms().frmNotify.txtUser.Text(), "");
        open();
        EXPECT_EQ(pages(), std::vector{0});
        EXPECT_EQ(part<QLineEdit>("txtUser")->text(), "");
    }
}

TEST_F(WizardWindowTest, TheListOfStepsSaysWhichIsShownAndIsClickable) {
    const auto step = [this](int index) {
        return part<qt::StepButton>(QStringLiteral("lblStep(%1)").arg(index));
    };
    EXPECT_EQ(accessible(step(7), QAccessible::Name), "Custom Watch Time");
    EXPECT_EQ(accessible(step(7), QAccessible::Description), "Step 8 of 10");
    EXPECT_EQ(accessible(step(0), QAccessible::Description), "Step 1 of 10, shown");
    const QImage before = step(7)->grab().toImage();
    click("lblStep(7)", "frmWizard");
    EXPECT_EQ(pages(), std::vector{7});
    EXPECT_EQ(accessible(step(7), QAccessible::Description), "Step 8 of 10, shown");
    EXPECT_EQ(accessible(step(0), QAccessible::Description), "Step 1 of 10");
    EXPECT_TRUE(step(7)->font().bold());
    EXPECT_FALSE(step(0)->font().bold());
    EXPECT_NE(step(7)->grab().toImage(), before);
    // Keys have Next and Back: ten more stops of the Tab key would be in the way.
    EXPECT_EQ(step(7)->focusPolicy(), Qt::NoFocus);
}

TEST_F(WizardWindowTest, NamesOfTheStepsAreWholeAndTheWindowKeepsItsSize) {
    const QSize size = wizard()->size();
    for (int i = 0; i < 10; ++i) {
        goTo(i);
        auto* step = part<qt::StepButton>(QStringLiteral("lblStep(%1)").arg(i));
        EXPECT_GE(step->width(), step->sizeHint().width()) << i;
        EXPECT_EQ(wizard()->size(), size) << i;
    }
}

TEST_F(WizardWindowTest, AStepThatIsShownIsNamedForAScreenReader) {
    EXPECT_EQ(accessible(part("Frame1(8)"), QAccessible::Name), "Alert on Selected Events");
}

TEST_F(WizardWindowTest, AFieldWithTheFocusIsInViewAtTheLeastSizeToo) {
    wizard()->resize(wizard()->minimumSizeHint());
    settle();
    EXPECT_LT(wizard()->height(), 460);
    for (int step = 0; step < 10; ++step) {
        goTo(step);
        for (int i = 0; i < 20; ++i) {
            EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << focusName();
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(part<QScrollArea>(QStringLiteral("Frame1(%1)").arg(step))->focusPolicy(),
                  Qt::NoFocus);
    }
}

TEST_F(WizardWindowTest, ADriveTickedByKeyIsWatchedAfterOk) {
    goTo(wizard_step::drives);
    auto* drives = part<qt::ListViewWidget>("ListView1");
    drives->setCurrentIndex(drives->model()->index(1, 0));
    press(Qt::Key_Space);
    EXPECT_TRUE(form().ListView1.ListItems(2).Checked());
    EXPECT_FALSE(form1().ListView1.ListItems(2).Checked());
    pressLetter(Qt::Key_O, [&] { return !wizard()->isVisible(); });
    EXPECT_TRUE(form1().ListView1.ListItems(2).Checked());
}

TEST_F(WizardWindowTest, FiguresOfTheDrivesAreWholeWhenTheirStepComes) {
    goTo(wizard_step::drives);
    auto* drives = part<qt::ListViewWidget>("ListView1");
    for (int column = 1; column < 3; ++column) {
        const QString text = drives->model()->index(2, column).data().toString();
        EXPECT_GT(drives->columnWidth(column), drives->fontMetrics().horizontalAdvance(text));
    }
}

TEST_F(WizardWindowTest, WhatIsDisabledHasItsReasonBesideIt) {
    goTo(wizard_step::times);
    EXPECT_FALSE(part("DTTime1(0)")->isEnabled());
    EXPECT_TRUE(part("lblTimeWhy")->isVisible());
    click("chkCustTime", "frmWizard");
    EXPECT_TRUE(part("DTTime1(0)")->isEnabled());
    EXPECT_FALSE(part("lblTimeWhy")->isVisible());
}

TEST_F(WizardWindowTest, AnAnswerShowsItsProposal) {
    goTo(wizard_step::files);
    click("chkFileKind(1)", "frmWizard");
    EXPECT_EQ(part<QLineEdit>("txtFileType")->text(), ".tmp|.bak|.old|.log|.dmp|.htm|.html|.swf");
    goTo(wizard_step::times);
    auto* speed = part<QComboBox>("cboSpeed");
    EXPECT_EQ(speed->currentIndex(), -1);
    speed->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(part<QLineEdit>("txtTime")->text(), "60");
    press(Qt::Key_Down);
    EXPECT_EQ(part<QLineEdit>("txtTime")->text(), "45");
}

TEST_F(WizardWindowTest, TheRulesOfTheActionsAskInTheirBoxes) {
    boxes.answers = {QMessageBox::Ok};
    goTo(wizard_step::actions);
    auto* actions = part<QListWidget>("lstAct");
    actions->item(act::remove)->setCheckState(Qt::Checked);
    actions->item(act::move)->setCheckState(Qt::Checked);
    settle();
    EXPECT_EQ(boxes.lastText(), "The 'Delete Specified files' option will be de-selected");
    EXPECT_EQ(actions->item(act::remove)->checkState(), Qt::Unchecked);
    click("cmdApply", "frmWizard");
    EXPECT_EQ(boxes.seen.size(), 1u);
    EXPECT_TRUE(form1().lstAct.Selected(act::move));
    EXPECT_TRUE(wizard()->isVisible());
}

}  // namespace
}  // namespace velmora::tests
