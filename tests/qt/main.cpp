#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Printers of this machine are none of the tests' business.
    qputenv("CUPS_SERVER", "/nowhere");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // The same look on every machine.
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
