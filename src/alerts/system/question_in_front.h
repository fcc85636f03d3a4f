// Questions that a window which stays on top must not hide.
#pragma once

#include "alerts/ports.h"
#include "base/resume_next.h"
#include "platform/host.h"

namespace velmora {

/// Asks with the window's staying on top switched off meanwhile. It is put back whatever happens.
inline BoxAnswer askInFront(StayOnTop& stayOnTop, Host& host, const Box& question) {
    stayOnTop.drop();
    BoxAnswer answer{};
    try {
        answer = host.MsgBox(question);
    } catch (...) {
        // What ended the question is told, not what may become of this.
        resumeNext([&] { stayOnTop.restore(); });
        throw;
    }
    stayOnTop.restore();
    return answer;
}

}  // namespace velmora
