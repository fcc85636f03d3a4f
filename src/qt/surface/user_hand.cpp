#include "qt/surface/user_hand.h"

#include "base/runtime_error.h"
#include "controls/property.h"

namespace velmora::qt {

void UserHand::does(const std::function<void()>& what) {
    if (ended_) return;
    try {
        try {
            what();
        } catch (const Refused&) {
            return;
        } catch (const std::exception&) {
            failed();
        }
    } catch (const ProgramEnd& programEnd) {
        end(programEnd.status);
    }
}

void UserHand::does(const Control& control, const std::function<void()>& what) {
    does([&] { inHandlerOf(control, what); });
}

// The box of a program that goes on waits for nobody: a check can be in progress below.
void UserHand::failed() {
    if (keepsRunning_) {
        return host_->Tell(
            survivedErrorBox([this](const std::string& path) { return hostPathOf(path); }));
    }
    failing();
    host_->MsgBox(runTimeErrorBox());
    throw ProgramEnd{1};
}

void UserHand::end(int status) {
    if (ended_) return;
    ended_ = status;
    if (whenEnded_) whenEnded_(status);
}

void UserHand::throwWhenEnded() const {
    if (ended_) throw ProgramEnd{*ended_};
}

}  // namespace velmora::qt
