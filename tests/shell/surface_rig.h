// The window side of the program on a machine, a surface and a user in memory.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "forms/forms.h"

namespace velmora::tests {

using Texts = std::vector<std::string>;

inline constexpr float twipsPerPixel = 15;
inline constexpr int leftDoubleClick = 515;
inline constexpr int rightButtonUp = 517;

struct SurfaceRig {
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Form1& form1 = forms.form1;
    Globals& globals = forms.globals;
    fake::FakeHost& host = surface.host;
    std::vector<std::pair<NotifyMessage, NotifyIconData>>& sent = surface.notifyArea.sent;
    Texts& windowCalls = surface.user32.calls;

    /// The icon of that form reports a mouse message.
    void sendMouse(Form& form, int message) { form.MouseMove(message * twipsPerPixel); }
    Texts boxTexts() const {
        Texts texts;
        for (const Box& box : surface.host.boxes) texts.push_back(box.text);
        return texts;
    }
};

}  // namespace velmora::tests
