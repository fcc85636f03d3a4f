// velmora-display: whether a window could be shown here. Qt ends a program that can't open its
// display, so ./run tries it here before it chooses between window and console.
#include <QGuiApplication>

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    return 0;
}
