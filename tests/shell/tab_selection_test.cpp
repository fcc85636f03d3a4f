// The two tab strips.
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

constexpr const char* specified = "Specified Options (Files, Paths...)";

int onlyVisible(const auto& panels) {
    int shown = -1;
    for (const Frame& panel : panels) {
        if (!panel.Visible()) continue;
        if (shown != -1) return -2;
        shown = panel.Index();
    }
    return shown;
}

TEST(TabSelection, EachTabShowsOnlyItsPanelAndTheThirdAndFourthAreSwapped) {
    const int panels[] = {0, 1, 3, 2, 4};
    for (int tab = 0; tab < 5; ++tab) {
        CommandRig rig;
        rig.form1.lblTab[tab].Click();
        EXPECT_EQ(onlyVisible(rig.form1.frmSp), panels[tab]) << tab;
    }
}

TEST(TabSelection, AlertsAndLogShowsPanel3AndConfigPanel2) {
    CommandRig rig;
    ASSERT_EQ(rig.form1.lblTab[2].Caption(), "Alerts/Log");
    rig.form1.lblTab[2].userClick();
    EXPECT_EQ(onlyVisible(rig.form1.frmSp), 3);
    ASSERT_EQ(rig.form1.lblTab[3].Caption(), "Config.");
    rig.form1.lblTab[3].userClick();
    EXPECT_EQ(onlyVisible(rig.form1.frmSp), 2);
}

TEST(TabSelection, TheHeadingIsTheTabsToolTip) {
    const char* headings[] = {specified, "Program Options (Program pre-set actions/behaviors)",
                              "Program Alert Logs", "Configurations (Program UI Settings)",
                              specified};
    CommandRig rig;
    for (int tab = 0; tab < 5; ++tab) {
        rig.form1.lblTab[tab].Click();
        EXPECT_EQ(rig.form1.lblTabCap.Caption(), headings[tab]) << tab;
    }
}

TEST(TabSelection, TheSelectedTabIsHighlightedAndAllOthersAreNot) {
    CommandRig rig;
    rig.tabs.lblTab_Click(1);
    rig.tabs.lblTab_Click(4);
    for (const Label& label : rig.form1.lblTab) {
        const bool selected = label.Index() == 4;
        EXPECT_EQ(label.ForeColor(), selected ? 0x80000012u : 0xC0C0C0u) << label.Index();
        EXPECT_EQ(label.BackColor(), selected ? 0x80000005u : 0x400000u) << label.Index();
    }
}

TEST(TabSelection, OneTabOfEachStripIsSelected) {
    CommandRig rig;
    for (int tab = 0; tab < 5; ++tab) {
        rig.tabs.lblTab_Click(tab);
        for (const Label& label : rig.form1.lblTab) {
            EXPECT_EQ(isSelectedTab(label), label.Index() == tab) << tab;
        }
    }
    for (int tab = 0; tab < 3; ++tab) {
        rig.tabs.lblSpectab_Click(tab);
        for (const Label& label : rig.form1.lblSpectab) {
            EXPECT_EQ(isSelectedInnerTab(label), label.Index() == tab) << tab;
        }
    }
}

TEST(TabSelection, ThePanelGetsTheWindowsColourAndItsPlaceBeforeTheResizeStep) {
    CommandRig rig;
    Frame& panel = rig.form1.frmSp[1];
    panel.setBounds({1, 2, 3, 4});
    std::vector<Bounds> places;
    panel.Changed.connect([&] {
        if (places.empty() || places.back() != panel.bounds()) places.push_back(panel.bounds());
    });
    rig.tabs.lblTab_Click(1);
    EXPECT_EQ(panel.BackColor(), 0x80000005u);
    ASSERT_EQ(places.size(), 3u);
    EXPECT_EQ(places[1], (Bounds{1320, 3240, 6615, 4935}));
    EXPECT_EQ(panel.bounds().Left, 1320);
    EXPECT_EQ(panel.bounds().Top, 3240);
    EXPECT_EQ(panel.bounds().Width, 9000 - 1320 - 255 - 200);
    EXPECT_EQ(panel.bounds().Height, 9100 - 4200);
}

TEST(TabSelection, InTheCompactViewThePanelKeepsTheHeightOfItsPlace) {
    CommandRig rig;
    rig.layout.toggleView();
    rig.tabs.lblTab_Click(1);
    EXPECT_EQ(rig.height(rig.form1.frmSp[1]), 4935);
}

