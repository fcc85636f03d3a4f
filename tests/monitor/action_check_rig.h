// Whole checks with the real actions in place: C: is short by far, D: has room.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "alerts/actions/action_branch.h"
#include "alerts/actions/action_list_rules.h"
#include "base/text.h"
#include "monitor/check_rig.h"
#include "rows/listed_file.h"

namespace velmora::tests {

struct ActionCheckRig : CheckRig {
    Actions realActions{{.forms = forms,
                         .platform = platform,
                         .host = host,
                         .alerts = alerts,
                         .system = systemActions}};
    ActionListRules rules{form1, forms.frmNotify, host};

    ActionCheckRig() {
        onAction = [this](int action, Shortage& shortage) {
            realActions.table().run(action, shortage);
        };
        watch("C:\\", 5);
        drive("D:", 1'000'000, 1'000'000);
        form1.txtDrive.setText("D:\\store");
        form1.cboFile.AddItem("any");
    }
    void tickAction(int action) { form1.lstAct.setSelected(action, true); }
    ListItem& listMissing(const std::string& path) {
        ListItem& row = form1.LVFile.Add(path);
        ListedFile(row).setPath(path);
        ListedFile(row).setSize("7 KB", "");
        return row;
    }
    ListItem& listFile(const std::string& path) {
        machine.files[path] = "abc";
        return listMissing(path);
    }
    std::string listed() {
        std::string all;
        for (int i = 1; i <= form1.LVFile.Count(); ++i) {
            all += (i > 1 ? " " : "") + ConstListedFile(form1.LVFile.ListItems(i)).path();
        }
        return all;
    }
    bool exists(const std::string& path) { return machine.files.count(path) > 0; }
    int dialogs() { return count("alert dialog"); }
    /// After an error that doesn't end the check, it waits for the next one.
    void expectRetried(const std::string& description) {
        EXPECT_EQ(alert(1), "High | " + std::string(stampDateTime) + " | Error: " + description);
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(timesChecked(), 0);
        EXPECT_TRUE(panel(1).starts_with("Ready. Check in: "));
        expectRest();
    }
    void expectEnded(const std::string& description) {
        EXPECT_EQ(alert(1), "High | " + std::string(stampDateTime) + " | Error: " + description);
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(timesChecked(), 0);
        expectRest();
    }
    void dueTick() {
        setInterval(0, 0, 5);
        tick();
    }
};

inline const std::string shortOfC = " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]";

inline std::string inMinutes(const std::string& rating, const std::string& text) {
    return rating + " | " + stampMinutes + " | " + text;
}

}  // namespace velmora::tests
