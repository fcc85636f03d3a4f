// A check over many watched rows, compared with the bare system call for each of them. The numbers
// of rows may be given.
#include <sys/statvfs.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench_program.h"
#include "rows/watch_row.h"

using namespace velmora;

namespace {

constexpr int rounds = 15;

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

    // As in a window, which can't tell whether anything ran at a yield, and as in the console.
    std::vector<double> measured, served, calls;
    const int repeats = std::max(1, 2000 / rows);
    const auto check = [&](bool knows) {
        program.host.knowsThatNothingRan = knows;
        for (int i = 0; i < repeats; ++i) form1.Timer1.Tick();
    };
    for (int round = 0; round < rounds; ++round) {
        measured.push_back(bench::seconds([&] { check(false); }));
        served.push_back(bench::seconds([&] { check(true); }));
        calls.push_back(bench::seconds([&] {
            for (int i = 0; i < repeats; ++i) bareCalls(folders, rows);
        }));
    }
    const auto perRow = [&](const std::vector<double>& values) {
        return *std::min_element(values.begin(), values.end()) / repeats / rows * 1e9;
    };
    const double call = perRow(calls);
    std::printf("%8d %14.0f %14.0f %14.0f %8.2f %8.2f\n", rows, perRow(measured), perRow(served),
                call, perRow(measured) / call, perRow(served) / call);
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> sizes;
    for (int i = 1; i < argc; ++i) sizes.push_back(std::max(1, std::atoi(argv[i])));
    if (sizes.empty()) sizes = {1, 26, 1000, 10000};
    std::printf("A check beside the bare system calls (best of %d rounds)\n", rounds);
    std::printf("%8s %14s %14s %14s %8s %8s\n", "rows", "each measured", "drives served",
                "statvfs ns", "ratio", "ratio");
    for (const int rows : sizes) measure(rows);
}
