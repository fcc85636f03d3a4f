// Any bytes as what the kernel, services and users write: what reaches a report is valid UTF-8,
// names have no lines of their own, and what was written is read back.
//
// Input: a byte that selects the parser, then its text.
#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "base/text.h"
#include "fuzz_target.h"
#include "platform/linux/inventory/account_path.h"
#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/logins.h"
#include "platform/linux/inventory/memory_record.h"
#include "platform/linux/inventory/process_record.h"
#include "platform/linux/inventory/record_classes.h"
#include "platform/linux/inventory/record_messages.h"
#include "platform/linux/inventory/record_text.h"

using namespace velmora;
using namespace velmora::linuxhost;

namespace {

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

void checkName(const std::string& text) {
    require(isValidUtf8(text), "a name is valid");
    require(std::none_of(text.begin(), text.end(), isControl), "a name is one line");
}

void checkRecord(const std::optional<Record>& record) {
    if (!record) return;
    for (const auto& [name, value] : *record) {
        require(!name.empty(), "properties have names");
        checkName(value);
    }
}

void readText(std::string_view text) {
    checkName(oneLine(text));
    require(oneLine(oneLine(text)) == oneLine(text), "a name stays as it is");
    const std::string lines = severalLines(text);
    require(isValidUtf8(lines), "a message is valid");
    require(severalLines(lines) == lines, "a message stays as it is");
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const bool isLineEnd = lines[at] == '\n' || lines[at] == '\r';
        require(!isControl(lines[at]) || lines[at] == '\t' || isLineEnd, "no controls are left");
        if (lines[at] == '\n') require(at > 0 && lines[at - 1] == '\r', "line ends are CR LF");
        if (lines[at] == '\r') require(lines.compare(at, 2, "\r\n") == 0, "no CR stands alone");
    }
}

void readMemory(std::string_view text) {
    checkRecord(memoryRecord(text, text, modulesSize(text)));
    checkRecord(memoryRecord(text, "", std::nullopt));
}

// The texts of one process, parted by NULs.
void readProcess(std::string_view text) {
    const auto parts = split(text, std::string_view("\0", 1));
    const auto part = [&parts](std::size_t place) {
        return place < parts.size() ? std::optional(parts[place]) : std::nullopt;
    };
    const ProcessHost host{.name = "box",
                           .system = systemName(part(4).value_or("")),
                           .bootTime = 1'700'000'000,
                           .ticks = 100,
                           .pageSize = 4096};
    const auto record = processRecord(host, {.id = 7,
                                             .stat = part(0).value_or(""),
                                             .status = part(1),
                                             .io = part(2),
                                             .exe = part(3),
                                             .descriptors = 3});
    checkRecord(record);
    if (record) require(record->at("ProcessId") == "7", "a process keeps its number");
}

void readAccountPath(std::string_view text) {
    const auto read = accountIn(text);
    if (read) {
        const auto again = accountIn(accountPath({"box", read->name}));
        require(again && again->name == read->name, "a name in a path is read back");
    }
    const auto made = accountIn(accountPath({std::string(text), std::string(text)}));
    if (text.find('\\') != std::string_view::npos || text.empty()) return;
    require(made && made->domain == text && made->name == text, "a path is read back");
}

void readLogins(std::string_view text) {
    utmpx entry{};
    std::memcpy(&entry, text.data(), std::min(text.size(), sizeof entry));
    if (const auto login = loginIn(entry)) checkRecord(loginRecord("box", *login));
}

void readMessages(std::string_view text) {
    if (const auto request = requestIn(text)) {
        require(bytesOf(*request) == text, "a request is what its bytes say");
    }
    if (const auto reply = replyIn(text)) {
        const auto again = replyIn(bytesOf(*reply));
        require(again && again->record == reply->record, "a reply is read back");
    }
}

void readQuery(std::string_view text) {
    const std::string name = queriedClass(text);
    require(name.find_first_of(" \t\r\n") == std::string::npos, "a class is a word");
    isRecordClass(name);
}

void readTime(std::string_view text) {
    std::int64_t time = 0;
    std::memcpy(&time, text.data(), std::min(text.size(), sizeof time));
    const std::string written = cimTime(time);
    require(written.empty() || written.size() == 25, "a time has 25 characters");
}

constexpr std::array parsers{readText,   readMemory, readProcess,  readAccountPath,
                             readLogins, readQuery,  readMessages, readTime};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    parsers[data[0] % parsers.size()](asText(data + 1, size - 1));
    return 0;
}
