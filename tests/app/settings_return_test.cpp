// Fields with values of every kind, saved by one run of the program and read by the next: what
// comes back changed was named by the first.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "app/core.h"
#include "base/drive_text.h"
#include "base/errors.h"
#include "base/text.h"
#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "persist/scramble.h"

namespace velmora::tests {
namespace {

/// A run of the program.
struct ProgramRun {
    explicit ProgramRun(fake::FakeMachine& machine)
        : core(forms, machine.platform(), surface.all()) {}

    fake::FakeSurface surface;
    Forms forms;
    Core core;
};

/// A field that has a line of its own in the settings file.
struct Field {
    std::string name;
    std::function<std::string(Forms&)> get;
    std::function<void(Forms&, std::mt19937&)> change;
    std::function<void(Forms&)> mend;
};

int below(std::mt19937& random, int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
}

// A text of few pieces, some of which the file can't carry.
std::string anyText(std::mt19937& random) {
    static const std::vector<std::string> pieces{
        "abc",       "+",          "!",     "\"",        ",",         "\t",        " ",
        "\x0c",      "\x1f",       "7",     "x",         "\n",        "\r\n",      "ä",
        "notEmail=", "path=",      "50000", "txtTime=9", "txtAudio0", "custtime=", "lstAct=3",
        "lstEvt=x",  "notlstTime", "=",     "minspace=2"};
    std::string text;
    for (int count = below(random, 4); count > 0; --count) {
        text += pieces[static_cast<std::size_t>(below(random, static_cast<int>(pieces.size())))];
    }
    return text;
}

template <typename Find>
Field text(const std::string& name, Find find) {
    return {.name = name,
            .get = [find](Forms& forms) { return find(forms).Text(); },
            .change = [find](Forms& forms,
                             std::mt19937& random) { find(forms).setText(anyText(random)); },
            .mend = [find](Forms& forms) { find(forms).setText("1"); }};
}

template <typename Find>
Field check(const std::string& name, Find find) {
    return {.name = name,
            .get = [find](Forms& forms) { return std::to_string(find(forms).Value()); },
            .change = [find](Forms& forms,
                             std::mt19937& random) { find(forms).setValue(below(random, 2)); },
            .mend = [find](Forms& forms) { find(forms).setValue(0); }};
}

template <typename Find>
Field list(const std::string& name, Find find) {
    return {.name = name,
            .get =
                [find](Forms& forms) {
                    std::string ticks;
                    auto& entries = find(forms);
                    for (int i = 0; i < entries.ListCount(); ++i) {
                        ticks += entries.Selected(i) ? '1' : '0';
                    }
                    return ticks;
                },
            .change =
                [find](Forms& forms, std::mt19937& random) {
                    auto& entries = find(forms);
                    for (int i = 0; i < entries.ListCount(); ++i) {
                        entries.setSelected(i, below(random, 4) == 0);
                    }
                },
            .mend =
                [find](Forms& forms) {
                    auto& entries = find(forms);
                    for (int i = 0; i < entries.ListCount(); ++i) entries.setSelected(i, false);
                }};
}

template <typename Find>
Field entries(const std::string& name, Find find) {
    return {.name = name,
            .get =
                [find](Forms& forms) {
                    std::string all;
                    auto& box = find(forms);
                    for (int i = 0; i < box.ListCount(); ++i) {
                        all += withoutLineEnds(box.List(i)) + "|";
                    }
                    return all;
                },
            .change =
                [find](Forms& forms, std::mt19937& random) {
                    auto& box = find(forms);
                    box.Clear();
                    for (int i = below(random, 3); i > 0; --i) box.AddItem("a" + anyText(random));
                },
            .mend = [find](Forms& forms) { find(forms).Clear(); }};
}

template <typename Find>
Field time(const std::string& name, Find find) {
    return {.name = name,
            .get =
                [find](Forms& forms) {
                    const DateTime& value = find(forms).Value();
                    return std::to_string(value.hour) + ":" + std::to_string(value.minute) + ":" +
                           std::to_string(value.second);
                },
            .change =
                [find](Forms& forms, std::mt19937& random) {
                    find(forms).setHour(below(random, 24));
                    find(forms).setMinute(below(random, 60));
                    find(forms).setSecond(below(random, 60));
                },
            .mend = [](Forms&) {}};
}

#define FIELD(kind, name, part) \
    kind(                       \
        name, [](Forms & forms) -> auto& { return forms.part; })

std::vector<Field> allFields() {
    return {
        FIELD(check, "chkUpdate", form1.chkUpdate),
        FIELD(check, "chkStartUp", form1.chkStartUp),
        FIELD(check, "chkOnTopMonitor", form1.chkOnTopMonitor),
        FIELD(check, "chkNTLog", form1.chkNTLog),
        FIELD(check, "chkLog", form1.chkLog),
        FIELD(check, "chkAutoSave", form1.chkAutoSave),
        FIELD(check, "chkSystray", form1.chkSystray),
        FIELD(check, "chkCustTime", form1.chkCustTime),
        FIELD(text, "txtAudio(0)", form1.txtAudio[0]),
        FIELD(text, "txtAudio(1)", form1.txtAudio[1]),
        FIELD(text, "txtSpace", form1.txtSpace),
        FIELD(text, "txtDrive", form1.txtDrive),
        FIELD(text, "txtFileType", form1.txtFileType),
        FIELD(time, "DTPInterval", form1.DTPInterval),
        FIELD(time, "DTTime1(0)", form1.DTTime1[0]),
        FIELD(time, "DTTime1(1)", form1.DTTime1[1]),
        FIELD(entries, "cboFile", form1.cboFile),
        FIELD(list, "lstAct", form1.lstAct),
        FIELD(list, "lstEvt", form1.lstEvt),
        FIELD(text, "frmNotify.txtYourEmail", frmNotify.txtYourEmail),
        FIELD(text, "frmNotify.txtUser", frmNotify.txtUser),
        FIELD(text, "frmNotify.txtPass", frmNotify.txtPass),
        FIELD(text, "frmNotify.txtMailServer", frmNotify.txtMailServer),
        FIELD(text, "frmNotify.txtMailSubj", frmNotify.txtMailSubj),
        FIELD(text, "frmNotify.txtMailFromDisplayName", frmNotify.txtMailFromDisplayName),
        FIELD(entries, "frmNotify.cboNotEmail", frmNotify.cboNotEmail),
        FIELD(list, "frmNotify.lstNotContent", frmNotify.lstNotContent),
        FIELD(list, "frmNotify.lstNotTime", frmNotify.lstNotTime),
        FIELD(text, "frmNotify.txtCustMsg", frmNotify.txtCustMsg),
        FIELD(text, "frmNotify.txtCustomContent", frmNotify.txtCustomContent),
        FIELD(text, "frmNotify.txtCustEvtAmt", frmNotify.txtCustEvtAmt),
        FIELD(time, "frmNotify.DTPicker1", frmNotify.DTPicker1),
        FIELD(time, "frmNotify.DTPicker2", frmNotify.DTPicker2),
        FIELD(text, "frmNotify.txtProxy", frmNotify.txtProxy),
        FIELD(text, "frmNotify.txtPort", frmNotify.txtPort),
        FIELD(check, "frmNotify.chkIsHTML", frmNotify.chkIsHTML),
        FIELD(check, "frmNotify.chkProxy", frmNotify.chkProxy),
        FIELD(text, "frmNotify.cboEncryption", frmNotify.cboEncryption),
    };
}

struct SettingsReturn : testing::Test {
    SettingsReturn() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files[path] =
            prcEn("txtTime=60\r\n") + "\r\n" + prcEn("minspace=50000\r\n") + "\r\n";
        machine.files["C:\\Windows\\media\\chimes.wav"] = "";
    }

