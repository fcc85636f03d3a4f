#include "app/window_program.h"

#include <iostream>

#include "app/start.h"

namespace velmora {

namespace {

// Milliseconds after the last of many small moves.
constexpr int untilPlacesAreKept = 1000;

}  // namespace

WindowProgram::WindowProgram(Machine& machine, std::function<void(int)> ended,
                             std::unique_ptr<qt::PrintSystem> printers)
    : machine_(machine),
      host_(machine, hand_, names_),
      user32_(names_),
      shellIcons_(machine),
      notifyArea_([this](const std::string& form, int message) { answerIcon(form, message); }),
      timers_(
          forms_, [&clock = machine.platform().clock] { return clock.GetTickCount(); }, hand_),
      printing_(std::move(printers), host_, hand_,
                [&clock = machine.platform().clock] { return clock.Now(); }),
      core_(forms_, machine.platform(), {host_, notifyArea_, user32_, shellIcons_, workArea_}),
      firstSteps_(forms_.form1, machine.platform().userState),
      metrics_(core_, forms_, machine.platform()),
      places_(forms_, machine.platform().userState),
      windows_(forms_, shellIcons_, user32_, hand_, names_, printing_) {
    hand_.setHost(host_);
    hand_.setPaths([&machine](const std::string& path) { return machine.toDrivePath(path); },
                   [&machine](const std::string& path) { return machine.toHostPath(path); });
    hand_.setRegional(machine.platform().regional);
    hand_.whenEnded([this, ended = std::move(ended)](int status) {
        places_.keep();
        ended(status);
    });
    keepPlacesSoon();
}

// A move of a window by hand is many moves.
void WindowProgram::keepPlacesSoon() {
    keepPlaces_.setSingleShot(true);
    keepPlaces_.setInterval(untilPlacesAreKept);
    QObject::connect(&keepPlaces_, &QTimer::timeout, &keepPlaces_, [this] { places_.keep(); });
    for (Form* form : places_.windows()) {
        placesChanged_.emplace_back(form->Changed.connect([this] { keepPlaces_.start(); }));
    }
}

// Timers can fire during the start: an error of theirs is not one of the start.
void WindowProgram::load() {
    if (machine_.platform().app.Options.keepRunning) hand_.keepRunning();
    hand_.does([this] {
        start();
        places_.afterStart();
    });
    if (machine_.platform().app.Options.minimized) minimiseOnceShown();
}

// Its first showing brings the window in front.
void WindowProgram::minimiseOnceShown() {
    QTimer::singleShot(0, &keepPlaces_, [this] {
        hand_.does([this] { forms_.form1.setState(WindowState::minimised); });
    });
}

// A start that fails ends the program, also one that is to keep running: there is nothing yet that
// could go on.
void WindowProgram::start() {
    try {
        startProgram(core_, machine_, host_);
    } catch (const std::exception&) {
        hand_.failing();
        host_.MsgBox(runTimeErrorBox());
        noteSettingsFailure(core_, machine_,
                            [](const std::string& line) { std::cerr << line << '\n'; });
        offerSettings();
        throw ProgramEnd{1};
    }
}

void WindowProgram::take(const std::string& forOthers) {
    hand_.does([&] { core_.secondStart().take(machine_.toCommand(forOthers)); });
}

void WindowProgram::offerSettings() {
    const auto why = whySettingsFailed(core_, machine_);
    if (!why) return;
    if (!core_.persist().recovery().hasCopy()) {
        host_.MsgBox({.text = *why});
        return;
    }
    const Box question{.text = *why + "\r\n\r\nPut them back and start again?",
                       .buttons = BoxButtons::yesNo};
    if (host_.MsgBox(question) != BoxAnswer::yes) return;
    try {
        const Restored restored = restoreSettings(core_, machine_);
        if (!restored.isDone) {
            host_.MsgBox({.text = restored.text});
            return;
        }
    } catch (const std::exception&) {
        host_.MsgBox(runTimeErrorBox());
        return;
    }
    if (startAgain_) startAgain_();
}

// An icon reports a message as the pointer's place over its form, in twips.
void WindowProgram::answerIcon(const std::string& form, int message) {
    Form* owner = forms_.find(form);
    if (owner == nullptr) return;
    hand_.does([&] { owner->MouseMove(static_cast<float>(message * twipsPerPixel)); });
}

}  // namespace velmora
