// The line above the watch list that says how the watch stands.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <vector>

#include "forms/forms.h"
#include "monitor/watch_summary.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class WatchBanner : public QFrame {
    Q_OBJECT
  public:
    WatchBanner(Forms& forms, const UserHand& hand, QWidget* parent = nullptr);

    const WatchSummary& summary() const { return summary_; }
    /// Adds a widget at its end.
    void addAction(QWidget* action);

  signals:
    void changed();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void followFields(Form1& form);
    void touch();
    void refresh();

    const Forms& forms_;
    const UserHand& hand_;
    WatchSummary summary_;
    QLabel* picture_;
    QLabel* text_;
    bool touched_ = false;
    QElapsedTimer sinceRead_;  // the fields
    qint64 cost_ = 0;          // of the last reading, in milliseconds
    std::vector<ScopedConnection> connections_;
};

}  // namespace velmora::qt
