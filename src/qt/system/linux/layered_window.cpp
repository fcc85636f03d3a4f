#include "qt/system/layered_window.h"

#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWindow>

namespace velmora::qt {

namespace {

QRgb rgbOf(std::uint32_t key) {
    return qRgb(static_cast<int>(key & 0xFF), static_cast<int>((key >> 8) & 0xFF),
                static_cast<int>((key >> 16) & 0xFF));
}

// X11 and Wayland know no colour key: the window takes a shape without the places of that colour,
// found anew whenever it has been painted.
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
        QMetaObject::invokeMethod(this, [this] { shape(); }, Qt::QueuedConnection);
    }

    void shape() {
        scheduled_ = false;
        shaping_ = true;
        const QRegion hidden = key_ && window_->isVisible() ? placesOf(rgbOf(*key_)) : QRegion();
        if (hidden.isEmpty()) {
            if (!window_->mask().isEmpty()) window_->clearMask();
        } else if (const QRegion rest = QRegion(window_->rect()) - hidden; rest != window_->mask()) {
            window_->setMask(rest);
        }
        shaping_ = false;
    }

    QRegion placesOf(QRgb colour) const {
        QImage image(window_->size(), QImage::Format_RGB32);
        // Without the present shape, which would hide the places that are looked for.
        window_->render(&image, {}, {},
                        QWidget::DrawWindowBackground | QWidget::DrawChildren | QWidget::IgnoreMask);
        bool any = false;
        for (int y = 0; y < image.height() && !any; ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            any = std::any_of(line, line + image.width(),
                              [colour](QRgb pixel) { return (pixel | 0xFF000000) == colour; });
        }
        if (!any) return {};
        // The ones of a bitmap are its dark places, and a mask's its light ones: the other mode.
        return QRegion(QBitmap::fromImage(image.createMaskFromColor(colour, Qt::MaskOutColor)));
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
