#include "shell/recycle_bin_view.h"

#include "platform/show_window.h"

namespace velmora {

namespace {

constexpr const char* recycleBin = "::{645FF040-5081-101B-9F08-00AA002F954E}";
// Computer, control panel, scheduled tasks.
constexpr const char* scheduledTasks =
    "::{20D04FE0-3AEA-1069-A2D8-08002B30309D}\\::{21EC2020-3AEA-1069-A2DD-08002B30309D}\\"
    "::{D6277990-4C6A-11CF-8D87-00AA0060F5BF}";

}  // namespace

RecycleBinView::RecycleBinView(Icon1& icon1, Shell32& shell32) : icon1_(icon1), shell32_(shell32) {
    icon1_.Command1.Click.connect([this] { RecycleBin(); });
    icon1_.Command2.Click.connect([this] { ScheduledTasks(); });
}

void RecycleBinView::RecycleBin() {
    explore(recycleBin);
}

void RecycleBinView::ScheduledTasks() {
    explore(scheduledTasks);
}

void RecycleBinView::explore(const char* place) {
    shell32_.ShellExecuteA(icon1_.Name(), "open", "Explorer", place, "", normalWindow);
}

}  // namespace velmora