    /// Saves the fields of a run; the names of those that are hinted at.
    static std::set<std::string> save(ProgramRun& run) {
        std::set<std::string> named;
        const ScopedConnection hints = run.forms.hints.Said.connect(
            [&named](const Hint& hint) { named.insert((hint.endsStart ? "!" : "") + hint.field); });
        run.forms.form1.txtTime.setText(std::to_string(run.forms.form1.DTPInterval.Hour() * 3600 +
                                                       run.forms.form1.DTPInterval.Minute() * 60 +
                                                       run.forms.form1.DTPInterval.Second()));
        run.core.persist().settingsFile().prcSettings(settings_order::write);
        return named;
    }
    static bool anyEndsTheStart(const std::set<std::string>& named) {
        return std::any_of(named.begin(), named.end(),
                           [](const std::string& name) { return name.starts_with('!'); });
    }
    /// Changes a few fields; which they are, by their values.
    std::string changeSome(ProgramRun& run, std::mt19937& random) {
        std::string changes;
        for (int count = 1 + below(random, 4); count > 0; --count) {
            const Field& field =
                fields[static_cast<std::size_t>(below(random, static_cast<int>(fields.size())))];
            field.change(run.forms, random);
            changes += field.name + "=" + testing::PrintToString(field.get(run.forms)) + " ";
        }
        return changes;
    }

