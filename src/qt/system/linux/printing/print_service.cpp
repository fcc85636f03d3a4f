#include "qt/system/linux/printing/print_service.h"

#include <QLibrary>
#include <QPrintEngine>
#include <QStringList>

namespace velmora::qt {

bool serviceChoosesPages(const QPrinter& printer) {
    // The property in which Qt's dialog leaves the options of a job, by pairs of name and value.
    constexpr auto options = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);
    return printer.printEngine()->property(options).toStringList().contains(
        QLatin1String("page-ranges"));
}

QString serviceRefusal() {
    constexpr int firstError = 0x0400;  // states below are those of success
    QLibrary library(QStringLiteral("cups"), 2);
    const auto state = reinterpret_cast<int (*)()>(library.resolve("cupsLastError"));
    const auto words = reinterpret_cast<const char* (*)()>(library.resolve("cupsLastErrorString"));
    if (state == nullptr || words == nullptr || state() < firstError) return {};
    return QString::fromUtf8(words());
}

}  // namespace velmora::qt
