#include "qt/print/printing.h"

#include <optional>
#include <utility>

#include "qt/print/printed_pages.h"
#include "qt/surface/no_input.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// What the user has to know of a job's end.
std::optional<Box> boxFor(const PrintResult& result) {
    switch (result.end) {
        case PrintEnd::noPrinter:
            return Box{.text = "Nothing was printed: there is no printer on this computer.",
                       .icon = BoxIcon::information};
        case PrintEnd::failed: {
            const QString what =
                result.page <= 1
                    ? QStringLiteral("The chart wasn't printed")
                    : QStringLiteral("The chart wasn't printed from page %1 on").arg(result.page);
            return Box{.text = typed(QStringLiteral("%1: %2.").arg(what, result.reason)),
                       .icon = BoxIcon::critical};
        }
        case PrintEnd::printed:
        case PrintEnd::cancelled:
            break;
    }
    return std::nullopt;
}

}  // namespace

Printing::Printing(std::unique_ptr<PrintSystem> system, Host& host, UserHand& hand,
                   std::function<DateTime()> now)
    : system_(std::move(system)), host_(host), hand_(hand), now_(std::move(now)) {}

void Printing::print(QWidget* window, Printout printout) {
    PrintedPages pages(std::move(printout), shown(dateText(now(), regional())));
    const PrintResult result = [&] {
        const NoInput noInput;
        return system_->print(window, pages);
    }();
    // The program may have ended while the dialog was open.
    hand_.throwWhenEnded();
    if (const std::optional<Box> box = boxFor(result)) host_.MsgBox(*box);
}

}  // namespace velmora::qt
