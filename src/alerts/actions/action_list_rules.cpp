#include "alerts/actions/action_list_rules.h"

#include "alerts/actions/action_parts.h"
#include "base/scope_guard.h"

namespace velmora {

namespace {

struct Exclusion {
    int ticked;
    int other;
    const char* words;  // what the message calls the other
};

constexpr const char* moving = "Move Specified files";
constexpr const char* deleting = "Delete Specified files";
constexpr const char* recycling = "Send Specified files to Recycle Bin";

constexpr Exclusion exclusions[] = {
    {act::move, act::remove, deleting}, {act::move, act::recycle, recycling},
    {act::remove, act::move, moving},   {act::remove, act::recycle, recycling},
    {act::recycle, act::move, moving},  {act::recycle, act::remove, deleting}};

// Whether at least two rows are available: one that is short of space, and one to move to.
bool hasTwoAvailable(const ListView& list) {
    int available = 0;
    for (int i = 1; i <= list.Count() && available < 2; ++i) {
        if (ConstWatchRow(list.ListItems(i)).isAvailable()) ++available;
    }
    return available == 2;
}

}  // namespace

void ActionListRules::connect() {
    disconnect();
    connections_.emplace_back(
        fields_.lstAct.ItemCheck.connect([this](int index) { lstAct_ItemCheck(index); }));
    connections_.emplace_back(fields_.lstAct.Click.connect([this] { lstAct_Click(); }));
}

void ActionListRules::lstAct_ItemCheck(int index) {
    if (!fields_.lstAct.Selected(index)) return;
    for (const Exclusion& each : exclusions) {
        if (each.ticked == index) exclude(each.other, each.words);
    }
    if (index == act::autoMove) requireTarget();
    if (index == act::mail) offerMailSettings();
}

void ActionListRules::exclude(int other, const std::string& what) {
    ListBox& list = fields_.lstAct;
    if (!list.Selected(other)) return;
    host_.MsgBox({.text = "The '" + what + "' option will be de-selected"});
    list.setSelected(other, false);
}

void ActionListRules::requireTarget() {
    if (hasTwoAvailable(fields_.list)) return;
    host_.MsgBox({.text = "You must have two or more listed drive/path(s) that are functionally "
                          "ready to select this option."});
    fields_.lstAct.setSelected(act::autoMove, false);
}

void ActionListRules::offerMailSettings() {
    if (isAsked_) return;
    const BoxAnswer answer =
        host_.MsgBox({.text = "Please review your email settings. Open Notification Settings?",
                      .icon = BoxIcon::question,
                      .buttons = BoxButtons::yesNo});
    if (answer == BoxAnswer::yes) frmNotify_.Show();
}

void ActionListRules::lstAct_Click() {
    const bool moves = fields_.lstAct.Selected(act::move);
    fields_.txtDrive.setEnabled(moves);
    // When both are ticked in spite of the rules above, moving stays ticked.
    if (moves) fields_.lstAct.setSelected(act::remove, false);
}

void ActionListRules::take(const Ticks& ticks) {
    const ScopeGuard askAgain([this] { isAsked_ = false; });
    isAsked_ = true;
    for (const bool order : {false, true}) {
        for (const auto& [index, ticked] : ticks) {
            if (ticked != order || fields_.lstAct.Selected(index) == ticked) continue;
            fields_.lstAct.setSelected(index, ticked);
            fields_.lstAct.Click();
        }
    }
}

}  // namespace velmora
