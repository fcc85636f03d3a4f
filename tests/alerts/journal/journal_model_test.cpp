// Random sequences of operations on a journal, compared byte by byte with a plain rule of what the
// file must contain; and every operation with each of its calls failing.
#include "alerts/journal/log_rig.h"

#include <algorithm>
#include <functional>
#include <random>

namespace velmora::tests {
namespace {

/// The rule in its plainest form: the journal as a list of characters, the mark as a number.
struct PlainJournal {
    std::vector<std::string> characters;
    std::size_t mark = 0;
    std::string file;
    bool autoSave = true;

    std::string text(std::size_t count) const {
        std::string all;
        for (std::size_t i = 0; i < count; ++i) all += characters[i];
        return all;
    }
    void enter(const std::vector<std::string>& entry) {
        characters.insert(characters.begin(), entry.begin(), entry.end());
    }
    void endOfCheck() {
        if (!autoSave || characters.size() <= mark) return;
        file += text(characters.size() - mark) + "\r\n";
        mark = characters.size();
    }
    void saveWhole() { file += text(characters.size()) + "\r\n"; }
};

class JournalLife {
  public:
    explicit JournalLife(unsigned seed) : random_(seed) { rig_.machine.files[rig_.path] = ""; }

    void live(int steps) {
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            step(static_cast<int>(random_() % 12));
            compare();
        }
    }

  private:
    void step(int kind) {
        switch (kind) {
            case 0:
                rig_.click("Clear");
                plain_.characters.clear();
                return;
            case 1:
                saveByButton(random_() % 2 == 0);
                return;
            case 2:
                rig_.log.prcSaveLog();
                if (plain_.autoSave) plain_.saveWhole();
                return;
            case 3:
                plain_.autoSave = !plain_.autoSave;
                rig_.form1.chkAutoSave.setValue(plain_.autoSave ? 1 : 0);
                return;
            case 4:
                failToSave();
                return;
            case 5:
                // A view reads the whole text, which joins it.
                EXPECT_EQ(rig_.journal.Text(), plain_.text(plain_.characters.size()));
                return;
            case 6:
            case 7:
            case 8:
                rig_.log.saveNewEntries();
                plain_.endOfCheck();
                return;
            default:
                enter();
        }
    }

    void saveByButton(bool agreed) {
        rig_.answer(agreed ? BoxAnswer::yes : BoxAnswer::no);
        rig_.click("Save");
        if (agreed) plain_.saveWhole();
    }

    void failToSave() {
        const bool writes = plain_.autoSave && plain_.characters.size() > plain_.mark;
        rig_.machine.log.failCall(1, error::permissionDenied);
        EXPECT_EQ(errorOf([this] { rig_.log.saveNewEntries(); }),
                  writes ? error::permissionDenied : 0);
        rig_.machine.log.failNone();
    }

    void enter() {
        static const std::vector<std::string> signs{"a", "Z", " ",  "\r",   "\n", ".",
                                                    "é", "ß", "日", "🙂", "|",  "'"};
        std::vector<std::string> entry(random_() % 12);
        std::string bytes;
        for (std::string& sign : entry) bytes += sign = signs[random_() % signs.size()];
        for (const char* sign : {"\r", "\n", " ", ".", " ", "\r", "\n"}) entry.push_back(sign);
        rig_.enter(bytes);
        plain_.enter(entry);
    }

    void compare() {
        EXPECT_EQ(rig_.file(), plain_.file);
        EXPECT_EQ(rig_.mark(), std::to_string(plain_.mark));
        EXPECT_EQ(rig_.journal.textLength(), plain_.characters.size());
    }

    std::mt19937 random_;
    LogRig rig_;
    PlainJournal plain_;
};

TEST(JournalLife, TheFileContainsWhatThePlainRuleSays) {
    for (unsigned seed = 1; seed <= 300 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        JournalLife(seed).live(60);
    }
}

/// An operation of the log and the files that it may change, each at one call only.
struct LogOperation {
    const char* name;
    std::function<void(LogRig&)> run;
};

const std::vector<LogOperation> logOperations{
    {"end of a check", [](LogRig& rig) { rig.log.saveNewEntries(); }},
    {"dialog's save", [](LogRig& rig) { rig.log.prcSaveLog(); }},
    {"event script", [](LogRig& rig) { rig.log.prcSetEvt(0, "''"); }},
    {"Save", [](LogRig& rig) { rig.click("Save"); }},
    {"Open Log", [](LogRig& rig) { rig.click("Open Log"); }},
    {"Clear", [](LogRig& rig) { rig.click("Clear"); }},
    {"Delete Log", [](LogRig& rig) { rig.click("Delete Log"); }},
};

void prepareLog(LogRig& rig) {
    rig.machine.files[rig.path] = "old\r\n";
    rig.enter("1");
    rig.answer(BoxAnswer::yes);
    rig.steps.clear();
    rig.machine.log.clear();
}

TEST(LogFaults, AFailingCallChangesNeitherFileJournalNorMark) {
    int failures = 0;
    for (const LogOperation& operation : logOperations) {
        LogRig whole;
        prepareLog(whole);
        operation.run(whole);
        for (int n = 1; n <= whole.machine.log.count(); ++n) {
            SCOPED_TRACE(std::string(operation.name) + ", call " + std::to_string(n));
            LogRig rig;
            prepareLog(rig);
            rig.machine.log.failCall(n, error::deviceIo);
            errorOf([&] { operation.run(rig); });
            EXPECT_EQ(rig.file(), "old\r\n");
            EXPECT_EQ(rig.journal.Text(), "1\r\n . \r\n");
            EXPECT_EQ(rig.mark(), "0");
            EXPECT_TRUE(rig.machine.started.empty());
            EXPECT_TRUE(rig.machine.executed.empty());
            EXPECT_EQ(rig.machine.log.count(), n);
            EXPECT_EQ(std::count(rig.steps.begin(), rig.steps.end(), "drop"),
                      std::count(rig.steps.begin(), rig.steps.end(), "restore"));
            ++failures;
        }
    }
    // One call each, none for "Clear", and two for the script.
    EXPECT_EQ(failures, 7);
}

}  // namespace
}  // namespace velmora::tests
