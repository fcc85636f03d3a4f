#include "console/console_host.h"

#include <iostream>

#include "base/text.h"
#include "console/words.h"
#include "platform/work_steps.h"

namespace velmora::console {

namespace {

bool offers(BoxButtons buttons, BoxAnswer answer) {
    switch (buttons) {
        case BoxButtons::okCancel:
            return answer == BoxAnswer::ok || answer == BoxAnswer::cancel;
        case BoxButtons::yesNo:
            return answer == BoxAnswer::yes || answer == BoxAnswer::no;
        case BoxButtons::yesNoCancel:
            return answer != BoxAnswer::ok;
        case BoxButtons::ok:
            break;
    }
    return false;
}

// "Run-time error '61': Disk full. Tried: ..." out of the lines of a box.
std::string oneLineOf(const std::string& text) {
    std::string line;
    for (const std::string& each : split(text, lineEnd)) {
        if (each.empty()) continue;
        if (!line.empty()) line += line.ends_with(':') || line.ends_with('.') ? " " : ". ";
        line += each;
    }
    return line;
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

void ConsoleHost::Tell(const Box& box) {
    output_.box(box, cancellingAnswer(box.buttons));
    Note(oneLineOf(box.text));
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

// When one file is to be chosen, the first of several is taken.
std::string ConsoleHost::OpenFileDialog(const FileDialog& dialog) {
    std::string chosen = nextText();
    const auto end = chosen.find('\0');
    const bool takesAll = (dialog.Flags & file_dialog::allowMultiselect) != 0;
    if (takesAll || end == std::string::npos) return chosen;
    const auto next = chosen.find('\0', end + 1);
    return chosen.substr(0, end) + '\\' + chosen.substr(end + 1, next - end - 1);
}

void ConsoleHost::Beep() {
    output_.shell("Beep", {});
}

void ConsoleHost::Note(const std::string& text) {
    // One line that a full disk didn't take must not be the last.
    std::cerr.clear();
    std::cerr << readable(text) << '\n';
}

void ConsoleHost::DoEvents() {
    DoEventsRan();
}

bool ConsoleHost::DoEventsRan() {
    bool ran = fireTimers();
    guarded([&] { ran = later_.yielded() || ran; });
    return ran;
}

bool ConsoleHost::fireTimers() {
    noteWorkStep();
    bool ran = true;  // unless nothing did: an error is one of something that ran
    guarded([&] {
        const bool fired = timers_.fireDue() > 0;
        ran = later_.runDue() || fired;
    });
    if (ran) noteWorkStep();
    return ran;
}

void ConsoleHost::failed() {
    if (!toHostPath_) endByRuntimeError();
    Tell(survivedErrorBox(toHostPath_));
}

void ConsoleHost::endByRuntimeError() {
    MsgBox(runTimeErrorBox());
    throw ProgramEnd{1};
}

}  // namespace velmora::console
