#include "platform/linux/inventory/record_classes.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

struct RecordClass {
    std::string_view lowerName;
    std::unique_ptr<RecordSource> (*open)(const HostSources&);
};

constexpr std::array recordClasses{
    RecordClass{"win32_ntlogevent", eventSource},
    RecordClass{"win32_perfrawdata_perfos_memory", memorySource},
    RecordClass{"win32_loggedonuser", loginSource},
    RecordClass{"win32_process", processSource},
    RecordClass{"win32_scheduledjob", jobSource},
};

const RecordClass* findRecordClass(const std::string& name) {
    const std::string lowerName = lowerCase(name);
    const auto found =
        std::find_if(recordClasses.begin(), recordClasses.end(),
                     [&lowerName](const RecordClass& each) { return each.lowerName == lowerName; });
    return found == recordClasses.end() ? nullptr : &*found;
}

std::vector<std::string> wordsOf(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<std::string> words;
    while (true) {
        const auto start = text.find_first_not_of(blanks);
        if (start == std::string_view::npos) return words;
        text.remove_prefix(start);
        words.emplace_back(text.substr(0, text.find_first_of(blanks)));
        text.remove_prefix(words.back().size());
    }
}

}  // namespace

std::string queriedClass(std::string_view query) {
    const auto words = wordsOf(query);
    const bool isWhole = words.size() == 4 && lowerCase(words[0]) == "select" && words[1] == "*" &&
                         lowerCase(words[2]) == "from";
    return isWhole ? words[3] : std::string();
}

bool isRecordClass(const std::string& className) {
    return findRecordClass(className) != nullptr;
}

std::unique_ptr<RecordSource> openRecordClass(const std::string& className,
                                              const HostSources& host) {
    const RecordClass* found = findRecordClass(className);
    return found ? found->open(host) : nullptr;
}

}  // namespace velmora::linuxhost
