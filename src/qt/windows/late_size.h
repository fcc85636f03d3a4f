// A size that the window system reports late.
#pragma once

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSize>

namespace velmora::qt {

/// X11 answers requests later: after the program has given a window a size, the one before may
/// still be reported, as if the user had chosen it.
class LateSize {
  public:
    /// The program has given the window another size than this one.
    void expect(const QSize& before) {
        before_ = before;
        since_.start();
    }
    /// Whether a reported size is that one, and so soon that nobody has chosen it.
    bool is(const QSize& reported) const {
        static const bool comesLate = QGuiApplication::platformName() == QLatin1String("xcb");
        return comesLate && since_.isValid() && reported == before_ && since_.elapsed() < latest;
    }

  private:
    static constexpr qint64 latest = 1000;  // milliseconds

    QSize before_;
    QElapsedTimer since_;
};

}  // namespace velmora::qt
