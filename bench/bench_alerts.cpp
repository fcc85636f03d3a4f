// A million alerts: what each costs in time and memory.
#include <malloc.h>

#include <cstdio>
#include <string>

#include "bench_program.h"

using namespace velmora;

namespace {

constexpr int total = 1000000;
constexpr int step = total / 10;

std::size_t memoryInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

}  // namespace

int main() {
    bench::Program program;
    const std::string text = " - ALERT: Space Shortage < 50000 KB Drive: C:[40,000 KB]";
    const std::string time = "20260314 15:09";
    const std::size_t textBytes = text.size() + time.size() + 4;

    std::printf("\nOne million alerts\n%10s %12s\n", "alerts", "ns/alert");
    const std::size_t before = memoryInUse();
    for (int done = 0; done < total; done += step) {
        const double took = bench::seconds([&] {
            for (int i = 0; i < step; ++i) {
                program.core.alerts().prcAlertInfo(time, rating::high, text, {}, nullptr);
            }
        });
        std::printf("%10d %12.0f\n", done + step, took / step * 1e9);
    }
    const double each = static_cast<double>(memoryInUse() - before) / total;
    std::printf("memory an alert: %.0f bytes, %.0f beyond its %zu bytes of text\n", each,
                each - static_cast<double>(textBytes), textBytes);

    // The journal grows at the front too.
    TextBox& journal = program.forms.form1.txtAlert;
    for (const int entries : {1000, 100000}) {
        while (journal.textLength() < text.size() * static_cast<std::size_t>(entries)) {
            journal.prepend(text);
        }
        const double took = bench::seconds([&] {
            for (int i = 0; i < 1000; ++i) journal.prepend(text);
        });
        std::printf("journal entry in front of %d: %.0f ns\n", entries, took / 1000 * 1e9);
    }
}
