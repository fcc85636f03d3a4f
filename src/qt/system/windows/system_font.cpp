#include "qt/system/system_font.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QSettings>

namespace velmora::qt {

void useSystemFont() {
    QFont font = QApplication::font();
    if (QFontDatabase::hasFamily(font.family())) return;
    // The system may name its font by an alias ("MS Shell Dlg"), of which Qt knows nothing: it would
    // take the first font that there is.
    const QSettings aliases(
        QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes"),
        QSettings::NativeFormat);
    const QString family = aliases.value(font.family()).toString();
    if (family.isEmpty() || !QFontDatabase::hasFamily(family)) return;
    font.setFamily(family);
    QApplication::setFont(font);
}

}  // namespace velmora::qt
