// The controls of the forms as fields of the settings file: how each kind is written and read.
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "persist/keys/settings_key.h"

namespace velmora {

/// The value of a control as the file holds it. A list box gives the index of each ticked entry.
std::vector<std::string> storedValues(const TextBox& box, const Regional& regional);
std::vector<std::string> storedValues(const CheckBox& box, const Regional& regional);
std::vector<std::string> storedValues(const DatePicker& picker, const Regional& regional);
std::vector<std::string> storedValues(const ListBox& list, const Regional& regional);

/// Puts a value of the file into a control; the control's events fire. A list box ticks the entry
/// of that index. Error 13 for a value that isn't the number or date that is wanted, and for an
/// index outside the list; 6 for a number beyond 16 bits; 380 for a check box value that is none.
void putStored(TextBox& box, const std::string& value, const Regional& regional);
void putStored(CheckBox& box, const std::string& value, const Regional& regional);
void putStored(DatePicker& picker, const std::string& value, const Regional& regional);
void putStored(ListBox& list, const std::string& value, const Regional& regional);

/// The control that a member names, on the form that has such a member.
template <typename AnyForms, typename Control, typename Part>
auto& controlOf(AnyForms& forms, Control Part::*member) {
    if constexpr (std::is_base_of_v<Part, FrmNotify>) {
        return forms.frmNotify.*member;
    } else {
        return forms.form1.*member;
    }
}

/// A single control, written and read by its kind.
template <auto member>
inline constexpr SettingsField fieldOf{
    .get =
        [](const SettingsSource& from) {
            return storedValues(controlOf(from.forms, member), from.regional);
        },
    .set =
        [](const SettingsTarget& to, const std::string& value) {
            putStored(controlOf(to.forms, member), value, to.platform.regional);
        },
};

}  // namespace velmora
