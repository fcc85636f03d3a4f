#include "console/commands.h"

namespace velmora::console {

const char* helpText() {
    return R"(get [FORM.]CONTROL[(INDEX)][.PROPERTY]    print a value; the form is Form1 unless named
set [FORM.]CONTROL[(INDEX)].PROPERTY VALUE    set it as the user's hand would
click CONTROL[(INDEX)]        click; a spinner: click CONTROL.Up or CONTROL.Down
doubleclick CONTROL[(ROW)]    double-click the selected row, or this one
menu NAME                     choose a menu entry
tick LIST INDEX on|off        tick an entry of a check list (from 0) or a row (from 1)
select LIST INDEX... | none   select rows
rows LIST                     print the rows
drop LIST "PATH"...           drop paths on a list or a combo box
fire TIMER                    one tick of that timer, now
answer yes|no|ok|cancel       queue an answer for the next question that offers it
answer text|file|folder "..." queue texts or paths for the next dialogs
answer files "PATH"...        queue files of one folder, chosen together, for the next dialog
wait SECONDS | forever        let the timers run
wait until TEXT               ... until a status panel or a new alert holds TEXT, at most 600 s
after SECONDS COMMAND         carry the command out at the first yield or wait after that time
report NAME                   print a report on the machine: ram, users, processes, processlist,
                              jobs, netstat, ntevents COUNT, drive C:, bootsector C:, chart,
                              watch: how each row stands;
                              message: what a mail would say now;
                              caption "...": what the caption of a menu item says
watch on|off                  print status changes; the mail's are those of panel 0
json on|off                   replies and events as JSON objects
help                          this list
exit                          ask to exit; "answer ok" first to leave
VALUE, TEXT: the rest of the line, or $"..." with escapes as in JSON.)";
}

}  // namespace velmora::console
