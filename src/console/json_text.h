// JSON for the console's lines: replies, events and escaped texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/list_view.h"
#include "controls/property.h"

namespace velmora::console {

/// A JSON string literal of the text; a byte that is no valid UTF-8 becomes U+FFFD.
std::string jsonString(std::string_view text);
/// The text of a JSON string literal; nothing if it isn't one.
std::optional<std::string> readJsonString(std::string_view literal);
std::string jsonValue(const PropertyValue& value);

/// Name and text pairs; also the fields of an event.
using JsonFields = std::vector<std::pair<std::string, PropertyValue>>;
std::string jsonObject(const JsonFields& fields);

/// The first icon that a column of the row shows; empty for none.
const std::string& iconOf(const ListItem& row);
/// A row with its keys and icons too.
std::string jsonRow(const ListItem& row);
/// The rows of a list, one object a row.
std::string jsonRows(const ListView& list);

}  // namespace velmora::console
