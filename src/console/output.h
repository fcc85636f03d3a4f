// What the console prints: a reply to each command and the events in between, for a reader of lines
// or, one object a line, for a program.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include "console/json_text.h"
#include "controls/list_box.h"
#include "platform/host.h"

namespace velmora::console {

/// A value as a reader of lines sees it.
std::string plainValue(const PropertyValue& value);

class Output {
  public:
    explicit Output(std::ostream& stream) : stream_(stream) {}

    void setJson(bool on) { json_ = on; }
    /// Whether status panel changes are printed for a reader of lines; for a program they always
    /// are.
    void setWatch(bool on) { watch_ = on; }
    bool watch() const { return watch_; }

    // Replies.
    void ok();
    void value(const PropertyValue& value);
    void error(const std::string& message);
    /// How many replies were errors.
    int errors() const { return errors_; }
    void rows(const ListView& list);
    /// One row with all that it carries: tags, keys and icons.
    void row(const ListView& list, int index);
    /// The entries of a check list or combo box: text, and the tick where there is one.
    void entries(const ListBox& list);
    void entries(const ComboBox& list);
    /// A row of named values each.
    void table(const Control::Table& rows);
    /// Lines for a person; one text for a program.
    void text(const std::string& lines);
    /// The same for a text of the machine, with CR LF as line ends: a line with control characters
    /// is escaped for a person. A program gets the fields instead, where there are any; with
    /// something about all of them, that and the fields as "Rows".
    void report(const std::string& text, const std::optional<Control::Table>& fields = {},
                const JsonFields& about = {});

    // Events.
    void alert(const ListItem& item);
    void box(const Box& box, BoxAnswer answer);
    /// A field that was saved and doesn't come back as it is.
    void hint(const std::string& field, const std::string& text, bool endsStart);
    void status(int panel, const std::string& text);
    /// An operation handed to the system's shell.
    void shell(const std::string& operation, const JsonFields& details);

    using IsReaderGone = std::function<bool()>;
    /// From now on only a reader who is gone ends the program. What a full disk doesn't take is
    /// lost, and the program goes on.
    void keepRunning(IsReaderGone isReaderGone) { isReaderGone_ = std::move(isReaderGone); }

    /// Flushes the output. Ends the program with status 1 when it takes nothing, as when its reader
    /// is gone: its user could neither see what the program does nor stop it.
    void flush();

  private:
    void line(const std::string& text) { stream_ << text << '\n'; }
    void event(const std::string& name, JsonFields fields);
    std::string rowLine(const ListView& list, int index) const;

    std::ostream& stream_;
    IsReaderGone isReaderGone_;  // empty while any failure ends the program
    bool json_ = false;
    bool watch_ = false;
    int errors_ = 0;
};

}  // namespace velmora::console
