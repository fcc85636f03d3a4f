#include "qt/controls/check_list.h"

#include <QSignalBlocker>

#include "qt/controls/accessible_list.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

CheckList::CheckList(ListBox& field, UserHand& hand, QWidget* parent)
    : QListWidget(parent), field_(field) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setUniformItemSizes(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    makeAccessible(*this);
    Refresher* refresher = bindField(this, field, [this] { showEntries(); });
    connect(this, &QListWidget::itemChanged, this, [this, &hand, refresher](QListWidgetItem* item) {
        const int index = row(item);
        const bool on = item->checkState() == Qt::Checked;
        if (field_.Selected(index) == on) return;
        hasTicked_ = true;
        hand.does(field_, [&] { field_.userTick(index, on); });
        // A rule of the list may have unticked it, or others.
        refresher->refreshNow();
        reportTick(*this, this->model()->index(index, 0));
    });
    // A click on an entry's text ticks nothing, but it is a click too.
    connect(this, &QListWidget::itemClicked, this, [this, &hand] {
        if (!hasTicked_) hand.does(field_, [this] { field_.userClick(); });
    });
}

void CheckList::mouseReleaseEvent(QMouseEvent* event) {
    hasTicked_ = false;
    QListWidget::mouseReleaseEvent(event);
}

void CheckList::showEntries() {
    const QSignalBlocker quiet(this);
    while (count() > field_.ListCount()) delete takeItem(count() - 1);
    for (int i = 0; i < field_.ListCount(); ++i) {
        if (i >= count()) addItem(QString());
        QListWidgetItem* entry = item(i);
        entry->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        entry->setSizeHint({0, fontMetrics().height() + 6});
        entry->setText(shown(field_.List(i)).trimmed());
        entry->setCheckState(field_.Selected(i) ? Qt::Checked : Qt::Unchecked);
    }
    viewport()->update();
}

QSize CheckList::sizeHint() const {
    const int rows = std::max(1, count());
    int width = 0;
    for (int i = 0; i < count(); ++i) {
        width = std::max(width, fontMetrics().horizontalAdvance(item(i)->text()));
    }
    const int tick = 2 * fontMetrics().height();
    return {width + tick + 2 * frameWidth(), rows * sizeHintForRow(0) + 2 * frameWidth() + 2};
}

QSize CheckList::minimumSizeHint() const {
    return {160, sizeHint().height()};
}

}  // namespace velmora::qt
