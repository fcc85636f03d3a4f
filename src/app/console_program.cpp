#include "app/console_program.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/core.h"
#include "app/metrics_file.h"
#include "app/option_answers.h"
#include "app/service_notice.h"
#include "app/start.h"
#include "console/commands.h"
#include "console/completion.h"
#include "console/console_host.h"
#include "console/console_notify_area.h"
#include "console/console_surface.h"
#include "console/event_report.h"
#include "console/line_reader.h"
#include "console/output.h"
#include "console/reports.h"
#include "monitor/watch_summary.h"

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

using ReadLine = std::function<console::LineRead(std::string& line)>;

ReadLine linesOf(std::istream& input) {
    return [&input](std::string& line) { return console::readLine(input, line); };
}

// None once the end is asked for.
ReadLine endedBy(const std::function<bool()>& isEndRequested, ReadLine readLine) {
    return [&isEndRequested, readLine = std::move(readLine)](std::string& line) {
        return isEndRequested() ? console::LineRead::end : readLine(line);
    };
}

// What a user types, with the help of an editor where there is one.
ReadLine typedLines(const ConsoleStreams& streams, Forms& forms) {
    if (!streams.editor) return linesOf(streams.input);
    return [&editor = streams.editor, &forms](std::string& line) {
        return editor(
            line, [&forms](std::string_view text) { return console::completionsOf(forms, text); });
    };
}

ReadLine scriptLines(std::istream& script, const ConsoleStreams& streams,
                     const StartOptions& options) {
    return options.watch ? endedBy(streams.isEndRequested, linesOf(script)) : linesOf(script);
}

// Returns whether there was anything to read.
bool obey(const ReadLine& readLine, console::Output& output, console::Commands& commands) {
    std::string line;
    bool any = false;
    for (;;) {
        output.flush();
        const console::LineRead read = readLine(line);
        if (read == console::LineRead::end) return any;
        if (!any) dropByteOrderMark(line);
        any = true;
        if (read == console::LineRead::tooLong) {
            output.error("a line may be 1 MB long");
        } else {
            commands.run(line);
        }
    }
}

// The path as it was typed, in UTF-8.
std::ifstream openScript(const std::string& path) {
    const std::filesystem::path name(std::u8string(path.begin(), path.end()));
    std::ifstream script(name, std::ios::binary);
    std::error_code unknown;
    // On some systems a folder can be opened.
    if (std::filesystem::is_directory(name, unknown)) script.setstate(std::ios::failbit);
    return script;
}

// As the user who exits and confirms it: the settings and the log are treated as told.
[[noreturn]] void endByRequest(console::ConsoleHost& host, Forms& forms) {
    host.answerOnly(BoxAnswer::ok);
    host.guarded([&forms] {
        try {
            forms.form1.mnuExit.userClick();
        } catch (const Refused&) {
            return;
        }
    });
    // A lock keeps the window open; who ends the process isn't kept.
    throw ProgramEnd{0};
}

// A start that fails ends the program, also one that is to keep running: there is nothing yet that
// could go on. Timers can fire during the start: an error of theirs is not one of the start.
void start(Core& core, Machine& machine, console::ConsoleHost& host) {
    if (!machine.platform().otherStarts.holdFolder()) {
        host.Note("Another watch runs on this folder: " +
                  machine.toHostPath(machine.platform().app.DataPath));
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

// For the service manager: "1 of 2 short of space: D:\".
std::string statusOf(const Forms& forms, const Regional& regional) {
    const WatchSummary summary = summaryOf(forms, regional);
    return summary.paths.empty() ? summary.text : summary.text + ": " + summary.paths;
}

}  // namespace

int runConsole(Machine& machine, const ConsoleStreams& streams) {
    Platform& platform = machine.platform();
    const StartOptions& options = platform.app.Options;
    std::ostream& stream = streams.output;
    std::ifstream script;
    if (!options.script.empty()) {
        script = openScript(options.script);
        if (!script) {
            std::cerr << "velmora-console: the script can't be read: " << options.script << '\n';
            return exit_status::wrongOptions;
        }
    }
    Forms forms;
    TimerQueue timers([&platform] { return platform.clock.GetTickCount(); });
    addTimers(forms, timers);

    console::Output output(stream);
    output.setJson(options.json);
    if (options.keepRunning) output.keepRunning(streams.isReaderGone);
    console::LaterCommands later(platform.clock);
    console::ConsoleHost host(output, timers, later);
    console::ConsoleNotifyArea notifyArea(output);
    console::ConsoleUser32 user32;
    console::ConsoleShellIcons shellIcons;
    console::ConsoleWorkArea workArea;
    Core core(forms, platform, {host, notifyArea, user32, shellIcons, workArea});
    console::Waiting waiting(host, timers, later, platform.clock, output, streams.sleep);
    if (options.watch) {
        waiting.endWith(streams.isEndRequested);
        waiting.setLongestNap(streams.longestSleep);
    }
    const console::EventReport report(core.alerts().Raised, forms.form1.StatusBar1,
                                      forms.frmNotify.StatusTxt, output, waiting);
    const ScopedConnection hints = forms.hints.Said.connect([&output, &host](const Hint& hint) {
        output.hint(hint.field, hint.text, hint.endsStart);
        host.Note(hint.text);
    });
    const MetricsFile metrics(core, forms, platform);
    console::Reports reports(core.notify().inventory(), core.notify().content(), platform, forms);
    console::Commands commands(
        forms, host, output, waiting, later, reports,
        {.toDrivePath = [&machine](const std::string& path) { return machine.toDrivePath(path); },
         .RefreshDrive = [&core] { core.watchList().RefreshDrive(); }});
    later.setRun([&commands](const std::string& line) { commands.run(line); });

    ServiceNotice service(
        options.watch ? streams.manager : ServiceManager{}, platform.clock,
        [&] { return statusOf(forms, platform.regional); }, streams.isEndRequested);
    waiting.wakeFor([&service] { return service.untilNext(); });

    int status = 0;
    try {
        if (!options.json && !options.watch && options.script.empty()) stream << greeting;
        output.flush();
        start(core, machine, host);
        const bool isScript = !options.script.empty();
        if (isScript) obey(scriptLines(script, streams, options), output, commands);
        if (options.watch) {
            service.ready();
            waiting.forever();
            service.stopping();
            endByRequest(host, forms);
        }
        const bool isAnswered = isScript || obey(typedLines(streams, forms), output, commands);
        if (!isAnswered && !options.json) stream << usage;
        output.flush();
    } catch (const ProgramEnd& end) {
        status = end.status;
    }
    const bool hasFailed = !options.script.empty() && output.errors() > 0;
    if (hasFailed && status == 0) status = exit_status::failedCommand;
    stream.flush();
    return status;
}

}  // namespace velmora