    /// Whether a sound is there is only seen by the start.
    bool isMissingSound(const Field& field, const std::string& value) {
        return field.name == "txtAudio(0)" && !value.empty() &&
               !machine.platform().fso.FileExists(value);
    }
    /// The first sound names a file that is there, as long as it names any.
    void makeSound(Forms& forms) {
        if (!forms.form1.txtAudio[0].empty()) machine.files[forms.form1.txtAudio[0].Text()] = "";
    }

    const std::string path = "C:\\Program Files\\Velmora\\set.dat";
    const std::vector<Field> fields = allFields();
    fake::FakeMachine machine;
};

TEST_F(SettingsReturn, WhatComesBackChangedWasNamed) {
    const std::string first = machine.files[path];
    std::mt19937 random(7);
    int compared = 0;
    for (int round = 0; round < 300; ++round) {
        machine.files[path] = first;
        ProgramRun run(machine);
        run.core.load();
        const std::string changes = changeSome(run, random);
        makeSound(run.forms);
        const auto named = save(run);
        ProgramRun next(machine);
        const int failure = errorOf([&] { next.core.load(); });
        EXPECT_EQ(failure != 0, anyEndsTheStart(named)) << failure << ": " << changes;
        if (failure != 0) continue;
        ++compared;
        for (const Field& field : fields) {
            const std::string before = withoutLineEnds(field.get(run.forms));
            const std::string after = withoutLineEnds(field.get(next.forms));
            if (before == after || isMissingSound(field, before)) continue;
            EXPECT_TRUE(named.contains(field.name))
                << field.name << " " << before << " -> " << after << "\n"
                << changes;
        }
    }
    EXPECT_GT(compared, 150);
}

TEST_F(SettingsReturn, TheStartSucceedsOnceEachTrapThatWasNamedIsMended) {
    const std::string first = machine.files[path];
    std::mt19937 random(11);
    int mended = 0;
    for (int round = 0; round < 400; ++round) {
        machine.files[path] = first;
        ProgramRun run(machine);
        run.core.load();
        const std::string changes = changeSome(run, random) + changeSome(run, random);
        const auto named = save(run);
        if (!anyEndsTheStart(named)) continue;
        ++mended;
        for (const Field& field : fields) {
            if (named.contains("!" + field.name)) field.mend(run.forms);
        }
        save(run);
        ProgramRun next(machine);
        EXPECT_EQ(errorOf([&] { next.core.load(); }), 0)
            << changes << testing::PrintToString(named);
    }
    EXPECT_GT(mended, 100);
}

}  // namespace
}  // namespace velmora::tests
