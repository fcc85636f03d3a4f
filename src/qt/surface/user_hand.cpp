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
            host_->MsgBox(runTimeErrorBox());
            throw ProgramEnd{1};
        }
    } catch (const ProgramEnd& programEnd) {
        end(programEnd.status);
    }
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
