// Each kind of view may be destroyed before or after its field, also with a change of the field
// that it has not shown yet. The sanitizers find uses of destroyed objects.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <functional>
#include <memory>

#include "fake/fake_host.h"
#include "qt/controls/activity_view.h"
#include "qt/controls/bars.h"
#include "qt/controls/buttons.h"
#include "qt/controls/chart_view.h"
#include "qt/controls/check_list.h"
#include "qt/controls/entries.h"
#include "qt/controls/gauge_widget.h"
#include "qt/controls/journal_view.h"
#include "qt/controls/label_button.h"
#include "qt/controls/list_view_widget.h"
#include "qt/controls/menus.h"
#include "qt/controls/password_edit.h"
#include "qt/controls/picture_widget.h"
#include "qt/surface/qt_timers.h"
#include "qt/windows/form_binding.h"

namespace velmora::tests {
namespace {

struct Kind {
    std::string name;
    std::function<QObject*(Forms&, qt::UserHand&)> make;
    std::function<void(Forms&)> change;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

QWidget* makeList(Forms& forms, qt::UserHand& hand) {
    return new qt::ListViewWidget(
        forms.form1.LVFile, [](const std::string&) { return QIcon(); }, {.ticks = true}, hand);
}

QWidget* makeWindow(Forms& forms, qt::UserHand& hand) {
    auto* window = new QWidget;
    new qt::FormBinding(window, forms.frmAbout, hand, {.sized = true});
    return window;
}

std::vector<Kind> buttonKinds() {
    using qt::UserHand;
    return {
        {"Caption", [](Forms& f, UserHand&) { return qt::makeCaption(f.form1.lblE); },
         [](Forms& f) { f.form1.lblE.setCaption("another"); }},
        {"Link", [](Forms& f, UserHand& hand) { return qt::makeLink(f.form1.lblAbout, hand); },
         [](Forms& f) { f.form1.lblAbout.setCaption("another"); }},
        {"LabelButton",
         [](Forms& f, UserHand& hand) {
             return new qt::LabelButton(f.form1.lblDP[watch_button::add], hand,
                                        qt::LabelButton::Shape::button);
         },
         [](Forms& f) { f.form1.lblDP[watch_button::add].setForeColor(0xFF); }},
        {"Button", [](Forms& f, UserHand& hand) { return qt::makeButton(f.form1.cmdAdv, hand); },
         [](Forms& f) { f.form1.cmdAdv.setCaption("another"); }},
        {"IconButton",
         [](Forms& f, UserHand& hand) {
             return qt::makeIconButton(f.form1.cmdFolder, qt::Glyph::browse, hand);
         },
         [](Forms& f) { f.form1.cmdFolder.setEnabled(false); }},
        {"CheckBox",
         [](Forms& f, UserHand& hand) { return qt::makeCheckBox(f.form1.chkLog, hand); },
         [](Forms& f) { f.form1.chkLog.userClick(); }},
        {"OptionButton",
         [](Forms& f, UserHand& hand) { return qt::makeOptionButton(f.form1.OpDriv[1], hand); },
         [](Forms& f) { f.form1.OpDriv[1].userClick(); }},
    };
}

std::vector<Kind> entryKinds() {
    using qt::UserHand;
    return {
        {"LineEdit",
         [](Forms& f, UserHand& hand) { return qt::makeLineEdit(f.form1.txtTime, hand); },
         [](Forms& f) { f.form1.txtTime.setText("61"); }},
        {"PasswordEdit",
         [](Forms& f, UserHand& hand) { return new qt::PasswordEdit(f.frmLock.Text1, hand); },
         [](Forms& f) { f.frmLock.Text1.setText("secret"); }},
        {"Slider", [](Forms& f, UserHand& hand) { return qt::makeSlider(f.form1.Slider1, hand); },
         [](Forms& f) { f.form1.Slider1.setValue(20); }},
        {"TimeEdit",
         [](Forms& f, UserHand& hand) {
             return qt::makeTimeEdit(f.form1.DTPInterval, QStringLiteral("HH:mm:ss"), hand);
         },
         [](Forms& f) { f.form1.DTPInterval.setEnabled(false); }},
        {"ComboBox",
         [](Forms& f, UserHand& hand) { return qt::makeComboBox(f.form1.cboFile, hand); },
         [](Forms& f) { f.form1.cboFile.AddItem("C:\\file"); }},
        {"UpDown", [](Forms& f, UserHand& hand) { return qt::makeUpDown(f.form1.UpDown1, hand); },
         [](Forms& f) { f.form1.UpDown1.setEnabled(false); }},
    };
}

std::vector<Kind> listKinds() {
    using qt::UserHand;
    return {
        {"CheckList",
         [](Forms& f, UserHand& hand) { return new qt::CheckList(f.form1.lstAct, hand); },
         [](Forms& f) { f.form1.lstAct.userTick(act::sound, true); }},
        {"NewRow", makeList, [](Forms& f) { f.form1.LVFile.Add("file"); }},
        {"RemovedRow", makeList,
         [](Forms& f) {
             f.form1.LVFile.Add("file");
             f.form1.LVFile.Remove(1);
         }},
        {"ClearedRows", makeList, [](Forms& f) { f.form1.LVFile.Clear(); }},
        {"ChangedRow", makeList, [](Forms& f) { f.form1.LVFile.Add("file").setText("another"); }},
        {"SelectedRow", makeList, [](Forms& f) { f.form1.LVFile.Add("file").setSelected(true); }},
        {"ChangedList", makeList, [](Forms& f) { f.form1.LVFile.setEnabled(false); }},
        {"JournalEntry", [](Forms& f, UserHand&) { return new qt::JournalView(f.form1.txtAlert); },
         [](Forms& f) { f.form1.txtAlert.prepend("entry"); }},
        {"JournalText", [](Forms& f, UserHand&) { return new qt::JournalView(f.form1.txtAlert); },
         [](Forms& f) { f.form1.txtAlert.setText("another"); }},
    };
}

std::vector<Kind> drawnKinds() {
    using qt::UserHand;
    return {
        {"Chart",
         [](Forms& f, UserHand& hand) {
             return new qt::ChartView(f.dlgDriveInfo.MSChart1[0], hand);
         },
         [](Forms& f) { f.dlgDriveInfo.MSChart1[0].setRowCount(3); }},
        {"Picture", [](Forms& f, UserHand&) { return new qt::PictureWidget(f.frmIndDri.picPie); },
         [](Forms& f) { f.frmIndDri.picPie.TextOut(1, 1, "text"); }},
        {"Gauge", [](Forms& f, UserHand&) { return new qt::GaugeWidget(f.frmIndDri.VMeter1); },
         [](Forms& f) { f.frmIndDri.VMeter1.setValue(7); }},
        {"UprightSlider",
         [](Forms& f, UserHand& hand) { return qt::makeUprightSlider(f.frmIndDri.VScroll1, hand); },
         [](Forms& f) { f.frmIndDri.VScroll1.setValue(7); }},
        {"Choice",
         [](Forms& f, UserHand& hand) { return qt::makeChoice(f.dlgDriveInfo.drvDrive, hand); },
         [](Forms& f) { f.dlgDriveInfo.drvDrive.AddItem("C:"); }},
        {"TextView", [](Forms& f, UserHand&) { return qt::makeTextView(f.dlgDriveInfo.txtBytes); },
         [](Forms& f) { f.dlgDriveInfo.txtBytes.setText("00"); }},
    };
}

std::vector<Kind> windowKinds() {
    using qt::UserHand;
    return {
        {"Activity", [](Forms& f, UserHand&) { return new qt::ActivityView(f.form1.Animation1); },
         [](Forms& f) { f.form1.Animation1.setVisible(false); }},
        {"ToolBar",
         [](Forms& f, UserHand& hand) { return qt::makeToolBar(f.form1.Toolbar1, hand); },
         [](Forms& f) { f.form1.Toolbar1.setButtonCaption(tool::startPause, "Start"); }},
        {"StatusBar", [](Forms& f, UserHand&) { return new qt::StatusView(f.form1.StatusBar1); },
         [](Forms& f) { f.form1.StatusBar1.setPanelText(1, "another"); }},
        {"Menu",
         [](Forms& f, UserHand& hand) {
             return qt::makeMenu(f.form1.mnuFunc, hand, nullptr, [] {});
         },
         [](Forms& f) { f.form1.mnuFunc.PopUp(); }},
        {"MenuItem",
         [](Forms& f, UserHand& hand) {
             return qt::makeMenu(f.form1.mnuPopUp, hand, nullptr, [] {});
         },
         [](Forms& f) { f.form1.mnuPause.setChecked(true); }},
        {"Window", makeWindow, [](Forms& f) { f.frmAbout.setCaption("another"); }},
        {"ShownWindow", makeWindow, [](Forms& f) { f.frmAbout.Show(); }},
        {"Timers",
         [](Forms& f, UserHand& hand) {
             return new qt::QtTimers(
                 f, [] { return std::int64_t{0}; }, hand);
         },
         [](Forms& f) { f.form1.Timer1.setEnabled(true); }},
    };
}

std::vector<Kind> allKinds() {
    std::vector<Kind> all;
    for (const auto& kinds :
         {buttonKinds(), entryKinds(), listKinds(), drawnKinds(), windowKinds()}) {
        all.insert(all.end(), kinds.begin(), kinds.end());
    }
    return all;
}

struct ViewLifetime : testing::TestWithParam<Kind> {
    ViewLifetime() { hand.setHost(host); }

