// Every window of the program, each bound to its form.
#pragma once

#include <memory>
#include <vector>

#include "forms/forms.h"
#include "qt/print/printing.h"
#include "qt/surface/qt_shell_icons.h"
#include "qt/surface/qt_user32.h"
#include "qt/surface/user_hand.h"
#include "qt/surface/windows_by_name.h"

namespace velmora::qt {

class AllWindows {
  public:
    /// Adds each window to `names`. Only the main window is made at once, the others when their
    /// forms are loaded.
    AllWindows(Forms& forms, const QtShellIcons& icons, QtUser32& user32, UserHand& hand,
               WindowsByName& names, Printing& printing);
    ~AllWindows();

  private:
    void add(const std::string& form, QWidget* window);
    /// `make` takes the form, the user's hand and what else is given.
    template <typename AForm, typename Make, typename... More>
    void addWhenLoaded(AForm& form, Make make, More&... more) {
        loads_.emplace_back(form.Load.connect([this, &form, make, &more...] {
            // A form that was unloaded keeps its window.
            if (names_.find(form.Name()) == nullptr) add(form.Name(), make(form, hand_, more...));
        }));
    }

    Forms& forms_;
    UserHand& hand_;
    WindowsByName& names_;
    std::vector<std::unique_ptr<QWidget>> windows_;
    std::vector<ScopedConnection> loads_;
};

}  // namespace velmora::qt
