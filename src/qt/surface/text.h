// Conversion of texts between the program (UTF-8) and the widgets (UTF-16).
#pragma once

#include <QString>
#include <string>

namespace velmora::qt {

inline QString shown(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string typed(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// Line ends as widgets know them.
inline QString shownLines(const std::string& text) {
    QString lines = shown(text);
    return lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace velmora::qt
