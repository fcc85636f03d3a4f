#include "qt/print/printed_pages.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/print/paper_look.h"

namespace velmora::qt {

namespace {

constexpr double titleGap = 4;  // between the title and the lines below it
constexpr double headGap = 12;  // on both sides of the line below a head
constexpr double dateGap = 24;  // beside the title
constexpr double footGap = 14;  // above the foot
constexpr int linesAtMost = 3;  // of a head's text
constexpr double leastWidth = 600;

double widthOf(const QString& text) {
    return QFontMetricsF(paperFont()).horizontalAdvance(text);
}

double footHeight() {
    return std::ceil(QFontMetricsF(paperFont()).height()) + footGap;
}

}  // namespace

PrintedPages::PrintedPages(Printout printout, QString date)
    : words_(std::move(printout.words)),
      picture_(std::move(printout.picture)),
      table_(std::move(printout.table)),
      date_(std::move(date)) {}

PrintedPages::Head PrintedPages::makeHead(bool isFirst) const {
    const double beside = room_.width() - widthOf(date_) - dateGap;
    const QFont font = isFirst ? titlePaperFont() : boldPaperFont();
    Head head;
    head.title = WrappedText(words_.title, font, std::max(room_.width() / 2, beside), linesAtMost);
    head.baseline = QFontMetricsF(font).ascent();
    head.height = head.title.height() + 2 * headGap;
    if (!isFirst) return head;
    for (const QString& line : words_.lines) {
        if (line.isEmpty()) continue;
        head.height += head.lines.empty() ? titleGap : 0;
        head.lines.emplace_back(line, paperFont(), room_.width(), linesAtMost);
        head.height += head.lines.back().height();
    }
    return head;
}

int PrintedPages::layOut(const QSizeF& room) {
    // On narrow paper all is smaller, so that no number has to be cut.
    scale_ = std::min(1.0, room.width() / std::max(leastWidth, table_.leastWidth()));
    room_ = room / scale_;
    firstHead_ = makeHead(true);
    laterHead_ = makeHead(false);
    table_.layOut(room_.width());
    const PrintedPicture::Heights picture = picture_->heights(room_.width());
    const PageParts parts{.room = room_.height(),
                          .firstHead = firstHead_.height,
                          .laterHead = laterHead_.height,
                          .foot = footHeight(),
                          .pictureLeast = picture.least,
                          .pictureBest = picture.best,
                          .tableHead = table_.headHeight(),
                          .rows = table_.rowHeights()};
    pages_ = layPages(parts, picture_->layOut({room_.width(), pictureRoom(parts)}));
    return static_cast<int>(pages_.size());
}

void PrintedPages::paint(QPainter& painter, int page) const {
    painter.save();
    painter.scale(scale_, scale_);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHead(painter, page == 0 ? firstHead_ : laterHead_);
    const PageContent& content = pages_.at(static_cast<std::size_t>(page));
    if (content.piece) {
        painter.save();
        painter.translate(0, content.piece->top);
        picture_->paint(painter, content.piece->number);
        painter.restore();
    }
    if (content.rows) {
        table_.paint(painter, {0, content.rows->top}, content.rows->first, content.rows->count);
    }
    paintFoot(painter, page);
    painter.restore();
}

void PrintedPages::paintHead(QPainter& painter, const Head& head) const {
    painter.setPen(Qt::black);
    head.title.paint(painter, {0, 0});
    painter.setPen(quietPaperInk());
    double top = head.title.height() + titleGap;
    for (const WrappedText& line : head.lines) {
        line.paint(painter, {0, top});
        top += line.height();
    }
    // On the line of the title's first words.
    painter.setFont(paperFont());
    painter.drawText(QPointF(room_.width() - widthOf(date_), head.baseline), date_);
    painter.setPen(QPen(paperLineInk(), 1));
    const double line = head.height - headGap;
    painter.drawLine(QPointF(0, line), QPointF(room_.width(), line));
}

void PrintedPages::paintFoot(QPainter& painter, int page) const {
    const QString number =
        QStringLiteral("Page %1 of %2").arg(page + 1).arg(static_cast<int>(pages_.size()));
    const double baseline = room_.height() - QFontMetricsF(paperFont()).descent();
    painter.setFont(paperFont());
    painter.setPen(quietPaperInk());
    painter.drawText(QPointF(0, baseline), QStringLiteral("Velmora"));
    painter.drawText(QPointF(room_.width() - widthOf(number), baseline), number);
}

}  // namespace velmora::qt
