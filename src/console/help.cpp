#include "console/commands.h"

#include "base/text.h"

namespace velmora::console {

const char* helpText() {
    return R"(get [FORM.]CONTROL[(INDEX)][.PROPERTY]    print a value; the form is Form1 unless named
set [FORM.]CONTROL[(INDEX)].PROPERTY VALUE    set it as the user's hand would
click CONTROL[(INDEX)]        click; a spinner: click CONTROL.Up or CONTROL.Down
doubleclick CONTROL           double-click it; a list: its selected row
doubleclick LIST row N        double-click this row
menu NAME                     choose a menu entry
tick LIST INDEX on|off        tick an entry of a check list (from 0) or a row (from 1)
tick LIST "PATH" on|off       tick the row of this path
select LIST INDEX... | none   select rows
rows LIST                     print the rows
row LIST N                    print one row with its tags, keys and icons
fields [PATTERN]              list the fields by name, value and words: fields mail, fields *Time*
status                        what is watched, how full it is, what is short, the next check
refresh                       list the drives of the machine anew
drop LIST "PATH"...           drop paths on a list or a combo box
fire TIMER                    one tick of that timer, now
answer yes|no|ok|cancel       queue an answer for the next question that offers it
answer text|file|folder "..." queue texts or paths for the next dialogs
answer files "PATH"...        queue files of one folder, chosen together, for the next dialog
wait SECONDS | forever        let the timers run
wait until TEXT               ... until a status panel or a new alert holds TEXT, at most 600 s
wait until alert TEXT         ... until a new alert holds TEXT
after SECONDS COMMAND         carry the command out at the first yield or wait after that time
at yield N COMMAND            carry it out at the N-th yield from now: in the middle of a check
report NAME                   print a report on the machine: ram, users, processes, processlist,
                              jobs, netstat, ntevents COUNT, drive C:, bootsector C:, chart,
                              watch: how each row stands;
                              message: what a mail would say now;
                              caption "...": what the caption of a menu item says
watch on|off                  print status changes; the mail's are those of panel 0
json on|off                   replies and events as JSON objects
help [COMMAND]                this list, or what it says of one command
exit                          ask to exit; "answer ok" first to leave
VALUE, TEXT: the rest of the line, or $"..." with escapes as in JSON.)";
}

std::string helpOf(const std::string& command) {
    std::string found;
    bool isAbout = false;
    for (const std::string& line : split(helpText(), "\n")) {
        // What belongs to the line before begins with blanks.
        if (!line.starts_with(' ')) isAbout = line.starts_with(command + " ");
        if (isAbout) found += (found.empty() ? "" : "\n") + line;
    }
    return found;
}

}  // namespace velmora::console
