// A chart with its values as a table, which takes its place, and a button that copies both.
#pragma once

#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>

#include "qt/controls/chart_widget.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class ChartView : public QWidget {
    Q_OBJECT
  public:
    ChartView(Chart& field, UserHand& hand, QWidget* parent = nullptr);

  private:
    void layOut();
    void nameParts();
    void refresh(const Chart& field);
    void fillTable();
    void showPage(bool ofTable);
    void copy() const;

    Regional regional_;
    ChartWidget* chart_;
    QTableWidget* table_;
    QStackedWidget* pages_;
    QPushButton* showTable_;
    QPushButton* copy_;
};

}  // namespace velmora::qt
