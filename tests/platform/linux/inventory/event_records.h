// Records of a source in tests.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// Up to so many records of the source.
inline std::vector<Record> readRecords(RecordSource& source, std::size_t most) {
    std::vector<Record> records;
    while (records.size() < most) {
        auto record = source.next();
        if (!record) break;
        records.push_back(std::move(*record));
    }
    return records;
}

/// The property of each record; "(missing)" where there is none.
inline std::vector<std::string> propertyOfAll(const std::vector<Record>& records,
                                              const std::string& name) {
    std::vector<std::string> values;
    for (const Record& record : records) {
        const auto found = record.find(name);
        values.push_back(found == record.end() ? "(missing)" : found->second);
    }
    return values;
}

}  // namespace velmora::linuxhost
