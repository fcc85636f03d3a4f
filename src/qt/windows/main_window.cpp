#include "qt/windows/main_window.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QToolBar>
#include <optional>

#include "forms/form_numbers.h"
#include "qt/controls/activity_view.h"
#include "qt/controls/bars.h"
#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/label_tabs.h"
#include "qt/controls/menus.h"
#include "qt/controls/one_stop.h"
#include "qt/controls/watch_list_view.h"
#include "qt/icons/program_icon.h"
#include "qt/surface/field.h"
#include "qt/surface/menu_place.h"
#include "qt/windows/form_binding.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"
#include "qt/windows/shortcuts.h"
#include "qt/windows/watch_words.h"
#include "rows/watch_row.h"

namespace velmora::qt {

namespace {

constexpr double listScale = 0.9;
// The width at which all buttons of the tool bar have room for words.
constexpr int widthWithWords = 640;
// The least width by the resize rules, even if the fonts need more.
constexpr int leastWidth = form1_size::leastWidth / twipsPerPixel;

QIcon rowPicture(const std::string& key, const QtShellIcons& icons) {
    if (key == state_icon::ok) return glyphIcon(Glyph::stateOk);
    if (key == state_icon::alert) return glyphIcon(Glyph::stateAlert);
    return icons.icon(key);
}

QWidget* stretch() {
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return space;
}

}  // namespace

MainWindow::MainWindow(Forms& forms, const QtShellIcons& icons, QtUser32& user32, UserHand& hand)
    : forms_(forms), form_(forms.form1), user32_(user32), hand_(hand) {
    setWindowIcon(programIcon());
    setMinimumWidth(leastWidth);
    addToolBar();
    auto* content = column({});
    content->setContentsMargins(gap + 2, gap, gap + 2, 0);
    watchList_ = makeWatchList(icons);
    content->addWidget(watchList_, 3);
    auto* pages = row({makeTabs(), makePages()});
    pages->setSpacing(0);
    content->addWidget(makeLowerPart(pages), 4);
    content->addWidget(makeNote(form_.fraTrayNote, form_.lblTrayNote, form_.cmdTrayNote, hand));
    setCentralWidget(around(content));
    auto* status = new StatusView(form_.StatusBar1);
    setStatusBar(status);
    const auto showMood = [this, status] {
        status->setFine(banner_->summary().mood == WatchSummary::Mood::good);
    };
    connect(banner_, &WatchBanner::changed, status, showMood);
    showMood();
    addMenus();
    addShortcuts(this, form_, hand);
    findChild<QWidget*>(fieldName(form_.ListView1))->setFocus();
    new FormBinding(this, form_, hand, {.sized = true, .role = WindowRole::main});
}

// On a low screen it scrolls, so that the status bar stays in view.
QWidget* MainWindow::makeLowerPart(QLayout* pages) {
    QWidget* lower = yielding(around(pages));
    follow(form_.Frame1.Changed, lower, [this, lower] { setShown(lower, form_.Frame1.Visible()); });
    return lower;
}

void MainWindow::addToolBar() {
    toolBar_ = makeToolBar(form_.Toolbar1, hand_);
    toolBar_->addWidget(stretch());
    addAside(makeMenuButton(), QStringLiteral("Menu"));
    addAside(makeIconButton(form_.Command9, Glyph::translucent, hand_),
             QStringLiteral("See-through"));
    addAside(makeIconButton(form_.Command6, Glyph::exit, hand_), QStringLiteral("Exit"));
    const auto buttons = toolBar_->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly);
    std::vector<QWidget*> stops;
    for (QToolButton* button : buttons) {
        if (!button->objectName().startsWith(QLatin1String("qt_"))) stops.push_back(button);
    }
    new OneStop(toolBar_, stops);
    QMainWindow::addToolBar(Qt::TopToolBarArea, toolBar_);
}

// A picture at the right end, with words below it where the bar has room for them.
void MainWindow::addAside(QToolButton* button, const QString& words) {
    button->setText(words);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    toolBar_->addWidget(button);
    aside_.push_back(button);
}

void MainWindow::showWordsAside() {
    const auto style =
        width() >= widthWithWords ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly;
    for (QToolButton* button : aside_) {
        if (button->toolButtonStyle() != style) button->setToolButtonStyle(style);
    }
}

// The menu of the icon, also for desktops without a notification area.
QToolButton* MainWindow::makeMenuButton() {
    auto* button = new QToolButton;
    button->setObjectName(QStringLiteral("mnuPopUp.Button"));
    button->setIcon(glyphIcon(Glyph::menu));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(QStringLiteral("Menu"));
    button->setAccessibleName(QStringLiteral("Main menu"));
    connect(button, &QToolButton::clicked, this, [this, button] {
        const MenuPlace place(*button);
        hand_.does([this] { form_.mnuPopUp.PopUp(); });
    });
    return button;
}

