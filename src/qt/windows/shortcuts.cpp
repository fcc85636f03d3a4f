#include "qt/windows/shortcuts.h"

#include <QAction>
#include <QShortcut>

#include "forms/form_numbers.h"

namespace velmora::qt {

namespace {

constexpr const char* anywhere = nullptr;

struct MenuKey {
    const char* item;
    const char* keys;
    const char* list = anywhere;  ///< the list that must have the focus
    bool isShownOnly = false;     ///< another item or shortcut answers the keys
};

constexpr MenuKey menuKeys[] = {
    {"mnuLock", "Ctrl+L"},
    {"mnuPause", "F6", anywhere, true},
    {"mnuHide", "Ctrl+H"},
    {"mnuShowAl", "F8", anywhere, true},
    {"mnuContent", "Ctrl+F1"},
    {"mnuPWP", "Ctrl+U"},
    {"mnuComments", "Ctrl+M"},
    {"mnuAbout", "Shift+F1"},
    {"mnuExit", "Ctrl+Q"},
    {"mnuExplore", "Ctrl+E"},
    {"mnuParam", "Ctrl+P"},
    {"mnuRemove", "Del", "ListView1"},
    {"mnuInfo", "Alt+Return", "ListView1"},
    {"mnuProgSet", "F9"},
    {"mnuRecyc", "Ctrl+B"},
    {"mnuDefrag", "Ctrl+D"},
    {"mnuEmptyRecyc", "Ctrl+Shift+B"},
    {"mnuNotif", "Ctrl+N"},
    {"mnuShowAlert", "F8"},
    {"mnuCleaner", "Ctrl+K"},
    {"mnuSorbane", "Ctrl+Shift+K"},
    {"mnuToSystray", "Ctrl+T"},
    {"mnuStayOnTop", "Ctrl+Shift+T"},
    {"mnuFadeH", "Ctrl+F7"},
    {"mnuFadeP", "Ctrl+F8"},
    {"mnuFadeN", "Ctrl+F9"},
    {"mnuFileAttr", "Alt+Return", "LVFile"},
};

// A menu that isn't open doesn't answer its keys: the window or a list does.
void addMenuKey(QWidget* window, const MenuKey& key) {
    auto* action = window->findChild<QAction*>(QLatin1String(key.item));
    action->setShortcut(QKeySequence(QLatin1String(key.keys)));
    if (key.isShownOnly) return;
    if (key.list == anywhere) {
        window->addAction(action);
    } else {
        action->setShortcutContext(Qt::WidgetShortcut);
        window->findChild<QWidget*>(QLatin1String(key.list))->addAction(action);
    }
}

template <typename Command>
void addKey(QWidget* widget, const QKeySequence& keys, UserHand& hand, Command command,
            Qt::ShortcutContext where = Qt::WindowShortcut) {
    auto* shortcut = new QShortcut(keys, widget);
    shortcut->setContext(where);
    QObject::connect(shortcut, &QShortcut::activated, widget,
                     [command, &hand] { hand.does(command); });
}

void addListKey(QWidget* window, const char* list, Qt::Key key, Label& label, UserHand& hand) {
    addKey(
        window->findChild<QWidget*>(QLatin1String(list)), QKeySequence(key), hand,
        [&label] { label.userClick(); }, Qt::WidgetShortcut);
}

void addListKeys(QWidget* window, Form1& form, UserHand& hand) {
    addListKey(window, "ListView1", Qt::Key_Insert, form.lblDP[watch_button::add], hand);
    addListKey(window, "LVFile", Qt::Key_Insert, form.lblSF[file_button::add], hand);
    // From the list: the file stays.
    addListKey(window, "LVFile", Qt::Key_Delete, form.lblSF[file_button::remove], hand);
    addListKey(window, "LVProg", Qt::Key_Delete, form.Label5[program_button::remove], hand);
}

// The buttons of the tool bar by their place, which the keys of functions follow.
void addToolBarKeys(QWidget* window, Form1& form, UserHand& hand) {
    constexpr int wizard = 2;
    constexpr int driveInfo = 3;
    constexpr int functions = 4;
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_F2, wizard},
                                            {Qt::Key_F3, driveInfo},
                                            {Qt::Key_F4, functions},
                                            {Qt::Key_F7, tool::view}};
    for (const auto& [key, button] : keys) {
        addKey(window, QKeySequence(key), hand,
               [&form, place = button] { form.Toolbar1.userClickPart(place); });
    }
}

}  // namespace

void addHelpKey(QWidget* window, Form1& form, UserHand& hand) {
    addKey(window, QKeySequence(QKeySequence::HelpContents), hand,
           [&form] { form.Toolbar1.userClickPart(form.Toolbar1.ButtonCount()); });
}

void addShortcuts(QWidget* window, Form1& form, UserHand& hand) {
    for (const MenuKey& key : menuKeys) addMenuKey(window, key);
    for (Label& tab : form.lblTab) {
        addKey(window, QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab.Index())), hand,
               [&tab] { tab.Click(); });
    }
    addKey(window, QKeySequence(Qt::Key_F5), hand, [&form] { form.Command1.userClick(); });
    addKey(window, QKeySequence(Qt::Key_F6), hand, [&form] { form.cmdPause.userClick(); });
    addToolBarKeys(window, form, hand);
    addListKeys(window, form, hand);
    addHelpKey(window, form, hand);
}

}  // namespace velmora::qt
