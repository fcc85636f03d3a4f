// Any bytes as the custom file of the mail, and as its path: the section always has its frame, is
// made of lines as often as the file has fields, and nothing but the file is asked for.
//
// Input: the path as typed up to the first NUL, then the file's bytes.
#include <string>

#include "base/input_fields.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "fuzz_target.h"
#include "notify/message_content.h"

using namespace velmora;

namespace {

constexpr const char* rule = "\r\n=============";

/// The program's fields, made once, since that takes longer than reading a file.
struct Program {
    Program() { machine.drives["C:"] = {1, 2}; }

    /// The section with that path typed, of a machine with that one file.
    std::string section(const std::string& typed, std::string_view file) {
        machine.files = {{"C:\\notes.txt", std::string(file)}};
        machine.log.clear();
        forms.frmNotify.txtCustomContent.setText(typed);
        return content.prcNotOpenCustFile();
    }

    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    Inventory inventory{machine.platform(), host};
    MessageContent content{forms, machine.platform(), host, inventory};
};

std::string fieldLines(std::string_view file) {
    std::string lines;
    for (InputFields fields(file); !fields.atEnd();) lines += fields.next() + "\r\n";
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Program program;
    const std::string_view input = asText(data, size);
    const std::size_t nul = input.find('\0');
    const std::string typed(input.substr(0, nul));
    const std::string_view file = nul == input.npos ? input : input.substr(nul + 1);

    const std::string blanks = "  C:\\notes.txt ";
    require(program.section(blanks, file) ==
                "File Contents: " + blanks + rule + "\r\n" + fieldLines(file) + rule,
            "a file that is there is a line for each field");
    require(program.machine.log.count() == 2, "it is looked for and read once");

    std::string text;
    try {
        text = program.section(typed, file);
    } catch (const RuntimeError& failure) {
        require(failure.number() == error::pathNotFound, "a path with a file for a folder");
        return 0;
    }
    const std::string head = "File Contents: " + typed + rule + "\r\n";
    require(text.starts_with(head) && text.ends_with(rule), "the section has its frame");
    const std::string inner = text.substr(head.size(), text.size() - head.size() - 15);
    require(inner == "File Access Error" || inner == fieldLines(file),
            "it holds the file or says that there is none");
    return 0;
}
