// The view of one drive: its pie, its gauges, and the minimum space of its row.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/forms.h"
#include "inspect/pie/cls_pie.h"
#include "monitor/drive_meter.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class DriveView {
  public:
    /// Connects its handlers to the form. All of the arguments must outlive it.
    DriveView(Forms& forms, Platform& platform, Host& host, DriveMeter& driveMeter);
    DriveView(const DriveView&) = delete;
    DriveView& operator=(const DriveView&) = delete;

    /// Reads the drive that is shown, and draws it and shows its figures if they have changed.
    /// Error 71 when it isn't ready, 5 when it is none.
    void prcUpdateThis();

    /// The text of the row that was selected when the view was loaded is at index 0.
    const std::vector<std::string>& aPaths() const { return aPaths_; }

  private:
    struct Reading {
        double total = 0;  // bytes
        double free = 0;
        double used = 0;
        double usedShare = 0;  // percent
    };

    void Form_Load();
    void Form_Unload();
    void Timer1_Timer();
    void Combo1_Click();
    void VScroll1_Change();
    void Option1_Click();
    void Command3_Click();
    void cmdToggle_Click();

    void beginPath();
    Reading readDrive();
    void fillPie(const Reading& reading);
    void draw(const Reading& reading);
    ListItem* shownRow();
    double totalKB();
    std::string asPercent(double kilobytes);
    std::string asKB(double percent);
    /// The value as the row's trigger; nothing when it can't be one, which a box has said then.
    std::optional<double> triggerInForce(double entered);
    void refuse(const std::string& why);

    FrmIndDri& form_;
    Form1& form1_;
    Platform& platform_;
    Host& host_;
    DriveMeter& driveMeter_;
    clsPie pie_;
    std::vector<std::string> aPaths_;
    std::string shownPath_;
    double lastUsed_ = 0;
    double lastFree_ = 0;
    bool showsKB_ = false;  // the unit in which Text1 is written
};

}  // namespace velmora
