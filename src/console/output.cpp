#include "console/output.h"

#include "base/text.h"
#include "console/words.h"
#include "rows/alert_row.h"

namespace velmora::console {

namespace {

const char* iconName(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::critical:
            return "critical";
        case BoxIcon::question:
            return "question";
        case BoxIcon::information:
            return "information";
        case BoxIcon::none:
            break;
    }
    return "none";
}

const char* buttonsName(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel:
            return "ok cancel";
        case BoxButtons::yesNo:
            return "yes no";
        case BoxButtons::yesNoCancel:
            return "yes no cancel";
        case BoxButtons::ok:
            break;
    }
    return "ok";
}

const char* answerName(BoxAnswer answer) {
    switch (answer) {
        case BoxAnswer::cancel:
            return "cancel";
        case BoxAnswer::yes:
            return "yes";
        case BoxAnswer::no:
            return "no";
        case BoxAnswer::ok:
            break;
    }
    return "ok";
}

const char* tick(bool ticked) {
    return ticked ? "[x] " : "[ ] ";
}

std::string jsonObjects(const Control::Table& rows) {
    std::string objects;
    for (const auto& row : rows) objects += (objects.empty() ? "" : ",") + jsonObject(row);
    return objects;
}

}  // namespace

std::string plainValue(const PropertyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return asOneLine(*text);
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    return std::get<bool>(value) ? "True" : "False";
}

void Output::ok() {
    line(json_ ? R"({"ok":true})" : "ok");
}

void Output::value(const PropertyValue& value) {
    line(json_ ? R"({"ok":)" + jsonValue(value) + "}" : plainValue(value));
}

void Output::error(const std::string& message) {
    ++errors_;
    line(json_ ? jsonObject({{"error", message}}) : "error: " + readable(message));
}

void Output::rows(const ListView& list) {
    if (json_) return line(R"({"ok":)" + jsonRows(list) + "}");
    for (int i = 1; i <= list.Count(); ++i) line(rowLine(list, i));
    line(std::to_string(list.Count()) + " row(s)");
}

void Output::row(const ListView& list, int index) {
    const ListItem& row = list.ListItems(index);
    if (json_) return line(R"({"ok":)" + jsonRow(row) + "}");
    line(rowLine(list, index));
    const auto tell = [this](const std::string& what, const std::string& value) {
        if (!value.empty()) line("    " + what + " " + readable(value));
    };
    tell("Tag", row.Tag());
    tell("SmallIcon", row.SmallIcon());
    for (int i = 1; i <= row.SubItemCount(); ++i) {
        const ListSubItem& sub = row.ListSubItems(i);
        const std::string place = "(" + std::to_string(i) + ")";
        tell("Tag" + place, sub.Tag());
        tell("Key" + place, sub.Key());
        tell("ReportIcon" + place, sub.ReportIcon());
    }
}

std::string Output::rowLine(const ListView& list, int index) const {
    const ListItem& row = list.ListItems(index);
    std::string text = std::to_string(index) + " " + tick(row.Checked()) + readable(row.Text());
    for (int i = 1; i <= row.SubItemCount(); ++i) text += " | " + readable(row.SubItems(i));
    if (!iconOf(row).empty()) text += " <" + iconOf(row) + ">";
    return text + (row.Selected() ? " (selected)" : "");
}

void Output::entries(const ListBox& list) {
    if (json_) {
        std::string objects;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (i > 0) objects += ',';
            objects += jsonObject({{"Text", list.List(i)}, {"Checked", list.Selected(i)}});
        }
        return line(R"({"ok":[)" + objects + "]}");
    }
    for (int i = 0; i < list.ListCount(); ++i) {
        line(std::to_string(i) + " " + tick(list.Selected(i)) + readable(list.List(i)));
    }
    line(std::to_string(list.ListCount()) + " entries");
}

void Output::entries(const ComboBox& list) {
    if (json_) {
        std::string objects;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (i > 0) objects += ',';
            objects += jsonObject({{"Text", list.List(i)}});
        }
        return line(R"({"ok":[)" + objects + "]}");
    }
    for (int i = 0; i < list.ListCount(); ++i) {
        line(std::to_string(i) + " " + readable(list.List(i)));
    }
    line(std::to_string(list.ListCount()) + " entries");
}

void Output::table(const Control::Table& rows) {
    if (json_) {
        return line(R"({"ok":[)" + jsonObjects(rows) + "]}");
    }
    for (const auto& row : rows) {
        std::string text;
        for (const auto& [name, value] : row) {
            text.append(text.empty() ? "" : " | ")
                .append(name)
                .append(" ")
                .append(plainValue(value));
        }
        line(text);
    }
    line(std::to_string(rows.size()) + " row(s)");
}

void Output::text(const std::string& lines) {
    if (json_) return value(lines);
    line(lines);
}

void Output::report(const std::string& text, const std::optional<Control::Table>& fields,
                    const JsonFields& about) {
    if (json_ && fields && !about.empty()) {
        std::string object = jsonObject(about);
        object.pop_back();
        return line(R"({"ok":)" + object + R"(,"Rows":[)" + jsonObjects(*fields) + "]}}");
    }
    if (json_) return fields ? table(*fields) : value(text);
    std::vector<std::string> lines = split(text, lineEnd);
    if (lines.size() > 1 && lines.back().empty()) lines.pop_back();
    for (const std::string& each : lines) line(readable(each));
}

void Output::alert(const ListItem& item) {
    const ConstAlertRow row(item);
    if (json_) {
        return event("alert",
                     {{"time", row.time()}, {"rating", row.rating()}, {"text", row.text()}});
    }
    line("alert: " + readable(row.time()) + " | " + readable(row.rating()) + " | " +
         readable(row.text()));
}

void Output::box(const Box& box, BoxAnswer answer) {
    if (json_) {
        return event("box", {{"title", box.title},
                             {"icon", iconName(box.icon)},
                             {"text", box.text},
                             {"buttons", buttonsName(box.buttons)},
                             {"answer", answerName(answer)}});
    }
    line("box: " + readable(box.title) + " | " + iconName(box.icon) + " | " + readable(box.text) +
         " | " + buttonsName(box.buttons) + " -> " + answerName(answer));
}

void Output::hint(const std::string& field, const std::string& text, bool endsStart) {
    if (json_) return event("hint", {{"field", field}, {"text", text}, {"endsStart", endsStart}});
    line("hint: " + readable(field) + " | " + readable(text));
}

void Output::status(int panel, const std::string& text) {
    if (json_) return event("status", {{"panel", std::int64_t{panel}}, {"text", text}});
    if (watch_) line("status " + std::to_string(panel) + ": " + readable(text));
}

void Output::shell(const std::string& operation, const JsonFields& details) {
    JsonFields fields{{"operation", operation}};
    fields.insert(fields.end(), details.begin(), details.end());
    if (json_) return event("shell", std::move(fields));
    std::string text = "shell: " + operation;
    for (const auto& [name, value] : details) text += " | " + name + " " + plainValue(value);
    line(text);
}

void Output::flush() {
    if (stream_.flush()) return;
    if (!isReaderGone_ || isReaderGone_()) throw ProgramEnd{1};
    stream_.clear();
}

void Output::event(const std::string& name, JsonFields fields) {
    fields.insert(fields.begin(), {"event", name});
    line(jsonObject(fields));
}

}  // namespace velmora::console
