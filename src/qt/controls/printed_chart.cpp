#include "qt/controls/printed_chart.h"

#include <algorithm>
#include <cmath>

#include "qt/controls/chart_face.h"
#include "qt/controls/chart_paint.h"
#include "qt/print/paper_look.h"

namespace velmora::qt {

namespace {

constexpr double leastPie = 160;  // its width and height
constexpr double bestPie = 0.45;  // of the width

class PrintedFace final : public PrintedPicture {
  public:
    PrintedFace(const ChartData& data, const Regional& regional)
        : isPie_(data.isPie), face_(makeFace(data, regional)) {}

    Heights heights(double width) const override;
    std::vector<double> layOut(const QSizeF& room) override;
    void paint(QPainter& painter, std::size_t piece) const override;

  private:
    double rowHeight() const { return face_->scrolledHeight() / std::max(1, face_->partCount()); }
    double besideRows(double width) const;

    bool isPie_;
    std::unique_ptr<ChartFace> face_;
    double width_ = 0;
    double rowsOfPiece_ = 0;
    std::vector<double> pieces_;  // their heights
};

// The height of all but what scrolls.
double PrintedFace::besideRows(double width) const {
    if (isPie_) {
        face_->layOut({width, 0}, paperFont());
        return face_->window().top() + chartMargin;
    }
    constexpr double high = 1000;
    face_->layOut({width, high}, paperFont());
    return high - face_->window().height();
}

PrintedPicture::Heights PrintedFace::heights(double width) const {
    constexpr double high = 1e5;
    const double beside = besideRows(width);
    face_->layOut({width, 0}, paperFont());
    const double least = face_->scrolledHeight();
    if (isPie_) {
        return {.least = beside + std::max(least, leastPie),
                .best = beside + std::max(least, width * bestPie)};
    }
    face_->layOut({width, high}, paperFont());
    return {.least = beside + least, .best = beside + face_->scrolledHeight()};
}

std::vector<double> PrintedFace::layOut(const QSizeF& room) {
    width_ = room.width();
    rowsOfPiece_ = face_->partCount();
    pieces_ = {room.height()};
    if (room.height() >= heights(room.width()).least) return pieces_;
    const double beside = besideRows(width_);
    face_->layOut({width_, 0}, paperFont());
    const double row = rowHeight();
    rowsOfPiece_ = std::max(1.0, std::floor((room.height() - beside) / row));
    pieces_.clear();
    double rest = face_->partCount();
    while (rest > 0) {
        const double rows = std::min(rest, rowsOfPiece_) * row;
        pieces_.push_back(beside + (isPie_ ? std::max(rows, leastPie) : rows));
        rest -= rowsOfPiece_;
    }
    return pieces_;
}

void PrintedFace::paint(QPainter& painter, std::size_t piece) const {
    face_->layOut({width_, pieces_.at(piece)}, paperFont());
    painter.setFont(paperFont());
    face_->paint(painter, {.palette = paperPalette(),
                           .scroll = static_cast<double>(piece) * rowsOfPiece_ * rowHeight()});
}

}  // namespace

std::unique_ptr<PrintedPicture> printedChart(const ChartData& data, const Regional& regional) {
    return std::make_unique<PrintedFace>(data, regional);
}

}  // namespace velmora::qt
