// Questions that a window which stays on top must not hide.
#pragma once

#include "alerts/ports.h"
#include "base/scope_guard.h"
#include "platform/host.h"

namespace velmora {

/// Asks while staying on top is switched off. It is switched on again even after an error.
template <typename Ask>
auto askInFront(StayOnTop& stayOnTop, const Ask& ask) {
    ScopeGuard afterFailure([&] { stayOnTop.restore(); });
    stayOnTop.drop();
    const auto answer = ask();
    afterFailure.dismiss();
    stayOnTop.restore();
    return answer;
}

inline BoxAnswer askInFront(StayOnTop& stayOnTop, Host& host, const Box& question) {
    return askInFront(stayOnTop, [&] { return host.MsgBox(question); });
}

}  // namespace velmora
