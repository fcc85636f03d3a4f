#include "persist/keys/settings_fields.h"

#include "base/convert.h"
#include "base/date_time.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

std::vector<std::string> storedValues(const TextBox& box, const Regional& /*regional*/) {
    return {box.Text()};
}

std::vector<std::string> storedValues(const CheckBox& box, const Regional& /*regional*/) {
    return {std::to_string(box.Value())};
}

std::vector<std::string> storedValues(const DatePicker& picker, const Regional& regional) {
    return {dateText(picker.Value(), regional)};
}

std::vector<std::string> storedValues(const ListBox& list, const Regional& /*regional*/) {
    std::vector<std::string> indexes;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) indexes.push_back(std::to_string(i));
    }
    return indexes;
}

void putStored(TextBox& box, const std::string& value, const Regional& /*regional*/) {
    box.setText(value);
}

void putStored(CheckBox& box, const std::string& value, const Regional& regional) {
    box.setValue(toInteger(value, regional));
}

void putStored(DatePicker& picker, const std::string& value, const Regional& regional) {
    // The line end that a closed line carries is no part of the date.
    const auto date = readDate(replaceAll(value, lineEnd, ""), regional);
    if (!date) throw RuntimeError(error::typeMismatch);
    picker.setValue(*date);
}

void putStored(ListBox& list, const std::string& value, const Regional& regional) {
    const int index = toInteger(value, regional);
    if (index < 0 || index >= list.ListCount()) throw RuntimeError(error::typeMismatch);
    list.setSelected(index, true);
}

}  // namespace velmora
