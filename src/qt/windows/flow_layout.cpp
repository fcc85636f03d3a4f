#include "qt/windows/flow_layout.h"

#include <algorithm>

namespace velmora::qt {

FlowLayout::FlowLayout(int spacing, QWidget* parent) : QLayout(parent) {
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(items_);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

QSize FlowLayout::minimumSize() const {
    QSize least;
    for (const QLayoutItem* item : items_) least = least.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return least + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    arrange(area, true);
}

int FlowLayout::arrange(const QRect& area, bool place) const {
    const QRect inner = area.marginsRemoved(contentsMargins());
    int x = inner.x();
    int y = inner.y();
    int lineHeight = 0;
    for (QLayoutItem* item : items_) {
        if (item->isEmpty()) continue;
        const QSize size = item->sizeHint();
        if (x > inner.x() && x + size.width() > inner.right() + 1) {
            x = inner.x();
            y += lineHeight + spacing();
            lineHeight = 0;
        }
        if (place) item->setGeometry({QPoint(x, y), size});
        x += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - area.y() + contentsMargins().bottom();
}

}  // namespace velmora::qt
