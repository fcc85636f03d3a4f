// The user in front of a window: boxes, dialogs, and the yields of a long handler.
#pragma once

#include <QCheckBox>
#include <QElapsedTimer>
#include <functional>

#include "persist/shell_links.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "qt/surface/told_boxes.h"
#include "qt/surface/user_hand.h"
#include "qt/surface/windows_by_name.h"

namespace velmora::qt {

class QtHost final : public Host {
  public:
    /// `machine` turns the paths of Qt's own dialogs into drive paths. `windows` are those over
    /// which boxes come.
    QtHost(Machine& machine, UserHand& hand, const WindowsByName& windows);

    BoxAnswer MsgBox(const Box& box) override;
    SeriesAnswer MsgBoxOfSeries(const Box& box, const std::string& offer) override;
    void ShowBusy(bool isBusy) override;
    /// In the status bar, once the listing has taken 200 ms, and each time that they have passed.
    void ShowListing(const std::string& folder, std::size_t entries) override;
    void Tell(const Box& box) override;
    /// The system's own folder dialog where there is one, Qt's otherwise.
    std::string BrowseForFolder(const std::string& title) override;
    std::string OpenFileDialog(const FileDialog& dialog) override;
    void Beep() override;
    /// The windows show it where it belongs.
    void Note(const std::string& /*text*/) override {}
    /// Processes events at most every few milliseconds: a check yields several times a row, and
    /// asking the window system each time would take longer than the check.
    void DoEvents() override { DoEventsRan(); }
    /// Between two times nothing runs.
    bool DoEventsRan() override;

  private:
    QWidget* owner() const;
    BoxAnswer show(const Box& box, QCheckBox* offer);

    Machine& machine_;
    UserHand& hand_;
    const WindowsByName& windows_;
    ShellLinks shellLinks_;
    ToldBoxes told_;
    QElapsedTimer sinceYield_;
    std::size_t entriesShown_ = 0;  // of the listing that goes on
    QElapsedTimer sinceListing_;    // since it began, or was drawn last
};

}  // namespace velmora::qt
