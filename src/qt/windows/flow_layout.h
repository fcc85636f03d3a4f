// Widgets in lines, as many in each line as fit into the width.
#pragma once

#include <QLayout>
#include <QList>

namespace velmora::qt {

class FlowLayout : public QLayout {
    Q_OBJECT
  public:
    /// `spacing` in pixels between widgets and between lines.
    explicit FlowLayout(int spacing, QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { items_.append(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override { return items_.value(index); }
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange({0, 0, width, 0}, false); }
    QSize minimumSize() const override;
    QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(const QRect& area) override;

  private:
    /// The height that the lines take; places the widgets when `place` is set.
    int arrange(const QRect& area, bool place) const;

    QList<QLayoutItem*> items_;
};

}  // namespace velmora::qt
