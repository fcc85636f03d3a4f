#include "notify/message_content.h"

#include <algorithm>

#include "base/convert.h"
#include "base/format_number.h"
#include "base/input_fields.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "forms/form_numbers.h"
#include "notify/report_text.h"

namespace velmora {

namespace {

constexpr std::uint32_t memoryRecordLength = 32;
constexpr double bytesPerKB = 1024;
constexpr const char* kbPicture = "#,###";
constexpr int mostAlerts = 15;
constexpr int mostRows = 150;
constexpr std::int16_t designEvents = 4;
constexpr std::uint32_t userBuffer = 255;

int rowLimit(const ListView& list) {
    const int count = list.Count();
    if (contains(lowerCase(list.Tag()), "alert") && count > mostAlerts) return mostAlerts;
    return std::min(count, mostRows);
}

// The headings and the cells of a row, side by side.
std::string rowText(const ListView& list, const ListItem& row) {
    std::string text;
    for (int cell = 0; cell <= row.SubItemCount(); ++cell) {
        const std::string& value = cell == 0 ? row.Text() : row.SubItems(cell);
        text += list.ColumnHeaders(cell + 1).Text + ": " + value + " ";
    }
    return text + endLine() + report::rule + endLine();
}

}  // namespace

std::string MessageContent::prcNotPreContent() {
    const ListBox& sections = forms_.frmNotify.lstNotContent;
    std::string result;
    for (int i = 0; i < sections.ListCount(); ++i) {
        if (sections.Selected(i)) result += section(i) + endLine() + endLine();
    }
    return result;
}

std::string MessageContent::mailBody() {
    std::string body;
    resumeNext([&] {
        body = prcNotPreContent() + endLine() + "Custom Message: " + endLine() +
               forms_.frmNotify.txtCustMsg.Text();
    });
    return body;
}

// What the first four entries say and what they hold do not agree.
std::string MessageContent::section(int index) {
    Form1& form1 = forms_.form1;
    switch (index) {
        case mail_section::watchList:
            return prcNotContent(form1.ListView1);
        case mail_section::alerts:
            return prcNotContent(form1.LVAlert);
        case mail_section::files:
            return prcNotContent(form1.LVFile);
        case mail_section::programs:
            return prcNotContent(form1.LVProg);
        case mail_section::processes:
            return inventory_.prcProcessText();
        case mail_section::memory:
            return memory();
        case mail_section::customFile:
            return prcNotOpenCustFile();
        case mail_section::users:
            return inventory_.prcWMI_LogOnUser() + endLine() + report::rule;
        case mail_section::runningTime:
            return prcTimeRunning();
        case mail_section::events:
            return events();
        default:
            return {};
    }
}

// A handler may remove rows during a yield: the section ends with the list then.
std::string MessageContent::prcNotContent(const ListView& listView) {
    std::string text = listView.Tag() + endLine() + report::rule + endLine();
    if (listView.Count() == 0) return text + "no info";
    const int limit = rowLimit(listView);
    for (int i = 1; i <= limit && i <= listView.Count(); ++i) {
        text += rowText(listView, listView.ListItems(i));
        host_.DoEvents();
    }
    return text;
}

std::string MessageContent::memory() {
    MemoryStatus status{.dwLength = memoryRecordLength};
    platform_.kernel32.GlobalMemoryStatus(status);
    const Regional& regional = platform_.regional;
    const std::string total = Format(status.dwTotalPhys / bytesPerKB, kbPicture, regional);
    const std::string available = Format(status.dwAvailPhys / bytesPerKB, kbPicture, regional);
    // Nothing is an empty text in this picture.
    const double used =
        readNumber(total, regional).value_or(0) - readNumber(available, regional).value_or(0);
    return "Ramdon Access Memory (RAM) Status" + endLine() + report::rule + endLine() +  //
           "Total RAM: " + total + " KB" + endLine() +                                   //
           "Used RAM: " + Format(used, kbPicture, regional) + " KB" + endLine() +        //
           "Avaliable RAM: " + available + " KB" + endLine() +                           //
           endLine() + inventory_.prcWMI_RamInfo() + endLine() + report::rule + endLine();
}

// The number stands in the box of the custom message, not in the one made for it.
std::string MessageContent::events() {
    const std::string& text = forms_.frmNotify.txtCustMsg.Text();
    const Regional& regional = platform_.regional;
    return inventory_.prcWMI_NTEvt(isNumeric(text, regional) ? toInteger(text, regional)
                                                             : designEvents);
}

std::string MessageContent::prcNotOpenCustFile() {
    const std::string named = forms_.frmNotify.txtCustomContent.Text();
    const std::string path = trim(named);
    std::string text = "File Contents: " + named + endLine() + report::rule + endLine();
    if (platform_.fso.FileExists(path)) {
        const std::string content = attempt("read the file for the mail", path,
                                            [&] { return platform_.files.readAll(path); });
        InputFields fields(content);
        while (!fields.atEnd()) text += fields.next() + endLine();
    } else {
        text += "File Access Error";
    }
    return text + endLine() + report::rule;
}

std::string MessageContent::prcTimeRunning() {
    const double seconds = static_cast<double>(platform_.clock.GetTickCount()) / 1000;
    return "System running time: " + endLine() + report::rule + endLine() +
           "Seconds: " + toText(seconds, platform_.regional);
}

std::string MessageContent::prcCurrentUser() {
    std::string name(userBuffer, '\0');
    std::uint32_t size = userBuffer;
    if (!platform_.advapi32.GetUserNameA(name, size)) return {};
    return name.substr(0, size - 1);
}

}  // namespace velmora
