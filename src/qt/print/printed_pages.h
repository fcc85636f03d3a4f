// The pages of a printout: title and date above the picture, its values below it, a number at the
// foot.
#pragma once

#include <vector>

#include "qt/print/page_layout.h"
#include "qt/print/printed_table.h"
#include "qt/print/printout.h"
#include "qt/print/wrapped_text.h"
#include "qt/system/print_system.h"

namespace velmora::qt {

class PrintedPages final : public Pages {
  public:
    /// `date` is that of the values, in words.
    PrintedPages(Printout printout, QString date);

    QString title() const override { return words_.title; }
    int layOut(const QSizeF& room) override;
    void paint(QPainter& painter, int page) const override;

  private:
    /// The words above the rest of a page.
    struct Head {
        WrappedText title = {};
        std::vector<WrappedText> lines = {};
        double baseline = 0;  // of the title
        double height = 0;
    };
    Head makeHead(bool isFirst) const;
    void paintHead(QPainter& painter, const Head& head) const;
    void paintFoot(QPainter& painter, int page) const;

    PrintedWords words_;
    std::unique_ptr<PrintedPicture> picture_;
    PrintedTable table_;
    QString date_;
    double scale_ = 1;
    QSizeF room_;  // before it is scaled
    Head firstHead_;
    Head laterHead_;
    std::vector<PageContent> pages_;
};

}  // namespace velmora::qt
