#include "shell/maker_pages.h"

#include "monitor/maker.h"

namespace velmora {

void openMakerPage(Forms& forms, Shell32& shell32, const std::string& path) {
    openByShell(forms, shell32, std::string("http://") + maker::host + path);
}

}  // namespace velmora
