// The classes of records by their names.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// The class in "Select * from CLASS", as it is written there; empty for any other query. Neither
/// keywords nor names have a case.
std::string queriedClass(std::string_view query);

bool isRecordClass(const std::string& className);

/// The records of a class; null when it isn't one. May wait for the host.
std::unique_ptr<RecordSource> openRecordClass(const std::string& className,
                                              const HostSources& host);

}  // namespace velmora::linuxhost
