// A thousand and ten thousand listed files moved and deleted, compared with mv and rm.
#include <sys/stat.h>

#include <cstdio>
#include <string>

#include "bench_program.h"
#include "scratch_folder.h"

using namespace velmora;

namespace {

void run(const std::string& command) {
    if (std::system(command.c_str()) != 0) std::printf("failed: %s\n", command.c_str());
}

struct Listed {
    bench::ScratchFolder scratch;
    bench::Program program;
    Form1& form1 = program.forms.form1;
    std::string source = scratch.at("source");
    std::string target = scratch.at("target");
    int files;

    explicit Listed(int count) : files(count) {
        program.core.load();
        form1.ListView1.Clear();
        renew();
    }
    /// Makes the files again, each with a row.
    void renew() {
        run("rm -rf " + source + " " + target);
        mkdir(source.c_str(), 0755);
        mkdir(target.c_str(), 0755);
        scratch.fill(source, 0, files);
        form1.LVFile.Clear();
        std::vector<std::string> paths;
        for (int i = 0; i < files; ++i) {
            paths.push_back(program.machine->toDrivePath(source + "/some file of a log " +
                                                         std::to_string(i) + ".txt"));
        }
        form1.LVFile.userDrop(paths);
    }
};

void report(const char* what, int files, double ours, const char* peer, double theirs) {
    std::printf("%-34s %8.1f us a file, %s %8.1f, ratio %.2f\n", what, ours / files * 1e6, peer,
                theirs / files * 1e6, ours / theirs);
}

void compare(int files) {
    std::printf("\n%d listed files\n", files);
    Listed listed(files);
    Form1& form1 = listed.form1;
    listed.program.host.answer = BoxAnswer::yes;
    form1.txtDrive.setText(listed.program.machine->toDrivePath(listed.target) + "\\");
    const double move = bench::seconds([&] { form1.lblSF[file_button::moveAll].Click(); });
    if (form1.LVFile.Count() != 0) std::printf("%d rows are left\n", form1.LVFile.Count());
    listed.renew();
    const double mv = bench::seconds([&] {
        run("find " + listed.source + " -type f -print0 | xargs -0 mv -t " + listed.target);
    });
    report("Move All", files, move, "mv", mv);

    listed.renew();
    listed.program.host.answer = BoxAnswer::no;
    const double remove = bench::seconds([&] { form1.lblSF[file_button::deleteAll].Click(); });
    if (form1.LVFile.Count() != 0) std::printf("%d rows are left\n", form1.LVFile.Count());
    listed.renew();
    const double rm =
        bench::seconds([&] { run("find " + listed.source + " -type f -print0 | xargs -0 rm"); });
    report("Delete All", files, remove, "rm", rm);
}

}  // namespace

int main() {
    for (const int files : {1000, 10000}) compare(files);
}
