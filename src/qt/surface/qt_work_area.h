// The part of the screen that windows may use.
#pragma once

#include <QGuiApplication>
#include <QScreen>

#include "controls/control.h"
#include "platform/work_area.h"

namespace velmora::qt {

class QtWorkArea final : public WorkArea {
  public:
    int Width() override { return (area().right() + 1) * twipsPerPixel; }
    int Height() override { return (area().bottom() + 1) * twipsPerPixel; }

  private:
    static QRect area() {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return screen == nullptr ? QRect(0, 0, 1024, 768) : screen->availableGeometry();
    }
};

}  // namespace velmora::qt