    void makeView() { view.reset(GetParam().make(*forms, hand)); }
    void change() { GetParam().change(*forms); }
    static void settle() {
        for (int i = 0; i < 5; ++i) QApplication::processEvents();
    }

    fake::FakeHost host;
    qt::UserHand hand;
    std::unique_ptr<Forms> forms = std::make_unique<Forms>();
    std::unique_ptr<QObject> view;
};

TEST_P(ViewLifetime, TheFieldChangesAfterItsViewIsGone) {
    makeView();
    settle();
    view.reset();
    change();
    settle();
    EXPECT_FALSE(hand.ended());
}

TEST_P(ViewLifetime, TheViewGoesWithAChangeThatItHasNotShown) {
    makeView();
    change();
    view.reset();
    settle();
    EXPECT_FALSE(hand.ended());
}

TEST_P(ViewLifetime, TheFieldGoesBeforeItsView) {
    makeView();
    settle();
    forms.reset();
    settle();
    view.reset();
    EXPECT_FALSE(hand.ended());
}

TEST_P(ViewLifetime, TheFieldGoesWithAChangeThatItsViewHasNotShown) {
    makeView();
    settle();
    change();
    forms.reset();
    settle();
    view.reset();
    EXPECT_FALSE(hand.ended());
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, ViewLifetime, testing::ValuesIn(allKinds()),
                         [](const auto& kind) { return kind.param.name; });

// A focused entry loses the focus as it is destroyed.
TEST(FocusedEntry, ReportsItsLastLossOfTheFocusOnlyToAFieldThatExists) {
    fake::FakeHost host;
    qt::UserHand hand;
    hand.setHost(host);
    auto forms = std::make_unique<Forms>();
    std::unique_ptr<QWidget> edit(qt::makeLineEdit(forms->form1.txtTime, hand));
    edit->show();
    edit->setFocus();
    QApplication::processEvents();
    forms.reset();
    edit.reset();
    EXPECT_FALSE(hand.ended());
}

}  // namespace
}  // namespace velmora::tests
