#include "console/commands.h"

#include <cmath>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "console/field_list.h"
#include "console/nearest_name.h"
#include "console/target.h"
#include "controls/buttons.h"
#include "controls/pickers.h"
#include "controls/timer.h"
#include "platform/file_system_object.h"

namespace velmora::console {

namespace {

template <typename Kind>
Kind& controlOf(Forms& forms, const std::string& name, const char* what) {
    const Target target = resolveControl(forms, name);
    auto* control = dynamic_cast<Kind*>(target.control);
    if (control == nullptr || target.part) {
        throw CommandError("not a " + std::string(what) + ": " + name);
    }
    return *control;
}

// The command without its values, among which a password can be.
std::string handlerOf(const std::string& command, Words arguments) {
    return arguments.atEnd() ? command : command + " " + arguments.next();
}

int readIndex(const std::string& text) {
    return static_cast<int>(readWhole(text, 0, 1 << 30));
}

// The root of a drive is "D:\" in a list and "D:" elsewhere.
std::string withoutLastBackslash(std::string path) {
    if (path.ends_with('\\')) path.pop_back();
    return path;
}

}  // namespace

Commands::Commands(Forms& forms, ConsoleHost& host, Output& output, Waiting& waiting,
                   LaterCommands& later, Reports& reports, Program program)
    : forms_(forms),
      host_(host),
      output_(output),
      waiting_(waiting),
      later_(later),
      reports_(reports),
      program_(std::move(program)) {}

const std::map<std::string, Commands::Handler>& Commands::handlers() {
    static const std::map<std::string, Handler> all{
        {"get", &Commands::get},         {"set", &Commands::set},
        {"click", &Commands::click},     {"doubleclick", &Commands::doubleClick},
        {"menu", &Commands::menu},       {"tick", &Commands::tick},
        {"select", &Commands::select},   {"rows", &Commands::rows},
        {"drop", &Commands::drop},       {"fire", &Commands::fire},
        {"answer", &Commands::answer},   {"wait", &Commands::wait},
        {"json", &Commands::json},       {"watch", &Commands::watch},
        {"help", &Commands::help},       {"exit", &Commands::exit},
        {"after", &Commands::after},     {"report", &Commands::report},
        {"at", &Commands::at},           {"row", &Commands::row},
        {"fields", &Commands::fields},   {"status", &Commands::status},
        {"refresh", &Commands::refresh},
    };
    return all;
}

void Commands::run(std::string_view line) {
    try {
        Words words(line);
        if (words.atEnd()) return;
        if (line.find_first_not_of(" \t") == line.find('#')) return;  // a remark
        obey(lowerCase(words.next()), words);
    } catch (const CommandError& failure) {
        output_.error(failure.what());
    } catch (const Refused& refusal) {
        output_.error(refusal.what());
    } catch (const std::exception& failure) {
        host_.failed();
        output_.error(failure.what());
    }
}

void Commands::obey(const std::string& name, Words& words) {
    const auto found = handlers().find(name);
    if (found == handlers().end()) {
        throw CommandError("unknown command: " + name + didYouMean(name, names()));
    }
    const Words arguments = words;
    try {
        (this->*found->second)(words);
    } catch (RuntimeError& failure) {
        failure.noteHandler(handlerOf(name, arguments));
        throw;
    }
}

std::vector<std::string> Commands::names() {
    std::vector<std::string> all;
    for (const auto& [name, handler] : handlers()) all.push_back(name);
    return all;
}

void Commands::get(Words& words) {
    const Target target = resolve(forms_, words.next());
    words.end();
    output_.value(target.find().get());
}

void Commands::set(Words& words) {
    const std::string name = words.next();
    const Target target = resolve(forms_, name);
    if (target.property.empty()) throw CommandError("a property is missing: " + name);
    const Property property = target.find();
    if (!property.set) throw CommandError("can only be read: " + name);
    property.set(words.value());
    output_.ok();
}

void Commands::click(Words& words) {
    const Target target = resolve(forms_, words.next());
    words.end();
    if (target.control == nullptr) throw CommandError("a form can't be clicked");
    const std::string part = lowerCase(target.property);
    auto* spinner = dynamic_cast<UpDown*>(target.control);
    if (spinner != nullptr && part == "up") {
        spinner->userUp();
    } else if (spinner != nullptr && part == "down") {
        spinner->userDown();
    } else if (!part.empty()) {
        throw CommandError("a control, not a property: " + target.property);
    } else if (target.part) {
        target.control->userClickPart(*target.part);
    } else {
        target.control->userClick();
    }
    output_.ok();
}

// A number in brackets is a column, as for the other commands; a row has a word of its own.
void Commands::doubleClick(Words& words) {
    const std::string name = words.next();
    const Target target = resolveControl(forms_, name);
    std::optional<int> row;
    if (!words.atEnd()) {
        if (lowerCase(words.next()) != "row") throw CommandError("row and a number may follow");
        row = readIndex(words.next());
    }
    words.end();
    auto* list = dynamic_cast<ListView*>(target.control);
    if (list != nullptr && target.part) {
        throw CommandError("a column can't be double-clicked; a row: doubleclick " + list->Name() +
                           " row " + std::to_string(*target.part));
    }
    if (!row) {
        target.control->userDoubleClick();
    } else if (list == nullptr) {
        throw CommandError("not a list of rows: " + name);
    } else {
        // Pressing the button selects the row under the pointer first.
        list->userSelect({*row});
        list->userDoubleClickOn(*row, 1);
    }
    output_.ok();
}

void Commands::menu(Words& words) {
    MenuItem& item = controlOf<MenuItem>(forms_, words.next(), "menu entry");
    words.end();
    item.userClick();
    output_.ok();
}

void Commands::tick(Words& words) {
    Control& control = controlOf<Control>(forms_, words.next(), "list");
    const std::string which = words.next();
    const bool on = readSwitch(words.next());
    words.end();
    if (auto* rows = dynamic_cast<ListView*>(&control)) {
        rows->userTick(rowOf(*rows, which), on);
    } else if (auto* entries = dynamic_cast<ListBox*>(&control)) {
        entries->userTick(readIndex(which), on);
    } else {
        throw CommandError("not a list: " + control.Name());
    }
    output_.ok();
}

// A script names a row by its path: the numbers change with the drives of the machine.
int Commands::rowOf(const ListView& list, const std::string& which) const {
    if (which.find_first_of("/\\:") == std::string::npos) return readIndex(which);
    const std::string path = withoutLastBackslash(program_.toDrivePath(which));
    for (int i = 1; i <= list.Count(); ++i) {
        if (withoutLastBackslash(list.ListItems(i).Text()) == path) return i;
    }
    throw CommandError("no row of that path: " + which);
}

ListView& Commands::listView(const std::string& name) {
    return controlOf<ListView>(forms_, name, "list of rows");
}

void Commands::select(Words& words) {
    ListView& list = listView(words.next());
    const std::vector<std::string> texts = words.all();
    if (texts.empty()) throw CommandError("an index or none is missing");
    std::vector<int> indexes;
    if (texts.size() != 1 || lowerCase(texts.front()) != "none") {
        for (const std::string& text : texts) indexes.push_back(readIndex(text));
    }
    list.userSelect(indexes);
    output_.ok();
}

void Commands::rows(Words& words) {
    Control& control = controlOf<Control>(forms_, words.next(), "list");
    words.end();
    if (const auto* list = dynamic_cast<ListView*>(&control)) {
        output_.rows(*list);
    } else if (const auto* entries = dynamic_cast<ListBox*>(&control)) {
        output_.entries(*entries);
    } else if (const auto* box = dynamic_cast<ComboBox*>(&control)) {
        output_.entries(*box);
    } else if (const auto table = control.table()) {
        output_.table(*table);
    } else {
        throw CommandError("not a list: " + control.Name());
    }
}

void Commands::row(Words& words) {
    const ListView& list = listView(words.next());
    const int index = readIndex(words.next());
    words.end();
    if (index < 1 || index > list.Count()) {
        throw CommandError("no row of that number: " + std::to_string(index));
    }
    output_.row(list, index);
}

void Commands::fields(Words& words) {
    const std::string pattern = words.atEnd() ? "" : words.value();
    const Report found = fieldList(forms_, pattern);
    if (found.fields->empty())
        throw CommandError("no field of that name or with that word: " + pattern);
    output_.report(found.text, found.fields);
}

void Commands::status(Words& words) {
    words.end();
    const Report screen = reports_.status();
    output_.report(screen.text, screen.fields, screen.about);
}

void Commands::refresh(Words& words) {
    words.end();
    program_.RefreshDrive();
    output_.ok();
}

void Commands::drop(Words& words) {
    Control& control = controlOf<Control>(forms_, words.next(), "list");
    std::vector<std::string> paths = words.all();
    if (paths.empty()) throw CommandError("a path is missing");
    for (std::string& path : paths) path = program_.toDrivePath(path);
    if (auto* list = dynamic_cast<ListView*>(&control)) {
        list->userDrop(paths);
    } else if (auto* box = dynamic_cast<ComboBox*>(&control)) {
        box->userDrop(paths);
    } else {
        throw CommandError("not a list: " + control.Name());
    }
    output_.ok();
}

void Commands::fire(Words& words) {
    Timer& timer = controlOf<Timer>(forms_, words.next(), "timer");
    words.end();
    timer.fire();
    output_.ok();
}

namespace {

double readSeconds(const std::string& text) {
    const auto seconds = readNumber(text, Regional{});
    if (!seconds || *seconds < 0 || *seconds > 1e9) {
        throw CommandError("not a number of seconds: " + text);
    }
    return *seconds;
}

// Several files of one folder as the file dialog gives them: the folder, then the names.
std::string chosenFiles(const std::vector<std::string>& paths) {
    if (paths.size() == 1) return paths.front();
    std::string chosen = parentFolderOf(paths.front());
    for (const std::string& path : paths) {
        if (parentFolderOf(path) != parentFolderOf(paths.front())) {
            throw CommandError("not in the folder of the first: " + path);
        }
        chosen += '\0' + fileNameOf(path);
    }
    return chosen;
}

}  // namespace

void Commands::answer(Words& words) {
    static const std::map<std::string, BoxAnswer> answers{{"yes", BoxAnswer::yes},
                                                          {"no", BoxAnswer::no},
                                                          {"ok", BoxAnswer::ok},
                                                          {"cancel", BoxAnswer::cancel}};
    const std::string kind = lowerCase(words.next());
    std::vector<std::string> texts = words.all();
    if (const auto known = answers.find(kind); known != answers.end()) {
        if (!texts.empty()) throw CommandError("more than the command takes: " + texts.front());
        host_.queueAnswer(known->second);
        return output_.ok();
    }
    const bool path = kind == "file" || kind == "folder" || kind == "files";
    if (!path && kind != "text") throw CommandError("unknown answer: " + kind);
    if (texts.empty()) throw CommandError("a text is missing");
    if (kind == "files") {
        for (std::string& text : texts) text = program_.toDrivePath(text);
        host_.queueText(chosenFiles(texts));
        return output_.ok();
    }
    for (std::string& text : texts) host_.queueText(path ? program_.toDrivePath(text) : text);
    output_.ok();
}

void Commands::wait(Words& words) {
    const std::string span = words.next();
    if (lowerCase(span) == "until") {
        if (words.take("alert")) return waitUntilAlert(words.value());
        return waitUntil(words.value());
    }
    words.end();
    if (lowerCase(span) == "forever") {
        waiting_.forever();
    } else {
        waiting_.forSeconds(readSeconds(span));
    }
    output_.ok();
}

void Commands::after(Words& words) {
    const double seconds = readSeconds(words.next());
    std::string line = words.value();
    if (line.empty()) throw CommandError("a command is missing");
    later_.add(std::llround(seconds * 1000), std::move(line));
    output_.ok();
}

void Commands::at(Words& words) {
    if (lowerCase(words.next()) != "yield") throw CommandError("at yield NUMBER COMMAND");
    const auto count = readWhole(words.next(), 1, 1 << 30);
    std::string line = words.value();
    if (line.empty()) throw CommandError("a command is missing");
    later_.addAtYield(count, std::move(line));
    output_.ok();
}

void Commands::report(Words& words) {
    const Report made = reports_.make(words);
    output_.report(made.text, made.fields);
}

void Commands::waitUntil(const std::string& text) {
    if (text.empty()) throw CommandError("a text is missing");
    const StatusBar& status = forms_.form1.StatusBar1;
    for (int panel = 1; panel <= status.PanelCount(); ++panel) {
        if (contains(status.Panels(panel).Text, text)) return output_.ok();
    }
    if (forms_.frmNotify.StatusTxt.contains(text)) return output_.ok();
    if (!waiting_.until(text)) throw CommandError("not seen within 600 s: " + text);
    output_.ok();
}

void Commands::waitUntilAlert(const std::string& text) {
    if (!waiting_.untilAlert(text)) throw CommandError("no such alert within 600 s: " + text);
    output_.ok();
}

void Commands::json(Words& words) {
    const bool on = readSwitch(words.next());
    words.end();
    output_.setJson(on);
    output_.ok();
}

void Commands::watch(Words& words) {
    const bool on = readSwitch(words.next());
    words.end();
    output_.setWatch(on);
    output_.ok();
}

void Commands::help(Words& words) {
    if (words.atEnd()) return output_.text(helpText());
    const std::string command = lowerCase(words.next());
    words.end();
    const std::string lines = helpOf(command);
    if (lines.empty()) {
        throw CommandError("unknown command: " + command + didYouMean(command, names()));
    }
    output_.text(lines);
}

void Commands::exit(Words& words) {
    words.end();
    forms_.form1.mnuExit.userClick();
    output_.ok();
}

}  // namespace velmora::console
