// The keys of what is checked, and when.
#include "base/convert.h"
#include "base/leading_number.h"
#include "base/text.h"
#include "persist/keys/interval_picker.h"
#include "persist/keys/settings_fields.h"
#include "persist/keys/settings_keys.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

void setCheckInterval(const SettingsTarget& to, const std::string& value) {
    to.forms.form1.txtTime.setText(value);
    setInterval(to.forms.form1.DTPInterval, toDouble(value, to.platform.regional));
}

void setMinimumSpace(const SettingsTarget& to, const std::string& value) {
    std::string digits = value;
    to.forms.form1.txtSpace.setText(prcChkString(digits, "", to.platform.regional));
}

/// A bound of the custom watch time, written only while that is switched on.
template <std::size_t index>
constexpr SettingsField customTime{
    .get = [](const SettingsSource& from) -> std::vector<std::string> {
        if (!from.forms.form1.chkCustTime.ticked()) return {};
        return storedValues(from.forms.form1.DTTime1[index], from.regional);
    },
    .set =
        [](const SettingsTarget& to, const std::string& value) {
            putStored(to.forms.form1.DTTime1[index], value, to.platform.regional);
        },
};

std::vector<std::string> checkedRows(const SettingsSource& from) {
    std::vector<std::string> paths;
    const ListView& list = from.forms.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (row.watched()) paths.push_back(row.path());
    }
    return paths;
}

// Written are the checked rows; reading selects rows and leaves their check marks.
void selectRows(const SettingsTarget& to, const std::string& value) {
    const std::string wanted = lowerCase(trim(value));
    ListView& list = to.forms.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        WatchRow row(list.ListItems(i));
        if (lowerCase(row.path()) == wanted) row.setSelected(true);
    }
}

constexpr SettingsKey watchEntries[] = {
    {.key = "txtTime=",
     .written = 9,
     .read = 6,
     .line = SettingsLine::closed,
     .field = {.get = fieldOf<&Form1::txtTime>.get, .set = setCheckInterval}},
    {.key = "minspace=",
     .written = 10,
     .read = 4,
     .line = SettingsLine::closed,
     .field = {.get = fieldOf<&Form1::txtSpace>.get, .set = setMinimumSpace}},
    {.key = "custtime=",
     .written = 32,
     .read = 1,
     .line = SettingsLine::closed,
     .field = fieldOf<&Form1::chkCustTime>},
    // Never reached: the entry above takes such lines.
    {.key = "custtime=", .read = 9, .field = fieldOf<&Form1::chkCustTime>},
    {.key = "custtimebegin=",
     .written = 33,
     .read = 10,
     .line = SettingsLine::closed,
     .field = customTime<0>},
    {.key = "custtimeend=",
     .written = 34,
     .read = 11,
     .line = SettingsLine::closed,
     .field = customTime<1>},
    // Never read: the picker follows from "txtTime=".
    {.key = "custtimeDTPI=", .written = 35, .field = fieldOf<&Form1::DTPInterval>},
    {.key = "path=",
     .written = 37,
     .read = 12,
     .line = SettingsLine::closed,
     .field = {.get = checkedRows, .set = selectRows}},
};

}  // namespace

std::span<const SettingsKey> watchKeys() {
    return watchEntries;
}

}  // namespace velmora
