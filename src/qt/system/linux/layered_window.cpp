#include "qt/system/layered_window.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>

namespace velmora::qt {

namespace {

constexpr int maskInterval = 200;  // milliseconds

QRgb rgbOf(std::uint32_t key) {
    return qRgb(static_cast<int>(key & 0xFF), static_cast<int>((key >> 8) & 0xFF),
                static_cast<int>((key >> 16) & 0xFF));
}

// X11 and Wayland have no colour key: the window gets a mask without the pixels of that colour,
// which is made again each time the window has been painted.
class ColourKey : public QObject {
  public:
    static ColourKey* of(QWidget* window) {
        for (QObject* child : window->children()) {
            if (auto* key = dynamic_cast<ColourKey*>(child)) return key;
        }
        return new ColourKey(window);
    }

    void setKey(std::optional<std::uint32_t> key) {
        key_ = key;
        schedule();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest || event->type() == QEvent::Resize) schedule();
        return false;
    }

  private:
    explicit ColourKey(QWidget* window) : QObject(window), window_(window) {
        window->installEventFilter(this);
    }

    void schedule() {
        if (scheduled_ || shaping_) return;
        scheduled_ = true;
        QTimer::singleShot(maskInterval, this, [this] { shape(); });
    }

    // At most a few times a second, since it paints the window once more.
    void shape() {
        scheduled_ = false;
        shaping_ = true;
        const QRegion hidden = key_ && window_->isVisible() ? placesOf(rgbOf(*key_)) : QRegion();
        if (hidden.isEmpty()) {
            if (!window_->mask().isEmpty()) window_->clearMask();
        } else if (const QRegion rest = QRegion(window_->rect()) - hidden;
                   rest != window_->mask()) {
            window_->setMask(rest);
        }
        shaping_ = false;
    }

    QRegion placesOf(QRgb colour) const {
        QImage image(window_->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        window_->render(
            &image, {}, {},
            QWidget::DrawWindowBackground | QWidget::DrawChildren | QWidget::IgnoreMask);
        QRegion places;
        for (int y = 0; y < image.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                if (line[x] != colour) continue;
                const int from = x;
                while (x < image.width() && line[x] == colour) ++x;
                places += QRect(from, y, x - from, 1);
            }
        }
        return places;
    }

    QWidget* window_;
    std::optional<std::uint32_t> key_;
    bool scheduled_ = false;
    bool shaping_ = false;
};

}  // namespace

void showLayered(QWidget* window, std::uint8_t alpha, std::optional<std::uint32_t> key) {
    window->setWindowOpacity(alpha / 255.0);
    ColourKey::of(window)->setKey(key);
}

void stayOnTop(QWidget* window, bool on) {
    if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == on) return;
    // The window itself, without the widget: changing the widget's flags would hide it.
    window->winId();
    window->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, on);
    window->overrideWindowFlags(window->windowHandle()->flags());
}

}  // namespace velmora::qt
