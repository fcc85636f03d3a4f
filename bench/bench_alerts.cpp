// A million alerts: what each costs in time and memory, and what is done with them all.
#include <malloc.h>

#include <cstdio>
#include <string>
#include <vector>

#include "bench_program.h"

using namespace velmora;

namespace {

constexpr int total = 1000000;
constexpr int step = total / 10;
constexpr int journalEntries = 100000;

std::size_t memoryInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void printMs(const std::string& what, double seconds) {
    std::printf("%-44s %10.2f ms\n", what.c_str(), seconds * 1e3);
}

// "Save" of the whole journal, into a log file that goes then.
void saveJournal(bench::Program& program) {
    Form1& form1 = program.forms.form1;
    program.host.answer = BoxAnswer::yes;
    const std::size_t megabytes = form1.txtAlert.textLength() / 1000000;
    form1.lblLog.setCaption(program.machine->toDrivePath("/tmp/velmora-bench-log.dat"));
    for (const char* which : {"first", "next"}) {
        printMs(
            std::string(which) + " \"Save\" of a journal of " + std::to_string(megabytes) + " MB",
            bench::seconds([&] { form1.lblAl[0].Click(); }));
    }
    form1.lblAl[3].Click();
}

void sortAndClear(bench::Program& program) {
    Form1& form1 = program.forms.form1;
    for (const int column : {1, 2, 3, 3}) {
        printMs("sorting by column " + std::to_string(column),
                bench::seconds([&] { form1.LVAlert.userClickPart(column); }));
    }
    printMs("\"Clear\"", bench::seconds([&] { form1.lblAl[2].Click(); }));
}

}  // namespace

int main() {
    bench::Program program;
    const std::string begin = " - ALERT: Space Shortage < 50000 KB Drive: C:[40,";
    const std::string text = begin + "000 KB]";
    std::vector<std::string> texts;
    for (int i = 100; i < 1000; ++i)
        texts.push_back(begin + std::to_string(i * 7919 % 900 + 100) + " KB]");
    const std::string time = "20260314 15:09";
    const std::size_t textBytes = text.size() + time.size() + 4;

    std::printf("\nOne million alerts\n%10s %12s\n", "alerts", "ns/alert");
    const std::size_t before = memoryInUse();
    for (int done = 0; done < total; done += step) {
        const double took = bench::seconds([&] {
            for (int i = 0; i < step; ++i) {
                const std::string& each = texts[static_cast<std::size_t>(i) % texts.size()];
                program.core.alerts().prcAlertInfo(time, rating::high, each, {}, nullptr);
            }
        });
        std::printf("%10d %12.0f\n", done + step, took / step * 1e9);
    }
    const double each = static_cast<double>(memoryInUse() - before) / total;
    std::printf("memory an alert: %.0f bytes, %.0f beyond its %zu bytes of text\n", each,
                each - static_cast<double>(textBytes), textBytes);

    // The journal grows at the front too.
    TextBox& journal = program.forms.form1.txtAlert;
    for (const int entries : {1000, journalEntries}) {
        while (journal.textLength() < text.size() * static_cast<std::size_t>(entries)) {
            journal.prepend(text);
        }
        const double took = bench::seconds([&] {
            for (int i = 0; i < 1000; ++i) journal.prepend(text);
        });
        std::printf("journal entry in front of %d: %.0f ns\n", entries, took / 1000 * 1e9);
    }
    saveJournal(program);
    sortAndClear(program);
}
