// The main window: tool bar, watch list, tab strip with its panels, status bar, menus.
#pragma once

#include <QMainWindow>
#include <QToolButton>
#include <vector>

#include "forms/forms.h"
#include "qt/surface/qt_shell_icons.h"
#include "qt/surface/qt_user32.h"
#include "qt/surface/user_hand.h"
#include "qt/windows/watch_banner.h"

namespace velmora::qt {

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(Forms& forms, const QtShellIcons& icons, QtUser32& user32, UserHand& hand);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QWidget* makeWatchList(const QtShellIcons& icons);
    QWidget* makeWatchListButtons();
    QWidget* makeLowerPart(QLayout* pages);
    QWidget* makeTabs();
    QWidget* makePages();
    QToolButton* makeMenuButton();
    void addAside(QToolButton* button, const QString& words);
    void showWordsAside();
    void addToolBar();
    void addMenus();
    void placeTriggerEntry();
    /// Gives the heights of tool bar and watch list to their fields, for the resize rules and the
    /// compact view.
    void reportHeights();

    Forms& forms_;
    Form1& form_;
    QtUser32& user32_;
    UserHand& hand_;
    QToolBar* toolBar_ = nullptr;
    std::vector<QToolButton*> aside_;
    QWidget* watchList_ = nullptr;
    WatchBanner* banner_ = nullptr;
};

}  // namespace velmora::qt
