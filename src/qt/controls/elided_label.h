// A line of text that is shortened with an ellipsis when it doesn't fit; its tool-tip is the whole
// text then.
#pragma once

#include <QLabel>

namespace velmora::qt {

class ElidedLabel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
  public:
    explicit ElidedLabel(QWidget* parent = nullptr, Qt::TextElideMode mode = Qt::ElideRight);

    const QString& text() const { return text_; }
    void setText(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showWholeInToolTip();

    QString text_;
    Qt::TextElideMode mode_;
};

}  // namespace velmora::qt
