// Small effects on the main window: translucency and staying on top of the others.
#pragma once

#include "alerts/ports.h"
#include "forms/forms.h"
#include "platform/user32.h"

namespace velmora {

class WindowEffects final : public StayOnTop, public Translucency {
  public:
    /// Connects the handlers to the main window.
    WindowEffects(Form1& form1, Globals& globals, User32& user32);
    WindowEffects(const WindowEffects&) = delete;
    WindowEffects& operator=(const WindowEffects&) = delete;

    /// `percent` from 20 to 100, which is opaque; others change nothing. Pure magenta is
    /// transparent at each level. Whether the system took it.
    bool SetTranslucency(const Form& form, int percent) override;
    /// Between half translucent and opaque.
    void Command9_Click();
    void chkOnTop_Click();
    void mnuStayOnTop_Click();

    void drop() override;
    void restore() override;

  private:
    void placeInOrder(std::int32_t after);

    Form1& form1_;
    Globals& globals_;
    User32& user32_;
};

}  // namespace velmora
