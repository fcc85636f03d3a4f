// A long text that grows at its front. While it is hidden, the view holds none of it.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <vector>

#include "controls/text_box.h"

namespace velmora::qt {

class JournalView : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit JournalView(TextBox& field, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {300, 90}; }

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void gather(const std::string& text);
    void showGathered();

    TextBox& field_;
    std::vector<std::string> gathered_;  // prepended since the last refresh, the newest last
    bool stale_ = true;                  // the whole text has to be read
    ScopedConnection prepended_;
    ScopedConnection replaced_;
};

}  // namespace velmora::qt
