// Any paths dropped on the lists, and then every action and operation on them: a file
// that was not listed is never changed, and only a run-time error ends a step.
//
// Input: a byte for the actions that are ticked, one for the answers to questions, then the paths,
// one a line.
#include <algorithm>
#include <string>
#include <vector>

#include "app/core.h"
#include "base/text.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "forms/form_numbers.h"
#include "fuzz_target.h"
#include "persist/scramble.h"

using namespace velmora;

namespace {

const std::vector<std::string> allFiles{
    "C:\\data\\a.txt", "C:\\data\\b c.txt", "C:\\data\\deep\\d.txt", "C:\\precious.txt",
    "D:\\data\\a.txt", "D:\\\u00E9\\f.txt", "\\\\host\\share\\g.txt"};

void furnish(fake::FakeMachine& machine) {
    machine.files["C:\\Program Files\\Velmora\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    machine.drives["C:"] = {1e6, 100e9};
    machine.drives["D:"] = {5e9, 5e12};
    machine.drives["\\\\host\\share"] = {5e9, 5e12};
    machine.folders.insert({"c:\\data", "c:\\data\\deep", "d:\\data", "d:\\\u00E9"});
    for (const std::string& file : allFiles) machine.files[file] = "content of " + file;
}

// Compared as the machine in memory does.
std::string keyOf(std::string path) {
    path = lowerCase(path);
    std::replace(path.begin(), path.end(), '/', '\\');
    while (path.size() > 1 && path.back() == '\\') path.pop_back();
    return path;
}

bool isListed(const std::string& file, const std::vector<std::string>& paths) {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        const std::string key = keyOf(path);
        return keyOf(file) == key || keyOf(file).starts_with(key + '\\');
    });
}

template <typename Step>
void attempt(Step&& step) {
    try {
        step();
    } catch (const RuntimeError&) {
    } catch (const Refused&) {
    } catch (const ProgramEnd&) {
    }
}

// What happened, for the message of a failed check.
void printCalls(const std::string& file, const fake::FakeMachine& machine) {
    std::fprintf(stderr, "gone: %s\n", file.c_str());
    for (const std::string& call : machine.log.calls()) {
        if (call.starts_with("remove") || call.starts_with("Delete") ||
            call.starts_with("MoveFileA") || call.starts_with("SHFileOperationA")) {
            std::fprintf(stderr, "  %s\n", call.c_str());
        }
    }
}

struct Program {
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    fake::FakeHost& host = surface.host;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
};

void run(Program& program, std::uint8_t actions, const std::vector<std::string>& paths) {
    Form1& form1 = program.forms.form1;
    attempt([&] { form1.LVFile.userDrop(paths); });
    attempt([&] { form1.cboFile.userDrop(paths); });
    attempt([&] { form1.LVProg.userDrop(paths); });
    attempt([&] { form1.cboProg.userDrop(paths); });
    for (int i = 0; i < 8; ++i) form1.lstAct.setSelected(i, (actions >> i & 1) != 0);
    form1.txtSpace.setText("50000000");
    form1.DTPInterval.setMinute(0);
    for (int i = 1; i <= form1.ListView1.Count(); ++i) form1.ListView1.userTick(i, true);
    for (int check = 0; check < 3; ++check) attempt([&] { form1.Timer1.Tick(); });
    for (const int button :
         {file_button::attributes, file_button::move, file_button::moveAll, file_button::deleteFile,
          file_button::deleteAll, file_button::remove, file_button::clear}) {
        attempt([&] {
            if (form1.LVFile.Count() > 0) form1.LVFile.userSelect({1});
            form1.lblSF[static_cast<std::size_t>(button)].Click();
        });
    }
    for (Label& label : form1.Label5) attempt([&] { label.Click(); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string text(asText(data + 2, size - 2));
    std::vector<std::string> paths = split(text, "\n");
    std::erase(paths, "");
    if (paths.empty()) return 0;
    Program program;
    furnish(program.machine);
    for (int i = 0; i < 64; ++i) {
        program.host.answers.push_back(data[1] >> (i % 8) & 1 ? BoxAnswer::yes : BoxAnswer::no);
    }
    attempt([&] { program.core.load(); });
    run(program, data[0], paths);
    for (const std::string& file : allFiles) {
        if (isListed(file, paths)) continue;
        const auto kept = program.machine.files.find(file);
        if (kept == program.machine.files.end()) printCalls(file, program.machine);
        require(kept != program.machine.files.end(), "a file that wasn't listed is there");
        require(kept->second == "content of " + file, "and holds what it held");
    }
    return 0;
}
