// A check whose steps show: beside the ports and the actions, the record holds what the parts of
// the check write, in order.
//
// "events" and "not ready" are the event pass and the step of a drive that isn't ready, "figures
// C:\\" the new figures of a row, "rate" and "statistics" the overview, "alert.avi" and "spin.avi"
// the clips, "settings saved" and "log saved" the files.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "monitor/check_rig.h"

namespace velmora::tests {

using Calls = std::vector<std::string>;

inline Calls joined(std::initializer_list<Calls> pieces) {
    Calls all;
    for (const Calls& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

/// The overview is brought up to date, the rate with it.
inline const Calls statistics{"rate", "statistics"};
/// What follows the last row.
inline const Calls endOfPass{"rate", "rate", "statistics"};

struct RecordedCheck : CheckRig {
    RecordedCheck() {
        const std::string folder = platform.app.Path + "\\";
        record(form1.lblSpaceChangeRate, "rate");
        record(form1.lblTimesMonitor, "statistics");
        recordClips(folder);
        machine.onCall = [this](const std::string& call) { recordSaving(call); };
        form1.StatusBar1.PanelChanged.connect([this](int index) {
            if (index == 1 && panel(1) == "Events Listing Check Done. 1") calls.push_back("events");
            if (index == 1 && panel(1).starts_with("Not Ready: ")) calls.push_back("not ready");
        });
        clearRecords();
    }

    /// That row has figures to compare: the check takes new ones, which shows.
    void giveFigures(int index) { at(index).setFreeSpace("1 KB"); }

  private:
    static constexpr const char* unread = "?";

    // A text that is written once more is no change: the label forgets it each time.
    void record(Label& label, const std::string& what) {
        label.Changed.connect([this, &label, what] {
            if (label.Caption() == unread) return;
            calls.push_back(what);
            label.setCaption(unread);
        });
    }
    void recordClips(const std::string& folder) {
        Animation& animation = form1.Animation1;
        animation.Open(unread);
        animation.Changed.connect([this, &animation, folder] {
            const std::string file = animation.File();
            if (!file.starts_with(folder)) return;
            calls.push_back(file.substr(folder.size()));
            animation.Open(unread);
        });
    }
    void recordSaving(const std::string& call) {
        if (call.ends_with("\\set.dat")) calls.push_back("settings saved");
        if (call.starts_with("appendLine") && call.ends_with("\\log.dat")) {
            calls.push_back("log saved");
        }
        if (call.starts_with("GetFolder ")) {
            calls.push_back("figures " + call.substr(std::string("GetFolder ").size()));
        }
    }
};

}  // namespace velmora::tests
