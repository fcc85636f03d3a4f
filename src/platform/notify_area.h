// The notification area's one operation. The surface (console, window) provides it, since the icon
// belongs to a window.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// NIM_ADD, NIM_MODIFY and NIM_DELETE.
enum class NotifyMessage : std::uint32_t { add = 0, modify = 1, remove = 2 };

/// NOTIFYICONDATA, with names where the system has handles.
struct NotifyIconData {
    std::string window;  ///< the form that owns the icon
    std::uint32_t id = 1;
    std::uint32_t flags = 7;              ///< message, icon and tip
    std::uint32_t callbackMessage = 512;  ///< the mouse-move message
    std::string icon;                     ///< key of an image
    std::string tip;                      ///< at most 63 characters are shown
};

class NotifyArea {
  public:
    virtual ~NotifyArea() = default;
    /// Whether the notification area took the message.
    virtual bool Shell_NotifyIconA(NotifyMessage message, const NotifyIconData& data) = 0;
    /// Whether the user can get at icons there; some desktops have no notification area.
    virtual bool available() const = 0;
};

}  // namespace velmora
