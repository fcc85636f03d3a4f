// Any bytes as the settings file: reading ends, raises only the errors that a file can cause,
// asks the machine for nothing but sounds, and leaves fields that can be written.
#include <functional>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "fuzz_target.h"
#include "persist/settings_reader.h"
#include "persist/settings_writer.h"

using namespace velmora;

namespace {

/// The program's fields, made once, since that takes longer than reading a file.
class Program {
  public:
    Program() {
        machine.files["C:\\Windows\\media\\alert.wav"] = "RIFF";
        forms.form1.ListView1.Add("C:\\");
        for (Form* form :
             {static_cast<Form*>(&forms.form1), static_cast<Form*>(&forms.frmNotify)}) {
            for (Control* control : form->controls()) addReset(*control);
        }
    }

    /// Resets every field that the file sets, and forgets what was recorded: each input finds the
    /// same program.
    void reset() {
        for (const auto& each : resets) each();
        forms.form1.ListView1.ListItems(1).setSelected(false);
        forms.globals.bAutoUpdate = false;
        machine.log.clear();
    }

    /// The number of the error, 0 for none.
    int read(std::string_view content) {
        try {
            std::size_t place = 0;
            readSettings(content, {.forms = forms, .platform = machine.platform()}, place);
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
        return 0;
    }

    std::string written() {
        std::string text;
        std::vector<WrittenLine> lines;
        appendSettings(text, forms, machine.platform().regional, host, lines);
        return text;
    }

    fake::FakeMachine machine;

  private:
    // The kind of a control is looked up once, not for each input.
    void addReset(Control& control) {
        if (auto* text = dynamic_cast<TextBox*>(&control)) {
            resets.push_back([text] { text->setText(""); });
        } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
            resets.push_back([box] { box->setValue(0); });
        } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
            resets.push_back([list] {
                for (int i = 0; i < list->ListCount(); ++i) list->setSelected(i, false);
            });
        } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
            resets.push_back([combo] { combo->Clear(); });
        } else if (auto* picker = dynamic_cast<DatePicker*>(&control)) {
            resets.push_back([picker] { picker->setValue({}); });
        }
    }

    std::vector<std::function<void()>> resets;

    fake::FakeHost host;
    Forms forms;
};

bool ofAFile(int number) {
    return number == 0 || number == error::invalidCall || number == error::overflow ||
           number == error::typeMismatch || number == error::invalidPropertyValue;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Program program;
    program.reset();
    require(ofAFile(program.read(asText(data, size))), "only errors 5, 6, 13 and 380 come out");
    const fake::CallLog& log = program.machine.log;
    const int sounds = log.countOf("FileExists ") + log.countOf("GetWindowsDirectoryA");
    require(log.count() == sounds, "the machine is asked for sounds only");

    try {
        require(program.written().ends_with("\r\n"), "what was read can be written");
    } catch (const RuntimeError&) {
        // A line of Windows-1252 grows in UTF-8.
        require(size > 32767 / 3, "what was read is short enough to be written");
    }
    return 0;
}
