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

/// Control characters, which a widget would draw as nothing or cut a text at, as dots in the middle
/// of the line. Line ends and tabs stay.
inline QString withVisibleControls(QString text) {
    constexpr char16_t middleDot = 0xB7;
    for (QChar& letter : text) {
        const bool stays = letter == u'\n' || letter == u'\r' || letter == u'\t';
        if (letter.category() == QChar::Other_Control && !stays) letter = middleDot;
    }
    return text;
}

}  // namespace velmora::qt
