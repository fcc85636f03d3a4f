// The notification area of a program without a window: its messages become events.
#pragma once

#include "console/output.h"
#include "platform/notify_area.h"

namespace velmora::console {

class ConsoleNotifyArea final : public NotifyArea {
  public:
    explicit ConsoleNotifyArea(Output& output) : output_(output) {}

    /// False: there is no area that could show the icon. Changes of an icon, which come each minute
    /// or second, are printed only while status changes are.
    bool Shell_NotifyIconA(NotifyMessage message, const NotifyIconData& data) override {
        if (message == NotifyMessage::modify && !output_.watch()) return false;
        constexpr const char* names[] = {"NIM_ADD", "NIM_MODIFY", "NIM_DELETE"};
        output_.shell("Shell_NotifyIconA",
                      {{"message", std::string(names[static_cast<std::size_t>(message)])},
                       {"window", data.window},
                       {"icon", data.icon},
                       {"tip", data.tip}});
        return false;
    }

    /// Without a window there is nothing to call back.
    bool available() const override { return true; }

  private:
    Output& output_;
};

}  // namespace velmora::console
