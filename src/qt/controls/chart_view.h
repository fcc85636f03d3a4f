// A chart with its values as a table, which takes its place, and buttons that copy and print both.
#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <functional>

#include "qt/controls/chart_widget.h"
#include "qt/print/printing.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class ChartView : public QWidget {
    Q_OBJECT
  public:
    ChartView(Chart& field, UserHand& hand, QWidget* parent = nullptr);

    /// Adds the button that prints the chart; `words` gives what stands above it on paper.
    void offerPrinting(Printing& printing, UserHand& hand, std::function<PrintedWords()> words);

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
    QPushButton* print_ = nullptr;
    QHBoxLayout* buttons_;
};

}  // namespace velmora::qt
