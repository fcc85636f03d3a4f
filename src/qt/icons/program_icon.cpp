#include "qt/icons/program_icon.h"

// A static library's resources have to be asked for, from outside of any namespace.
static void registerPictures() {
    Q_INIT_RESOURCE(icons);
}

namespace velmora::qt {
namespace {

// As in tools/make_icons.py.
constexpr int sizes[] = {16, 20, 24, 32, 40, 48, 64, 128, 256};

QIcon iconOf(const QString& name) {
    registerPictures();
    QIcon icon;
    for (const int size : sizes) {
        icon.addFile(QStringLiteral(":/icons/%1-%2.png").arg(name).arg(size), {size, size});
    }
    return icon;
}

}  // namespace

// Each is kept: decoding its pictures is a tenth of the instructions of a start.
QIcon programIcon() {
    static const QIcon icon = iconOf(QStringLiteral("velmora"));
    return icon;
}
QIcon alertIcon() {
    static const QIcon icon = iconOf(QStringLiteral("velmora-alert"));
    return icon;
}
QIcon pausedIcon() {
    static const QIcon icon = iconOf(QStringLiteral("velmora-paused"));
    return icon;
}

}  // namespace velmora::qt
