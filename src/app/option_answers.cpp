#include "app/option_answers.h"

namespace velmora {

namespace {

constexpr const char* windowUsage = R"(Usage: velmora [OPTION...] [PATH...]

Velmora watches the free space of drives, shares and folders, and acts before a disk is full.
Each PATH joins the specified files.

  --keep-running      an error is told, and the watch goes on
  --single            a program that runs already takes the paths and comes to the front
  --minimized         begin minimised
  --settings FOLDER   keep settings and log in this folder; where it has none, they begin anew
  --metrics-file FILE write the figures of the watch after each check, as OpenMetrics text
  --restore-settings  begin with the last settings that the program could start with
  --help              print this and end
  --version           print the version and end

Options stand in front of the first path; everything else is a path.
)";

constexpr const char* consoleUsage = R"(Usage: velmora-console [OPTION...] [PATH...]

Velmora watches the free space of drives, shares and folders, and acts before a disk is full.
Commands are read from the standard input, one a line; "help" lists them. Each PATH joins the
specified files.

  --watch             watch until the program is ended by a signal; no commands are read
  --script FILE       read the commands from a file; with --watch, watch after them
  --json              begin with replies and events as JSON
  --settings FOLDER   keep settings and log in this folder; where it has none, they begin anew
  --metrics-file FILE write the figures of the watch after each check, as OpenMetrics text
  --keep-running      an error is told, and the watch goes on
  --restore-settings  begin with the last settings that the program could start with
  --help              print this and end
  --version           print the version and end

Exit status: 0 at the end of the input, after "exit" and after a signal under --watch; 1 after a
run-time error; 2 for wrong options; 3 when a command of a script failed.
Options stand in front of the first path; everything else is a path.
)";

}  // namespace

const char* nameOf(ProgramKind kind) {
    return kind == ProgramKind::window ? "velmora" : "velmora-console";
}

std::optional<int> answerOptions(const StartOptions& options, ProgramKind kind,
                                 std::ostream& output, std::ostream& errors) {
    if (!options.fault.empty()) {
        errors << nameOf(kind) << ": " << options.fault << " --help tells more.\n";
        return exit_status::wrongOptions;
    }
    if (options.help) {
        output << (kind == ProgramKind::window ? windowUsage : consoleUsage);
        return 0;
    }
    if (options.version) {
        output << nameOf(kind) << " " << VELMORA_VERSION << '\n';
        return 0;
    }
    return std::nullopt;
}

}  // namespace velmora
