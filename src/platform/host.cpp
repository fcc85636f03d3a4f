#include "platform/host.h"

#include "base/runtime_error.h"

namespace velmora {

SeriesAnswer Host::MsgBoxOfSeries(const Box& box, const std::string& /*offer*/) {
    return {.answer = MsgBox(box)};
}

BoxAnswer cancellingAnswer(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel:
        case BoxButtons::yesNoCancel:
            return BoxAnswer::cancel;
        case BoxButtons::yesNo:
            return BoxAnswer::no;
        case BoxButtons::ok:
            break;
    }
    return BoxAnswer::ok;
}

Box runTimeErrorBox() {
    const RuntimeError failure = currentRuntimeError();
    return {.text = "Run-time error '" + std::to_string(failure.number()) + "':\r\n" +
                    failure.description(),
            .icon = BoxIcon::critical};
}

}  // namespace velmora
