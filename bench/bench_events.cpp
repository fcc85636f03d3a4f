// A check of many watched rows as it is in use, without events and with every event looked for,
// compared with bare system calls on the same roots; and the save of the journal's new part after a
// short and a long journal.
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bare_calls.h"
#include "bench_program.h"
#include "rows/watch_row.h"
#include "scratch_folder.h"

using namespace velmora;

namespace {

// Short pieces of work, as often as needed to find one that nothing has interrupted.
int roundsOf(int rows) {
    return rows > 1 ? 41 : 5;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

std::vector<std::string> readyRoots(bench::Program& program) {
    const ListView& list = program.forms.form1.ListView1;
    std::vector<std::string> roots;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (row.isAvailable()) roots.push_back(row.path());
    }
    return roots;
}

// These roots, repeated.
void watch(bench::Program& program, const std::vector<std::string>& roots, int rows) {
    ListView& list = program.forms.form1.ListView1;
    list.Clear();
    for (int i = 0; i < rows; ++i) {
        ListItem& row = list.Add(roots[static_cast<std::size_t>(i) % roots.size()]);
        WatchRow(row).setFreeSpace("1 KB");
        row.setChecked(true);
    }
}

double check(bench::Program& program, int rows) {
    return bench::best(roundsOf(rows), [&] { program.forms.form1.Timer1.Tick(); });
}

// Microseconds of one bare call for each root, by the best of some rounds.
double bare(const std::vector<std::string>& paths, int rows,
            const std::function<void(const std::string&)>& call) {
    const double time = bench::best(roundsOf(rows), [&] {
        for (int i = 0; i < rows; ++i) call(paths[static_cast<std::size_t>(i) % paths.size()]);
    });
    return time / rows * 1e6;
}

void measureEvents(bench::Program& program, const std::vector<std::string>& roots, int rows) {
    Form1& form1 = program.forms.form1;
    watch(program, roots, rows);
    form1.txtSpace.setText("1");
    form1.DTPInterval.setMinute(0);
    const double plain = check(program, rows) / rows * 1e6;
    // All except unavailable paths, which end a pass at the first row.
    for (int event = evt::stagnancy; event < evt::unavailable; ++event) {
        form1.lstEvt.setSelected(event, true);
    }
    const double events = check(program, rows) / rows * 1e6;
    for (int event = evt::stagnancy; event < evt::unavailable; ++event) {
        form1.lstEvt.setSelected(event, false);
    }
    std::vector<std::string> paths;
    for (const std::string& root : roots) paths.push_back(program.machine->toHostPath(root));
    const double space = bare(paths, rows, [](const std::string& path) {
        struct statvfs answer {};
        statvfs(path.c_str(), &answer);
    });
    const double names =
        bare(paths, rows, [](const std::string& path) { bench::bareScan(path, false); });
    const double times =
        bare(paths, rows, [](const std::string& path) { bench::bareScan(path, true); });
    std::printf("%6d %8.1f %8.2f %6.1f %8.1f %8.1f %6.2f %8.1f %6.2f\n", rows, plain, space,
                plain / space, events, names, events / names, times, events / times);
}

// A drive that has no link in its root.
bool mountDrive(const std::string& folder, int files) {
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return false;
    if (mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=100M") != 0) return false;
    for (int i = 0; i < files; ++i) {
        const std::string name = folder + "/file of a log " + std::to_string(i);
        close(open(name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
    }
    return true;
}

void measureDrives() {
    std::printf("%6s %8s %8s %6s %8s %8s %6s %8s %6s\n", "rows", "check", "statvfs", "ratio",
                "events", "names", "ratio", "times", "ratio");
    {
        bench::Program program;
        program.core.load();
        measureEvents(program, readyRoots(program), 100);
    }
    for (const auto& [files, rows] : {std::pair(30, 100), std::pair(200'000, 1)}) {
        bench::ScratchFolder scratch;
        if (!mountDrive(scratch.path(), files)) {
            std::printf("no drive could be mounted\n");
            return;
        }
        {
            bench::Program program;
            program.core.load();
            const std::string root = program.machine->toDrivePath(scratch.path());
            measureEvents(program, {root}, rows);
        }
        umount2(scratch.path().c_str(), MNT_DETACH);
    }
}

void measureLog(int entries) {
    bench::Program program;
    bench::ScratchFolder scratch;
    program.core.load();
    Form1& form1 = program.forms.form1;
    form1.ListView1.Clear();
    form1.DTPInterval.setMinute(0);
    form1.chkAutoSave.setValue(1);
    form1.lblLog.setCaption(program.machine->toDrivePath(scratch.at("log.dat")));
    const std::string entry =
        "03/14/26 15:09:26 - ALERT: Space Shortage < 50000 KB Drive: C:[40,000 KB]\r\n . \r\n";
    for (int i = 0; i < entries; ++i) form1.txtAlert.prepend(entry);
    form1.Timer1.Tick();
    std::vector<double> times;
    for (int i = 0; i < 101; ++i) {
        form1.txtAlert.prepend(entry);
        times.push_back(bench::seconds([&] { form1.Timer1.Tick(); }));
    }
    const auto saved = std::filesystem::file_size(scratch.at("log.dat"));
    std::printf("saving one entry after %d: %.1f us, with its check; log.dat has %.1f KB\n",
                entries, median(times) * 1e6, static_cast<double>(saved) / 1024);
}

}  // namespace

int main() {
    std::printf(
        "\nA check, us a row, beside statvfs; with every event, beside a listing of the names\n"
        "and one with the times: this machine's drives, one of 30 files, one of 200,000\n");
    measureDrives();
    std::printf("\nThe log\n");
    for (const int entries : {10, 100000}) measureLog(entries);
}
