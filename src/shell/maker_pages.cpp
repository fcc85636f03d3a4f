#include "shell/maker_pages.h"

#include "base/maker.h"

namespace velmora {

void openMakerPage(const Form1& form1, Shell32& shell32, const std::string& path) {
    openByShell(form1, shell32, std::string("http://") + maker::host + path);
}

}  // namespace velmora
