// A check of many watched rows with every event looked for, compared with one without events; and
// the save of the journal's new part after a short and a long journal.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bench_program.h"
#include "rows/watch_row.h"
#include "scratch_folder.h"

using namespace velmora;

namespace {

constexpr int rounds = 9;

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The roots of this machine's ready drives, repeated.
void watch(bench::Program& program, int rows) {
    ListView& list = program.forms.form1.ListView1;
    std::vector<std::string> roots;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (row.isAvailable()) roots.push_back(row.path());
    }
    const std::string free = ConstWatchRow(list.ListItems(1)).freeSpace();
    list.Clear();
    for (int i = 0; i < rows; ++i) {
        ListItem& row = list.Add(roots[static_cast<std::size_t>(i) % roots.size()]);
        WatchRow(row).setFreeSpace(free);
        row.setChecked(true);
    }
}

double check(bench::Program& program) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        times.push_back(bench::seconds([&] { program.forms.form1.Timer1.Tick(); }));
    }
    return median(times);
}

void measureEvents(int rows) {
    bench::Program program;
    program.core.load();
    Form1& form1 = program.forms.form1;
    watch(program, rows);
    form1.txtSpace.setText("1");
    form1.DTPInterval.setMinute(0);
    const double plain = check(program);
    // All except unavailable paths, which end a pass at the first row.
    for (int event = evt::stagnancy; event < evt::unavailable; ++event) {
        form1.lstEvt.setSelected(event, true);
    }
    const double events = check(program);
    std::printf("%d rows: %.1f ms a check, %.1f us a row; without events %.1f ms\n", rows,
                events * 1e3, events / rows * 1e6, plain * 1e3);
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
    std::printf("\nA check with every event\n");
    measureEvents(1000);
    std::printf("\nThe log\n");
    for (const int entries : {10, 100000}) measureLog(entries);
}
