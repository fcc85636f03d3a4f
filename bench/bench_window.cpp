// The window at work, as the real program shows it: bench_window start|rest|alerts|inspect.
//
//   start   prints "painted" once the main window has been painted, and ends
//   rest    watches 26 rows and idles for a minute: memory and processor time
//   alerts  a hundred thousand alerts with their page open, compared with the list alone
//   inspect a boot sector decoded, the drive information opened and its chart painted with 200 rows
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QTableWidget>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "app/window_program.h"
#include "bench_program.h"
#include "inspect/sectors/sector_decoder.h"
#include "rows/watch_row.h"

using namespace velmora;

namespace {

constexpr int rows = 26;
constexpr int alerts = 100000;
constexpr int alertsTab = 2;
constexpr int minute = 60000;

class PaintWatch : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest) {
            // After the request has been served.
            QTimer::singleShot(0, [] {
                std::puts("painted");
                std::fflush(stdout);
                std::_Exit(0);
            });
        }
        return false;
    }
};

double processorSeconds() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

long residentKB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::atol(line.c_str() + 6);
    }
    return 0;
}

void settle() {
    for (int i = 0; i < 20; ++i) QApplication::processEvents();
}

int rest(WindowProgram& program) {
    ListView& list = program.forms().form1.ListView1;
    while (list.Count() < rows) list.Add("C:\\");
    for (int i = 1; i <= list.Count(); ++i) list.userTick(i, true);
    settle();
    const double before = processorSeconds();
    QTimer::singleShot(minute, [before] {
        const double used = processorSeconds() - before;
        std::printf("memory at rest with %d rows: %.1f MB\n", rows,
                    static_cast<double>(residentKB()) / 1024);
        std::printf("processor time over a minute: %.0f ms, %.2f %% of a core\n", used * 1000,
                    used / (minute / 1000.0) * 100);
        std::fflush(stdout);
        std::_Exit(0);
    });
    return QApplication::exec();
}

double raise(AlertList& list, const std::function<void()>& yield) {
    const std::string text = " - ALERT: Space Shortage < 50000 KB Drive: C:[40,000 KB]";
    return bench::seconds([&] {
        for (int i = 0; i < alerts; ++i) {
            list.prcAlertInfo("20260314 15:09", rating::high, text, {}, nullptr);
            // A check yields between rows; here every hundred alerts count as a row.
            if (i % 100 == 0) yield();
        }
        yield();
        yield();
    });
}

int alertsBesideTheList(WindowProgram& program) {
    program.forms().form1.lblTab[alertsTab].Click();
    settle();
    bench::Program alone;
    const double withoutView = raise(alone.core.alerts(), [] {});
    const double withView = raise(program.core().alerts(), [&] { program.yield(); });
    std::printf(
        "%d alerts with their page open: %.0f ns each, the list alone %.0f ns: %.2f times\n",
        alerts, withView / alerts * 1e9, withoutView / alerts * 1e9, withView / withoutView);
    std::fflush(stdout);
    std::_Exit(0);
}

void decode() {
    constexpr int rounds = 100'000;
    std::string sector(sector::size, '\x5A');
    std::size_t made = 0;
    const double decoding = bench::seconds([&] {
        for (int i = 0; i < rounds; ++i) {
            sector[static_cast<std::size_t>(i) % sector.size()] = static_cast<char>(i);
            made += decodeSector(sector, recordOf("FAT32"), Regional{}).size();
            made += dumpOf(sector).bytes.size();
        }
    });
    const int zeros = open("/dev/zero", O_RDONLY | O_CLOEXEC);
    const double reading = bench::seconds([&] {
        for (int i = 0; i < rounds; ++i) {
            if (pread(zeros, sector.data(), sector.size(), 0) < 0) std::abort();
        }
    });
    close(zeros);
    std::printf(
        "a boot sector decoded and dumped: %.0f ns, %zu rows and digits in all; 512 bytes "
        "read: %.0f ns: %.1f times\n",
        decoding / rounds * 1e9, made, reading / rounds * 1e9, decoding / reading);
}

void fillWatchList(ListView& list, int count) {
    list.Clear();
    for (int i = 0; i < count; ++i) {
        WatchRow row(list.Add("\\\\host\\share" + std::to_string(i)));
        row.setFreeSpace(std::to_string(1000 * (i + 1)) + " KB");
        row.setTotalSize("4,000,000 KB");
    }
}

// The same rows in a plain table of Qt's, shown and painted.
double plainTable(int count) {
    return bench::seconds([&] {
        QTableWidget table(count, 3);
        table.resize(700, 500);
        for (int row = 0; row < count; ++row) {
            for (int column = 0; column < 3; ++column) {
                table.setItem(row, column, new QTableWidgetItem(QString::number(row * 1000)));
            }
        }
        table.show();
        settle();
    });
}

int inspect(WindowProgram& program) {
    constexpr int most = 200;
    constexpr int repaints = 100;
    decode();
    DlgDriveInfo& dialog = program.forms().dlgDriveInfo;
    for (const int count : {1, most, 1, most}) {
        fillWatchList(program.forms().form1.ListView1, count);
        const double opening = bench::seconds([&] {
            dialog.Show();
            settle();
        });
        std::printf(
            "drive information opened with %d rows: %.1f ms, a plain table of them: %.1f ms\n",
            count, opening * 1000, plainTable(count) * 1000);
        if (count == 1) dialog.unloadNow();
    }
    QWidget* window = program.window("dlgDriveInfo");
    const double painting = bench::seconds([&] {
        for (int i = 0; i < repaints; ++i) window->repaint();
    });
    QTableWidget table(most, 3);
    table.resize(window->size());
    table.show();
    settle();
    const double plain = bench::seconds([&] {
        for (int i = 0; i < repaints; ++i) table.viewport()->repaint();
    });
    std::printf("the dialog painted anew: %.2f ms, a plain table as large: %.2f ms: %.1f times\n",
                painting / repaints * 1000, plain / repaints * 1000, painting / plain);
    std::fflush(stdout);
    std::_Exit(0);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::string mode = argc > 1 ? argv[1] : "";
    const auto machine = openMachine();
    WindowProgram program(*machine, [](int status) { std::_Exit(status); });
    PaintWatch watch;
    if (mode == "start") program.window("Form1")->installEventFilter(&watch);
    program.load();
    if (mode == "rest") return rest(program);
    settle();
    if (mode == "inspect") return inspect(program);
    if (mode == "alerts") return alertsBesideTheList(program);
    return QApplication::exec();
}
