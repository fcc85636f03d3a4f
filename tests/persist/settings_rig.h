// The settings file in a machine in memory, written and inspected by its plain lines.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "forms/forms.h"
#include "persist/settings_file.h"

namespace velmora::tests {

using Lines = std::vector<std::string>;

/// The bytes of a plain text, each shifted.
inline std::string shifted(std::string text, int by) {
    for (char& byte : text) byte = static_cast<char>(byte + by);
    return text;
}

/// A file of plain lines; the line ends inside the texts are shifted with them.
inline std::string fileOf(const Lines& plain) {
    std::string content;
    for (const std::string& line : plain) content += shifted(line, 1) + "\r\n";
    return content;
}

/// The plain lines of a file that ends with a line end.
inline Lines linesOf(const std::string& content) {
    Lines lines = split(content, "\r\n");
    lines.pop_back();
    for (std::string& line : lines) line = shifted(line, -1);
    return lines;
}

struct SettingsRig {
    SettingsRig() { forms.globals.strSettings = path; }

    const std::string path = R"(C:\Program Files\Velmora\set.dat)";
    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    Form1& form1 = forms.form1;
    FrmNotify& notify = forms.frmNotify;
    SettingsFile settings{forms, machine.platform(), host};

    /// Reads a file of these bytes; the error's number, 0 for none.
    int readBytes(const std::string& content) {
        machine.files[path] = content;
        return run(2);
    }
    /// Reads a file of a good interval and these plain lines.
    int read(const Lines& plain) { return readBytes(fileOf({"txtTime=60"}) + fileOf(plain)); }
    /// Writes the file; the error's number, 0 for none.
    int write() { return run(1); }
    int run(std::int16_t bSet) {
        try {
            settings.prcSettings(bSet);
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
        return 0;
    }
    const std::string& content() { return machine.files[path]; }
    /// The plain lines of what is written now. An interval that is no number is not looked at.
    Lines written() {
        write();
        return linesOf(content());
    }
    /// The written lines of one key.
    Lines written(const std::string& key) {
        Lines found = written();
        std::erase_if(found, [&key](const auto& line) { return !line.starts_with(key); });
        return found;
    }
    /// The ticked entries of a list, by index.
    static std::vector<int> ticked(const ListBox& list) {
        std::vector<int> indexes;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.Selected(i)) indexes.push_back(i);
        }
        return indexes;
    }
    static Lines entries(const ComboBox& box) {
        Lines texts;
        for (int i = 0; i < box.ListCount(); ++i) texts.push_back(box.List(i));
        return texts;
    }
    /// A row of the watch list, ticked or not.
    ListItem& row(const std::string& text, bool ticked = false) {
        ListItem& added = form1.ListView1.Add(text);
        added.setChecked(ticked);
        return added;
    }
};

}  // namespace velmora::tests
