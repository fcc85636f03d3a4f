// A paint device that keeps the texts painted on it.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <vector>

namespace velmora::tests {

class TextRecorder : public QPaintDevice {
  public:
    struct Word {
        QString text;
        QPointF place;  ///< where its baseline begins
        double width = 0;
        QColor colour;
    };

    std::vector<Word> words;

    QStringList texts() const {
        QStringList all;
        for (const Word& word : words) all << word.text;
        return all;
    }
    bool has(const QString& text) const { return texts().contains(text); }

    QPaintEngine* paintEngine() const override { return &engine_; }

  protected:
    int metric(PaintDeviceMetric metric) const override {
        constexpr int side = 10'000;
        constexpr int dotsPerInch = 96;
        switch (metric) {
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return dotsPerInch;
            case PdmWidth:
            case PdmHeight:
                return side;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
            default:
                return 0;
        }
    }

  private:
    class Engine : public QPaintEngine {
      public:
        explicit Engine(std::vector<Word>& words) : QPaintEngine(AllFeatures), words_(words) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawTextItem(const QPointF& place, const QTextItem& item) override {
            words_.push_back({item.text(), state->transform().map(place),
                              item.width() * state->transform().m11(), painter()->pen().color()});
        }
        Type type() const override { return User; }

      private:
        std::vector<Word>& words_;
    };

    mutable Engine engine_{words};
};

}  // namespace velmora::tests
