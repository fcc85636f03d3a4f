// The file with the figures of the watch.
#include "app/metrics_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "wired_rig.h"

namespace velmora::tests {
namespace {

namespace fs = std::filesystem;

/// The wired program with a metrics file in a folder of its own.
struct MetricsFileRig : testing::Test {
    MetricsFileRig() {
        fs::create_directory(folder);
        machine.drives["C:"] = {50e9, 100e9};
        machine.files["C:\\Program Files\\Velmora\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
        machine.platform().app.Options.metricsFile = file.string();
    }
    ~MetricsFileRig() override { fs::remove_all(folder); }
    MetricsFileRig(const MetricsFileRig&) = delete;
    MetricsFileRig& operator=(const MetricsFileRig&) = delete;

    /// A check, whatever the interval.
    void check() {
        forms.form1.DTPInterval.setMinute(0);
        forms.form1.Timer1.Tick();
    }
    std::string content() const {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// The value of a figure of the whole watch.
    std::string figure(const std::string& name) const {
        const std::string text = "\n" + content();
        const std::size_t at = text.find("\n" + name + " ");
        if (at == std::string::npos) return "";
        const std::size_t value = at + name.size() + 2;
        return text.substr(value, text.find('\n', value) - value);
    }

    fs::path folder =
        fs::temp_directory_path() / ("velmora-metrics-" + std::to_string(std::random_device{}()));
    fs::path file = folder / "velmora.prom";
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
    std::vector<std::string> notes;
    std::optional<MetricsFile> metrics;
    ScopedConnection said;
    void start() {
        metrics.emplace(core, forms, machine.platform());
        said = forms.hints.Said.connect(
            [this](const Hint& hint) { notes.push_back(hint.field + ": " + hint.text); });
        core.load();
    }
};

TEST_F(MetricsFileRig, IsWrittenAfterEachCheck) {
    start();
    EXPECT_FALSE(fs::exists(file));
    check();
    EXPECT_EQ(figure("velmora_checks_total"), "1");
    check();
    EXPECT_EQ(figure("velmora_checks_total"), "2");
    EXPECT_TRUE(content().ends_with("# EOF\n"));
    EXPECT_TRUE(notes.empty());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(MetricsFileRig, HasTheTimeOfTheCheck) {
    start();
    machine.now = {2026, 3, 14, 15, 9, 26};
    machine.tick = 5'000'999;
    check();
    EXPECT_EQ(figure("velmora_last_check_timestamp_seconds"), "1773500966");
}

TEST_F(MetricsFileRig, OneThatCannotBeWrittenIsAHint) {
    start();
    fs::remove(folder);
    check();
    check();
    EXPECT_EQ(notes, std::vector<std::string>{"--metrics-file: The metrics can't be written: " +
                                              file.string()});
    EXPECT_EQ(forms.globals.lngTimesChecked, 2);
    fs::create_directory(folder);
    check();
    EXPECT_EQ(figure("velmora_checks_total"), "3");
}

TEST_F(MetricsFileRig, AFailureLeavesTheOldFiguresAndNoPart) {
    start();
    fs::create_directory(file);
    check();
    EXPECT_EQ(notes.size(), 1U);
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

TEST_F(MetricsFileRig, NothingIsWrittenWithoutTheOption) {
    machine.platform().app.Options.metricsFile.clear();
    start();
    check();
    EXPECT_TRUE(fs::is_empty(folder));
    EXPECT_TRUE(notes.empty());
}

TEST_F(MetricsFileRig, ALinkInPlaceOfThePartIsNotFollowed) {
    start();
    std::ofstream(folder / "other") << "kept";
    std::error_code failure;
    fs::create_symlink(folder / "other", folder / "velmora.prom.part", failure);
    if (failure) GTEST_SKIP() << "no links here: " << failure.message();
    check();
    std::ifstream other(folder / "other");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(other), {}), "kept");
    EXPECT_EQ(figure("velmora_checks_total"), "1");
}

}  // namespace
}  // namespace velmora::tests