QWidget* MainWindow::makeWatchList(const QtShellIcons& icons) {
    banner_ = new WatchBanner(forms_, hand_);
    banner_->addAction(makeButton(form_.cmdSetUp, hand_));
    ListViewWidget* list = makeWatchListView(
        form_, [&icons](const std::string& key) { return rowPicture(key, icons); }, hand_);
    list->setMinimumHeight(110);
    // The window starts narrow, and has to show five columns of figures.
    QFont smaller = list->font();
    smaller.setPointSizeF(smaller.pointSizeF() * listScale);
    list->setFont(smaller);
    auto* hint = makeNote(form_.fraHint, form_.lblHint, form_.cmdHint, hand_);
    auto* content = column({banner_, hint, list, makeWatchListButtons()});
    auto* frame = around(content);
    bindField(frame, form_.Frame8, [] {});
    placeTriggerEntry();
    return frame;
}

QWidget* MainWindow::makeWatchListButtons() {
    auto* buttons = row({});
    std::vector<QWidget*> stops;
    for (Label& label : form_.lblDP) {
        auto* button = new LabelButton(label, hand_, LabelButton::Shape::button);
        if (label.Index() == watch_button::add) button->setPicture(Glyph::openFolder);
        buttons->addWidget(button);
        stops.push_back(button);
    }
    QPushButton* pause = makeButton(form_.cmdPause, hand_);
    follow(form_.cmdPause.Changed, pause,
           [this, pause] { pause->setAccessibleDescription(stateWords(form_.cmdPause)); });
    stops.push_back(pause);
    buttons->addStretch(1);
    buttons->addWidget(new ActivityView(form_.Animation1));
    buttons->addWidget(pause);
    QWidget* all = around(buttons);
    new OneStop(all, stops);
    return all;
}

QWidget* MainWindow::makeTabs() {
    auto* strip = column({});
    strip->setContentsMargins(0, 28, 0, 0);
    strip->addWidget(
        new LabelTabs(form_.lblTab, hand_, LabelButton::Shape::sideTab, QStringLiteral("Pages")));
    auto* frame = around(strip);
    bindField(frame, form_.Frame5, [] {});
    return frame;
}

QWidget* MainWindow::makePages() {
    auto* heading = makeCaption(form_.lblTabCap);
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.1);
    heading->setFont(font);
    auto* pages = column({heading});
    QWidget* panels[] = {makeSpecifiedPanel(form_, hand_), makeOptionsPanel(form_, hand_),
                         makeConfigPanel(form_, hand_), makeAlertsPanel(form_, hand_),
                         makeOverviewPanel(form_, hand_)};
    for (std::size_t i = 0; i < form_.frmSp.size(); ++i) {
        pages->addWidget(panels[i], 1);
        bindField(panels[i], form_.frmSp[i], [] {});
    }
    pages->setContentsMargins(gap + 2, gap, 0, gap);
    auto* frame = around(pages);
    frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    bindField(frame, form_.Frame1, [] {});
    return frame;
}

void MainWindow::placeTriggerEntry() {
    auto* entry = makeLineEdit(form_.Text1, hand_);
    entry->setParent(this);
    follow(form_.Text1.Changed, entry, [entry, this] {
        const Bounds& place = form_.Text1.bounds();
        entry->setGeometry(place.Left / twipsPerPixel, place.Top / twipsPerPixel,
                           place.Width / twipsPerPixel, entry->sizeHint().height());
        entry->raise();
    });
}

void MainWindow::addMenus() {
    for (MenuItem* menu : {&form_.mnuPopUp, &form_.mnuLstV, &form_.mnuFunc, &form_.mnuLst}) {
        makeMenu(*menu, hand_, this,
                 [this, name = menu->Name()] { hand_.does([&] { user32_.windowCreated(name); }); });
    }
}

// For widgets without their own menu.
void MainWindow::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // By the key it comes below the widget that has the focus.
    std::optional<MenuPlace> place;
    if (event->reason() == QContextMenuEvent::Mouse) place.emplace(event->globalPos());
    hand_.does([this] { form_.mnuPopUp.PopUp(); });
}

void MainWindow::reportHeights() {
    const auto report = [](Control& control, int height) {
        Bounds bounds = control.bounds();
        bounds.Height = height * twipsPerPixel;
        control.setBounds(bounds);
    };
    report(form_.Toolbar1, toolBar_->height());
    report(form_.Frame8, watchList_->height());
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    showWordsAside();
    reportHeights();
}

bool MainWindow::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) reportHeights();
    return handled;
}

}  // namespace velmora::qt
