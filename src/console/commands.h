// The console's commands: one a line, a reply to each.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "console/console_host.h"
#include "console/output.h"
#include "console/reports.h"
#include "console/waiting.h"
#include "console/words.h"
#include "forms/forms.h"

namespace velmora::console {

class Commands {
  public:
    /// What commands ask of the program beside its fields.
    struct Program {
        /// A path of the host as a drive path.
        std::function<std::string(const std::string&)> toDrivePath;
        /// Lists the drives of the machine anew.
        std::function<void()> RefreshDrive;
    };

    Commands(Forms& forms, ConsoleHost& host, Output& output, Waiting& waiting,
             LaterCommands& later, Reports& reports, Program program);

    /// Carries out one line and replies. A line that can't be carried out gets an error reply and
    /// changes nothing; a blank one gets none. A run-time error of the program ends it, or is the
    /// reply where it keeps running.
    void run(std::string_view line);

    /// The names of all commands, sorted.
    static std::vector<std::string> names();

  private:
    void obey(const std::string& name, Words& words);
    using Handler = void (Commands::*)(Words&);
    static const std::map<std::string, Handler>& handlers();

    void get(Words& words);
    void set(Words& words);
    void click(Words& words);
    void doubleClick(Words& words);
    void menu(Words& words);
    void tick(Words& words);
    void select(Words& words);
    void rows(Words& words);
    void row(Words& words);
    void fields(Words& words);
    void status(Words& words);
    void refresh(Words& words);
    void drop(Words& words);
    void fire(Words& words);
    void answer(Words& words);
    void wait(Words& words);
    void after(Words& words);
    void at(Words& words);
    void report(Words& words);
    void json(Words& words);
    void watch(Words& words);
    void help(Words& words);
    void exit(Words& words);
    void waitUntil(const std::string& text);
    void waitUntilAlert(const std::string& text);
    ListView& listView(const std::string& name);

    Forms& forms_;
    ConsoleHost& host_;
    Output& output_;
    Waiting& waiting_;
    LaterCommands& later_;
    Reports& reports_;
    Program program_;
};

/// The help text, a line a command.
const char* helpText();
/// The lines of it that are about one command; empty when there are none.
std::string helpOf(const std::string& command);

}  // namespace velmora::console
