// Every window of the program, each bound to its form.
#pragma once

#include <memory>
#include <vector>

#include "forms/forms.h"
#include "qt/surface/qt_shell_icons.h"
#include "qt/surface/qt_user32.h"
#include "qt/surface/user_hand.h"
#include "qt/surface/windows_by_name.h"

namespace velmora::qt {

class AllWindows {
  public:
    /// Enters each window under the name of its form. Only the main window is made at once; the
    /// others come into being when their forms are shown for the first time.
    AllWindows(Forms& forms, const QtShellIcons& icons, QtUser32& user32, UserHand& hand,
               WindowsByName& names);
    ~AllWindows();

  private:
    void add(const std::string& form, QWidget* window);
    template <typename AForm>
    void addWhenLoaded(AForm& form, QWidget* (*make)(AForm&, UserHand&)) {
        form.Load.connect([this, &form, make] { add(form.Name(), make(form, hand_)); });
    }

    UserHand& hand_;
    WindowsByName& names_;
    std::vector<std::unique_ptr<QWidget>> windows_;
};

}  // namespace velmora::qt
