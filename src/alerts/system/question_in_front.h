// Questions that a window which stays on top must not hide.
#pragma once

#include "alerts/ports.h"
#include "base/scope_guard.h"
#include "platform/host.h"

namespace velmora {

/// Asks while staying on top is switched off. It is switched on again even after an error.
inline BoxAnswer askInFront(StayOnTop& stayOnTop, Host& host, const Box& question) {
    ScopeGuard afterFailure([&] { stayOnTop.restore(); });
    stayOnTop.drop();
    const BoxAnswer answer = host.MsgBox(question);
    afterFailure.dismiss();
    stayOnTop.restore();
    return answer;
}

}  // namespace velmora
