#include <QPainter>

#include "qt/controls/buttons.h"
#include "qt/icons/program_icon.h"
#include "qt/surface/field.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

constexpr int drawingSize = 96;
constexpr int descriptionWidth = 300;

// The program's icon within a turning ring.
class TurningDisk : public QWidget {
  public:
    explicit TurningDisk(Slider& turn) : turn_(turn) {
        setFixedSize(drawingSize, drawingSize);
        bindField(this, turn, [this] { update(); });
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        programIcon().paint(&painter, rect().adjusted(20, 20, -20, -20));
        const QRectF ring = QRectF(rect()).adjusted(5, 5, -5, -5);
        QColor faint = palette().color(QPalette::WindowText);
        faint.setAlphaF(0.15F);
        painter.setPen(QPen(faint, 5));
        painter.drawEllipse(ring);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 5, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(ring, -turn_.Value() * 16, 80 * 16);
    }

  private:
    Slider& turn_;
};

}  // namespace

QWidget* makeAboutWindow(FrmAbout& form, UserHand& hand) {
    auto* title = makeCaption(form.lblTitle);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    font.setBold(true);
    title->setFont(font);
    auto* description = makeCaption(form.lblDescription, true);
    description->setMinimumWidth(descriptionWidth);
    auto* texts = column({title, makeCaption(form.lblVersion), description});
    texts->addStretch(1);
    auto* upper = row({new TurningDisk(form.prcDraw)});
    upper->setSpacing(2 * gap);
    upper->addLayout(texts, 1);
    auto* ok = makeButton(form.cmdOK, hand);
    ok->setDefault(true);
    auto* content = column({});
    content->addLayout(upper);
    content->addLayout(row({makeButton(form.cmdSysInfo, hand), nullptr, ok}));
    return dialog(form, content, hand);
}

}  // namespace velmora::qt
