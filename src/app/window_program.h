// The program with its window: forms and subsystems with Qt's surface.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "app/core.h"
#include "app/metrics_file.h"
#include "qt/print/printing.h"
#include "qt/surface/qt_host.h"
#include "qt/surface/qt_notify_area.h"
#include "qt/surface/qt_shell_icons.h"
#include "qt/surface/qt_timers.h"
#include "qt/surface/qt_user32.h"
#include "qt/surface/qt_work_area.h"
#include "qt/surface/user_hand.h"
#include "qt/windows/all_windows.h"
#include "shell/first_steps.h"
#include "shell/window_places.h"

namespace velmora {

class WindowProgram {
  public:
    /// Needs a QApplication. `ended` runs once when the program ends, with the exit status.
    /// `printers` may be null: nothing can be printed then.
    WindowProgram(Machine& machine, std::function<void(int)> ended,
                  std::unique_ptr<qt::PrintSystem> printers = qt::makePrintSystem());
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    /// What starts the program anew, for a user who has put his settings back after a start that
    /// failed.
    void whenRestored(std::function<void()> startAgain) { startAgain_ = std::move(startAgain); }

    /// Runs before the box of an error that ends the program: it takes nothing over any more.
    void whenFailing(std::function<void()> failing) { hand_.whenFailing(std::move(failing)); }

    /// Builds the running state and shows the window.
    void load();

    /// A later start hands its command line over, as `Application::ForOthers` has it.
    void take(const std::string& forOthers);

    /// Comes to the front and asks whether to end, as the exit button does. Not while a box or a
    /// dialog waits for its answer, nor when the program is locked.
    void askToEnd();

    /// Processes events, as a long handler does.
    void yield() { host_.DoEvents(); }

    Forms& forms() { return forms_; }
    Core& core() { return core_; }
    qt::UserHand& hand() { return hand_; }
    qt::QtTimers& timers() { return timers_; }
    qt::QtNotifyArea& notifyArea() { return notifyArea_; }
    QWidget* window(const std::string& form) { return names_.find(form); }

  private:
    void start();
    void offerSettings();
    void minimiseOnceShown();
    void answerIcon(const std::string& form, int message);
    void keepPlacesSoon();

    Machine& machine_;
    std::function<void()> startAgain_;
    Forms forms_;
    qt::UserHand hand_;
    qt::WindowsByName names_;
    qt::QtHost host_;
    qt::QtUser32 user32_;
    qt::QtShellIcons shellIcons_;
    qt::QtNotifyArea notifyArea_;
    qt::QtWorkArea workArea_;
    qt::QtTimers timers_;
    qt::Printing printing_;
    Core core_;
    FirstSteps firstSteps_;
    MetricsFile metrics_;
    WindowPlaces places_;
    qt::AllWindows windows_;
    QTimer keepPlaces_;
    std::vector<ScopedConnection> placesChanged_;
};

}  // namespace velmora
