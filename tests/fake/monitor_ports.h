// The ports of the monitoring, which write down what they were asked in the steps that they were
// given: "prcRefreshRowIcon C:\", "modifyIcon Form1", "prcToolTipText Velmora".
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "monitor/ports.h"

namespace velmora::fake {

class RecordedRowIcons final : public RowIcons {
  public:
    explicit RecordedRowIcons(std::vector<std::string>& steps) : steps_(steps) {}
    void prcRefreshRowIcon(ListItem& row) override {
        steps_.push_back("prcRefreshRowIcon " + row.Text());
    }

  private:
    std::vector<std::string>& steps_;
};

class RecordedTray final : public Tray {
  public:
    explicit RecordedTray(std::vector<std::string>& steps) : steps_(steps) {}
    void modifyIcon(const std::string& form) override {
        steps_.push_back("modifyIcon " + form);
        if (onModify) onModify();
    }
    void prcToolTipText(const std::string& text) override {
        steps_.push_back("prcToolTipText " + text);
        if (onToolTip) onToolTip();
    }

    std::function<void()> onModify;
    std::function<void()> onToolTip;

  private:
    std::vector<std::string>& steps_;
};

}  // namespace velmora::fake
