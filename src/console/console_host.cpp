#include "console/console_host.h"

namespace velmora::console {

namespace {

bool offers(BoxButtons buttons, BoxAnswer answer) {
    switch (buttons) {
        case BoxButtons::okCancel:
            return answer == BoxAnswer::ok || answer == BoxAnswer::cancel;
        case BoxButtons::yesNo:
            return answer == BoxAnswer::yes || answer == BoxAnswer::no;
        case BoxButtons::ok:
            break;
    }
    return false;
}

}  // namespace

BoxAnswer ConsoleHost::MsgBox(const Box& box) {
    BoxAnswer answer = cancellingAnswer(box.buttons);
    if (!answers_.empty() && offers(box.buttons, answers_.front())) {
        answer = answers_.front();
        answers_.pop_front();
    }
    output_.box(box, answer);
    return answer;
}

std::string ConsoleHost::nextText() {
    if (texts_.empty()) return {};
    std::string text = std::move(texts_.front());
    texts_.pop_front();
    return text;
}

std::string ConsoleHost::BrowseForFolder(const std::string&) {
    return nextText();
}

std::string ConsoleHost::OpenFileDialog(const std::string&, const std::string&) {
    return nextText();
}

void ConsoleHost::DoEvents() {
    fireTimers();
}

void ConsoleHost::fireTimers() {
    guarded([this] { timers_.fireDue(); });
}

void ConsoleHost::guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception&) {
        endByRuntimeError();
    }
}

void ConsoleHost::endByRuntimeError() {
    MsgBox(runTimeErrorBox());
    throw ProgramEnd{1};
}

}  // namespace velmora::console
