#include "qt/surface/told_boxes.h"

#include "qt/surface/box_look.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// More would not fit on a small screen.
constexpr qsizetype mostTexts = 4;

}  // namespace

void ToldBoxes::tell(const Box& box, QWidget* owner) {
    if (shown_ == nullptr) open(box, owner);
    const QString text = shownLines(box.text);
    texts_.removeAll(text);
    texts_.prepend(text);
    if (texts_.size() > mostTexts) texts_.removeLast();
    shown_->setText(texts_.join(QStringLiteral("\n\n")));
    shown_->show();
}

void ToldBoxes::open(const Box& box, QWidget* owner) {
    texts_.clear();
    shown_ =
        new QMessageBox(shownIcon(box.icon), shown(box.title), QString(), QMessageBox::Ok, owner);
    shown_->setTextFormat(Qt::PlainText);
    shown_->setObjectName(QStringLiteral("ToldBox"));
    shown_->setAttribute(Qt::WA_DeleteOnClose);
    shown_->setWindowModality(Qt::NonModal);
    QObject::connect(shown_, &QDialog::finished, shown_, [this] { texts_.clear(); });
}

}  // namespace velmora::qt
