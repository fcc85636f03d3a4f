#include "persist/settings_file.h"

#include "base/convert.h"
#include "base/runtime_error.h"
#include "persist/settings_reader.h"
#include "persist/settings_writer.h"

namespace velmora {

void SettingsFile::prcSettings(std::int16_t bSet) {
    if (bSet == settings_order::write) {
        write();
    } else if (bSet == settings_order::read) {
        readSettings(platform_.files.readAll(forms_.globals.strSettings), forms_, platform_);
    }
    TextBox& txtTime = forms_.form1.txtTime;
    if (toDouble(txtTime.Text(), platform_.regional) <= 0) txtTime.setText("5");
}

void SettingsFile::write() {
    std::string text;
    const std::string& path = forms_.globals.strSettings;
    const auto store = [&] {
        attempt("save the settings", path, [&] {
            platform_.files.writeOver(path, text,
                                      {.reservesRoom = platform_.app.Options.keepRunning});
        });
    };
    try {
        appendSettings(text, forms_, platform_.regional, host_);
    } catch (const RuntimeError&) {
        store();
        throw;
    }
    store();
}

}  // namespace velmora
