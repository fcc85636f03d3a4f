#include "shell/wizard/proposals.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"

namespace velmora {

namespace {

// Nobody's work: programs leave them behind.
constexpr const char* leftovers = ".tmp|.bak|.old|.log|.dmp";
constexpr const char* media = "|.avi|.mpg|.wmv|.mp4|.mkv|.mp3|.wav";
// Saved pages, which can be had again. Programs keep data of their own in xml files.
constexpr const char* pages = "|.htm|.html|.swf";

// By the places in cboSpeed.
constexpr std::array<int, connection_speed::entries.size()> intervals{60, 45, 30};

}  // namespace

std::string proposedTypes(bool usesMedia, bool usesInternet) {
    std::string types = leftovers;
    if (!usesMedia) types += media;
    if (!usesInternet) types += pages;
    return types;
}

int proposedInterval(int speed) {
    if (speed < 0 || speed >= static_cast<int>(intervals.size())) {
        throw RuntimeError(error::subscriptOutOfRange);
    }
    return intervals[static_cast<std::size_t>(speed)];
}

void Proposal::make(const std::string& value, const std::string& reason) {
    if (!isMade_) before_ = field_.Text();
    isMade_ = true;
    field_.setText(value);
    reason_.setCaption(reason);
}

void Proposal::withdraw() {
    if (!isMade_) return;
    isMade_ = false;
    field_.setText(before_);
    reason_.setCaption("");
}

Proposals::Proposals(FrmWizard& form)
    : form_(form),
      types_(form.txtFileType, form.lblFileProposal),
      interval_(form.txtTime, form.lblSpeedProposal) {
    for (CheckBox& kind : form_.chkFileKind) kind.Click.connect([this] { answerKinds(); });
    form_.cboSpeed.Click.connect([this] { answerSpeed(); });
    form_.cboSpeed.Change.connect([this] { answerSpeed(); });
}

void Proposals::begin() {
    for (CheckBox& kind : form_.chkFileKind) kind.setValue(0);
    form_.cboSpeed.setListIndex(-1);
}

void Proposals::answerKinds() {
    const auto& kinds = form_.chkFileKind;
    if (std::none_of(kinds.begin(), kinds.end(), [](const auto& kind) { return kind.ticked(); })) {
        return types_.withdraw();
    }
    types_.make(
        proposedTypes(kinds[file_kind::media].ticked(), kinds[file_kind::internet].ticked()),
        "Proposed: types of files that can be spared. What you use often is left out, and "
        "documents and databases always are. The list is kept; no action goes by it yet.");
}

void Proposals::answerSpeed() {
    const int speed = form_.cboSpeed.ListIndex();
    if (speed < 0) return interval_.withdraw();
    const std::string seconds = std::to_string(proposedInterval(speed));
    interval_.make(seconds, "Proposed: a check every " + seconds +
                                " seconds. Over a slow connection a share takes longer to answer.");
}

}  // namespace velmora
