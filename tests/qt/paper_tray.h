// A printer in memory: it takes pages of A4 and keeps their texts.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "qt/system/print_system.h"
#include "qt/text_recorder.h"

namespace velmora::tests {

struct PaperTray {
    qt::PrintResult result = {};  ///< how the next jobs end; only `printed` takes pages
    std::function<void()> whileAsked = {};
    int asked = 0;
    QString title = {};
    std::vector<QStringList> pages = {};  ///< of the last job
};

class PaperTraySystem final : public qt::PrintSystem {
  public:
    explicit PaperTraySystem(PaperTray& tray) : tray_(tray) {}

    qt::PrintResult print(QWidget*, qt::Pages& pages) override {
        ++tray_.asked;
        tray_.title = pages.title();
        tray_.pages.clear();
        if (tray_.whileAsked) tray_.whileAsked();
        if (tray_.result.end != qt::PrintEnd::printed) return tray_.result;
        const int count = pages.layOut({680, 1010});
        for (int page = 0; page < count; ++page) {
            TextRecorder paper;
            QPainter painter(&paper);
            pages.paint(painter, page);
            painter.end();
            tray_.pages.push_back(paper.texts());
        }
        return tray_.result;
    }

  private:
    PaperTray& tray_;
};

}  // namespace velmora::tests
