#include "persist/settings_file.h"

#include "base/convert.h"
#include "persist/settings_reader.h"
#include "persist/settings_writer.h"

namespace velmora {

void SettingsFile::prcSettings(std::int16_t bSet) {
    const std::string& path = forms_.globals.strSettings;
    if (bSet == 1) {
        platform_.files.writeOver(path, settingsText(forms_, platform_.regional));
    } else if (bSet == 2) {
        readSettings(platform_.files.readAll(path), forms_, platform_);
    }
    TextBox& txtTime = forms_.form1.txtTime;
    if (toDouble(txtTime.Text(), platform_.regional) <= 0) txtTime.setText("5");
}

}  // namespace velmora
