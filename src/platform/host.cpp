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

namespace {

std::string textOf(const RuntimeError& failure) {
    return "Run-time error '" + std::to_string(failure.number()) + "':\r\n" + failure.description();
}

// The step in words, with the handler that it was part of; the handler alone where nobody said
// more.
std::string triedIn(const RuntimeError& failure) {
    if (failure.tried().empty()) return failure.handler();
    return failure.handler().empty() ? failure.tried()
                                     : failure.tried() + " (" + failure.handler() + ")";
}

}  // namespace

Box runTimeErrorBox() {
    return {.text = textOf(currentRuntimeError()), .icon = BoxIcon::critical};
}

Box survivedErrorBox(const std::function<std::string(const std::string&)>& toHostPath) {
    const RuntimeError failure = currentRuntimeError();
    std::string text = textOf(failure) + "\r\n";
    if (const std::string tried = triedIn(failure); !tried.empty()) {
        text += "\r\nTried: " + tried;
    }
    if (!failure.file().empty()) text += "\r\nFile: " + toHostPath(failure.file());
    return {.text = text + "\r\nThe watch goes on.", .icon = BoxIcon::critical};
}

}  // namespace velmora
