#include "app/console_program.h"

#include <string>
#include <string_view>

#include "app/core.h"
#include "app/start.h"
#include "console/commands.h"
#include "console/console_host.h"
#include "console/console_notify_area.h"
#include "console/console_surface.h"
#include "console/event_report.h"
#include "console/line_reader.h"
#include "console/output.h"
#include "console/reports.h"

namespace velmora {

namespace {

constexpr const char* greeting =
    "Velmora console. Type help for the commands, wait forever to keep watch.\n";
constexpr const char* usage =
    "Nothing to read: give commands on the standard input, one a line, for example\n"
    "    printf 'rows ListView1\\n' | velmora-console\n"
    "or start velmora-console in a terminal and type help.\n";

// Editors and shells on Windows put one in front of the first line.
void dropByteOrderMark(std::string& line) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (line.starts_with(mark)) line.erase(0, mark.size());
}

void obey(std::istream& input, console::Output& output, console::Commands& commands,
          std::ostream& stream) {
    std::string line;
    bool any = false;
    for (;;) {
        output.flush();
        const console::LineRead read = console::readLine(input, line);
        if (read == console::LineRead::end) break;
        if (!any) dropByteOrderMark(line);
        any = true;
        if (read == console::LineRead::tooLong) {
            output.error("a line may be 1 MB long");
        } else {
            commands.run(line);
        }
    }
    if (!any) stream << usage;
    output.flush();
}

// A start that fails ends the program, also one that is to keep running: there is nothing yet that
// could go on. Timers can fire during the start: an error of theirs is not one of the start.
void start(Core& core, Machine& machine, console::ConsoleHost& host) {
    if (!machine.platform().otherStarts.holdFolder()) {
        host.Note("Another watch runs on this folder: " +
                  machine.toHostPath(machine.platform().app.Path));
    }
    if (machine.platform().app.Options.keepRunning) {
        host.keepRunning([&machine](const std::string& path) { return machine.toHostPath(path); });
    }
    try {
        startProgram(core, machine, host);
    } catch (const std::exception&) {
        host.MsgBox(runTimeErrorBox());
        noteSettingsFailure(core, machine, [&host](const std::string& line) { host.Note(line); });
        throw ProgramEnd{1};
    }
}

}  // namespace

int runConsole(Machine& machine, std::istream& input, std::ostream& stream,
               const console::Waiting::Sleep& sleep) {
    Platform& platform = machine.platform();
    Forms forms;
    TimerQueue timers([&platform] { return platform.clock.GetTickCount(); });
    addTimers(forms, timers);

    console::Output output(stream);
    console::LaterCommands later(platform.clock);
    console::ConsoleHost host(output, timers, later);
    console::ConsoleNotifyArea notifyArea(output);
    console::ConsoleUser32 user32;
    console::ConsoleShellIcons shellIcons;
    console::ConsoleWorkArea workArea;
    Core core(forms, platform, {host, notifyArea, user32, shellIcons, workArea});
    console::Waiting waiting(host, timers, later, platform.clock, output, sleep);
    const console::EventReport report(core.alerts().Raised, forms.form1.StatusBar1,
                                      forms.frmNotify.StatusTxt, output, waiting);
    const ScopedConnection hints = forms.hints.Said.connect([&output, &host](const Hint& hint) {
        output.hint(hint.field, hint.text, hint.endsStart);
        host.Note(hint.text);
    });
    console::Reports reports(core.notify().inventory(), core.notify().content(), platform, forms);
    console::Commands commands(
        forms, host, output, waiting, later, reports,
        [&machine](const std::string& path) { return machine.toDrivePath(path); });
    later.setRun([&commands](const std::string& line) { commands.run(line); });

    int status = 0;
    try {
        stream << greeting;
        output.flush();
        start(core, machine, host);
        obey(input, output, commands, stream);
    } catch (const ProgramEnd& end) {
        status = end.status;
    }
    stream.flush();
    return status;
}

}  // namespace velmora
