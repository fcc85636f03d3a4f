#include "shell/wizard/setting_mirrors.h"

#include <optional>

#include "base/convert.h"
#include "monitor/watch_times.h"

namespace velmora {

namespace {

constexpr std::int32_t mostSeconds = 86399;

// The seconds between two checks that the text names; nothing for any other text.
std::optional<std::int32_t> intervalIn(const std::string& text, const Regional& regional) {
    const std::optional<double> seconds = readNumber(text, regional);
    if (!seconds || *seconds < 1 || *seconds > mostSeconds) return {};
    const auto whole = static_cast<std::int32_t>(*seconds);
    return whole == *seconds ? std::optional(whole) : std::nullopt;
}

DateTime withTimeOf(std::int32_t seconds, DateTime value) {
    value.hour = seconds / 3600;
    value.minute = seconds / 60 % 60;
    value.second = seconds % 60;
    return value;
}

}  // namespace

SpaceMirror::Value SpaceMirror::value() const {
    return {.percent = mine_.OpDriv[1].Value(),
            .space = mine_.txtFreeSpace.Text(),
            .individual = mine_.chkDrive.Value()};
}

void SpaceMirror::read() {
    mine_.OpDriv[theirs_.OpDriv[1].Value() ? 1 : 0].choose();
    mine_.txtFreeSpace.setText(theirs_.txtSpace.Text());
    mine_.txtFreeSpace.setEnabled(theirs_.txtSpace.Enabled());
    mine_.chkDrive.setValue(theirs_.chkDrive.Value());
    mine_.Slider1.setValue(theirs_.Slider1.Value());
    mine_.Slider1.setVisible(theirs_.Slider1.Visible());
    mine_.lblMB.setCaption(theirs_.lblMB.Caption());
    mine_.lblGB.setCaption(theirs_.lblGB.Caption());
    asRead_ = value();
}

bool SpaceMirror::touched() const {
    return value() != asRead_;
}

// The number before the switch: it becomes the value of each row.
void SpaceMirror::write() {
    const Value now = value();
    if (now.percent != asRead_.percent || now.space != asRead_.space) {
        rules_.take(
            {.unit = now.percent ? 1 : 0, .space = now.space, .slider = mine_.Slider1.Value()});
    }
    if (now.individual != asRead_.individual) rules_.takeIndividual(now.individual);
    asRead_ = now;
}

std::vector<bool> ActionsMirror::ticks() const {
    std::vector<bool> all;
    for (int i = 0; i < mine_.ListCount(); ++i) all.push_back(mine_.Selected(i));
    return all;
}

void ActionsMirror::read() {
    for (int i = 0; i < mine_.ListCount(); ++i) mine_.setSelected(i, theirs_.Selected(i));
    asRead_ = ticks();
}

bool ActionsMirror::touched() const {
    return ticks() != asRead_;
}

void ActionsMirror::write() {
    const std::vector<bool> now = ticks();
    ActionListRules::Ticks changed;
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != asRead_[i]) changed.emplace_back(static_cast<int>(i), now[i]);
    }
    rules_.take(changed);
    asRead_ = now;
}

void IntervalMirror::read() {
    asRead_ = toText(secondsOf(theirs_.DTPInterval));
    mine_.setText(asRead_);
}

void IntervalMirror::write() {
    if (!touched()) return;
    const auto seconds = intervalIn(mine_.Text(), regional_);
    if (!seconds) {
        host_.MsgBox({.text = "The time interval must be a whole number of seconds from 1 to "
                              "86399. The interval stays as it was.",
                      .icon = BoxIcon::critical});
        return;
    }
    theirs_.DTPInterval.setValue(withTimeOf(*seconds, theirs_.DTPInterval.Value()));
    theirs_.txtTime.setText(toText(*seconds));
    asRead_ = mine_.Text();
}

}  // namespace velmora
