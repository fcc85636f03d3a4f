#include "qt/windows/layouts.h"

#include <QResizeEvent>

namespace velmora::qt {

namespace {

// Without margins of its own.
template <typename Layout>
Layout* makeLayout() {
    auto* layout = new Layout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    return layout;
}

QScrollArea* scrollAreaOf(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Transparent: a theme may give the area the colour of lists.
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    return area;
}

}  // namespace

QGroupBox* group(const QString& heading, QLayout* content) {
    auto* box = new QGroupBox(heading);
    // The heading says what belongs together; what is in it has frames of its own.
    box->setFlat(true);
    content->setContentsMargins(0, gap, 0, gap);
    box->setLayout(content);
    return box;
}

QHBoxLayout* row(std::initializer_list<QWidget*> widgets) {
    auto* layout = makeLayout<QHBoxLayout>();
    for (QWidget* widget : widgets) {
        if (widget == nullptr) {
            layout->addStretch(1);
        } else {
            layout->addWidget(widget);
        }
    }
    return layout;
}

QVBoxLayout* column(std::initializer_list<QWidget*> widgets) {
    auto* layout = makeLayout<QVBoxLayout>();
    for (QWidget* widget : widgets) layout->addWidget(widget);
    return layout;
}

void setShown(QWidget* piece, bool isShown) {
    if (!isShown || piece->parentWidget() != nullptr) piece->setVisible(isShown);
}

QLabel* wordFor(const QString& word, QWidget* widget) {
    auto* label = new QLabel(word);
    label->setBuddy(widget);
    if (widget->accessibleName().isEmpty()) widget->setAccessibleName(word);
    return label;
}

QScrollArea* scrolled(QWidget* page) {
    page->setMaximumWidth(widestPage);
    auto* area = scrollAreaOf(page);
    // What has the focus on the page is scrolled to, and passes on the keys that scroll.
    area->setFocusPolicy(Qt::NoFocus);
    area->setAccessibleName(QStringLiteral("Page"));
    return area;
}

QScrollArea* yielding(QWidget* part) {
    auto* area = scrollAreaOf(part);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return area;
}

QWidget* around(QLayout* layout) {
    auto* widget = new QWidget;
    widget->setLayout(layout);
    return widget;
}

TwoColumns::TwoColumns(QWidget* first, QWidget* second, int roomForBoth, QWidget* parent)
    : QWidget(parent),
      layout_(new QBoxLayout(QBoxLayout::TopToBottom, this)),
      roomForBoth_(roomForBoth) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(gap + 2);
    layout_->addWidget(first, 1);
    layout_->addWidget(second, 1);
}

void TwoColumns::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout_->setDirection(event->size().width() >= roomForBoth_ ? QBoxLayout::LeftToRight
                                                                : QBoxLayout::TopToBottom);
}

}  // namespace velmora::qt