TEST(TabSelection, TheResizeStepFollows) {
    CommandRig rig;
    rig.form1.Command6.setBounds({});
    rig.tabs.lblTab_Click(0);
    EXPECT_EQ(rig.form1.Command6.bounds().Left, 9000 - 600);
}

TEST(TabSelection, Index5OpensTheMailSettingsOverTheOverview) {
    CommandRig rig;
    rig.tabs.lblTab_Click(0);
    rig.tabs.lblTab_Click(5);
    EXPECT_TRUE(rig.forms.frmNotify.Visible());
    EXPECT_EQ(onlyVisible(rig.form1.frmSp), 4);
    EXPECT_EQ(rig.form1.lblTabCap.Caption(), specified);
    for (const Label& label : rig.form1.lblTab) EXPECT_EQ(label.BackColor(), 0x400000u);
}

TEST(TabSelection, NoOtherTabOpensTheMailSettings) {
    CommandRig rig;
    for (int tab = 0; tab < 5; ++tab) rig.tabs.lblTab_Click(tab);
    EXPECT_FALSE(rig.forms.frmNotify.Visible());
}

TEST(TabSelection, AnIndexWithoutAPanelShowsNoneAndStillFollowsTheWindow) {
    for (const int index : {-1, 6}) {
        CommandRig rig;
        rig.tabs.lblTab_Click(1);
        rig.form1.Command6.setBounds({});
        rig.tabs.lblTab_Click(index);
        EXPECT_EQ(onlyVisible(rig.form1.frmSp), -1);
        EXPECT_EQ(rig.form1.lblTab[1].BackColor(), 0x400000u);
        EXPECT_EQ(rig.form1.Command6.bounds().Left, 9000 - 600);
    }
}

TEST(TabSelection, ATabBrightensWhileItIsPressed) {
    CommandRig rig;
    for (Label& label : rig.form1.lblTab) {
        label.MouseDown();
        EXPECT_EQ(label.ForeColor(), 0xFFFFFFu);
        label.MouseUp();
        EXPECT_EQ(label.ForeColor(), 0xC0C0C0u);
    }
}

TEST(TabSelection, AWholeClickEndsInTheSelectedLook) {
    CommandRig rig;
    rig.form1.lblTab[2].userClick();
    EXPECT_EQ(rig.form1.lblTab[2].ForeColor(), 0x80000012u);
}

TEST(TabSelection, AnInnerTabShowsOnlyItsPanelInItsOwnColours) {
    for (int tab = 0; tab < 3; ++tab) {
        CommandRig rig;
        rig.form1.lblSpectab[(tab + 1) % 3].Click();
        rig.form1.lblSpectab[tab].Click();
        EXPECT_EQ(onlyVisible(rig.form1.fr), tab);
        for (const Label& label : rig.form1.lblSpectab) {
            const bool selected = label.Index() == tab;
            EXPECT_EQ(label.ForeColor(), selected ? 0x80000005u : 0x400000u);
            EXPECT_EQ(label.BackColor(), selected ? 0x400000u : 0xE0E0E0u);
        }
    }
}

TEST(TabSelection, AnInnerTabLeavesTheMainStripAndTheLayoutAlone) {
    CommandRig rig;
    rig.tabs.lblTab_Click(2);
    rig.form1.Command6.setBounds({});
    rig.tabs.lblSpectab_Click(1);
    EXPECT_EQ(onlyVisible(rig.form1.frmSp), 3);
    EXPECT_EQ(rig.form1.lblTabCap.Caption(), "Program Alert Logs");
    EXPECT_EQ(rig.form1.Command6.bounds().Left, 0);
}

TEST(TabSelection, AnInnerIndexWithoutALabelShowsNoPanel) {
    for (const int index : {-1, 3}) {
        CommandRig rig;
        rig.tabs.lblSpectab_Click(index);
        EXPECT_EQ(onlyVisible(rig.form1.fr), -1);
    }
}

TEST(TabSelection, IsReachedThroughTheLabelsEvents) {
    CommandRig rig;
    rig.form1.lblTab[3].Click();
    rig.form1.lblSpectab[2].Click();
    EXPECT_EQ(onlyVisible(rig.form1.frmSp), 2);
    EXPECT_EQ(onlyVisible(rig.form1.fr), 2);
}

}  // namespace
}  // namespace velmora::tests
