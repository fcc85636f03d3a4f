// A check over many watched rows, compared with the bare system call for each of them.
#include <sys/statvfs.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench_program.h"
#include "rows/watch_row.h"

using namespace velmora;

namespace {

constexpr int rounds = 15;

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The drives' mount points, for the bare call.
std::vector<std::string> mountPoints(Machine& machine, const std::vector<std::string>& roots) {
    std::vector<std::string> folders;
    for (const std::string& root : roots) folders.push_back(machine.toHostPath(root));
    return folders;
}

void bareCalls(const std::vector<std::string>& folders, int rows) {
    struct statvfs space {};
    for (int i = 0; i < rows; ++i) {
        if (statvfs(folders[static_cast<std::size_t>(i) % folders.size()].c_str(), &space) != 0) {
            std::perror("statvfs");
        }
    }
}

void measure(int rows) {
    bench::Program program;
    program.core.load();
    Form1& form1 = program.forms.form1;
    std::vector<std::string> roots;
    for (int i = 1; i <= form1.ListView1.Count(); ++i) {
        // Drives that may block are asked in another process; the bare call can't be compared.
        const ConstWatchRow row(form1.ListView1.ListItems(i));
        if (row.isAvailable()) roots.push_back(row.path());
    }
    const auto folders = mountPoints(*program.machine, roots);
    form1.ListView1.Clear();
    for (int i = 0; i < rows; ++i) {
        form1.ListView1.Add(roots[static_cast<std::size_t>(i) % roots.size()]).setChecked(true);
    }
    form1.txtSpace.setText("1");
    form1.DTPInterval.setMinute(0);

    std::vector<double> checks, calls;
    const int repeats = std::max(1, 2000 / rows);
    for (int round = 0; round < rounds; ++round) {
        checks.push_back(bench::seconds([&] {
            for (int i = 0; i < repeats; ++i) form1.Timer1.Tick();
        }));
        calls.push_back(bench::seconds([&] {
            for (int i = 0; i < repeats; ++i) bareCalls(folders, rows);
        }));
    }
    const double perRow = median(checks) / repeats / rows * 1e9;
    const double perCall = median(calls) / repeats / rows * 1e9;
    std::printf("%8d %14.0f %14.0f %8.2f\n", rows, perRow, perCall, perRow / perCall);
}

}  // namespace

int main() {
    std::printf("A check beside the bare system calls (median of %d rounds)\n", rounds);
    std::printf("%8s %14s %14s %8s\n", "rows", "check ns/row", "statvfs ns", "ratio");
    for (const int rows : {1, 26, 1000, 10000}) measure(rows);
}
