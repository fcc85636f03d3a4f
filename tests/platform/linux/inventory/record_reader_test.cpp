#include "platform/linux/inventory/record_reader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

#include "base/errors.h"
#include "made_machine.h"
#include "platform/linux/system/left_children.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// Records by a function of their place, from 0; after the last one, nothing.
class CountedSource final : public RecordSource {
  public:
    using Make = std::function<Record(std::size_t)>;
    CountedSource(std::size_t count, Make make) : count_(count), make_(std::move(make)) {}
    std::optional<Record> next() override {
        if (next_ == count_) return std::nullopt;
        return make_(next_++);
    }

  private:
    std::size_t count_;
    std::size_t next_ = 0;
    Make make_;
};

SourceOpener counted(std::size_t count, CountedSource::Make make) {
    return [count, make = std::move(make)](const std::string& name) {
        return name == "none" ? nullptr : std::make_unique<CountedSource>(count, make);
    };
}

Record numberedRecord(std::size_t place) {
    return {{"Number", std::to_string(place)}};
}

void waitForEver() {
    while (true) pause();
}

class RecordReaderTest : public testing::Test {
  protected:
    RecordReaderTest() { reapLeftChildren(); }

    std::size_t childrenBefore_ = childrenOfThisProcess();
    std::size_t descriptorsBefore_ = openDescriptors();
};

TEST_F(RecordReaderTest, TheProcessBeginsWithTheFirstQueryAndEndsWithTheReader) {
    {
        RecordReader reader(counted(1, numberedRecord));
        EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
        reader.begin("any");
        EXPECT_EQ(childrenOfThisProcess(), childrenBefore_ + 1);
        EXPECT_EQ(openDescriptors(), descriptorsBefore_ + 1);
    }
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    EXPECT_EQ(openDescriptors(), descriptorsBefore_);
}

TEST_F(RecordReaderTest, QueriesAreReadSideBySide) {
    RecordReader reader(counted(2, numberedRecord));
    const auto first = reader.begin("any");
    const auto second = reader.begin("any");
    EXPECT_EQ(reader.next(first), numberedRecord(0));
    EXPECT_EQ(reader.next(first), numberedRecord(1));
    EXPECT_EQ(reader.next(second), numberedRecord(0));
    EXPECT_EQ(reader.next(first), std::nullopt);
    EXPECT_EQ(reader.next(first), std::nullopt);
    reader.end(first);
    EXPECT_EQ(errorOf([&] { reader.next(first); }), error::automation);
    EXPECT_EQ(reader.next(second), numberedRecord(1));
}

TEST_F(RecordReaderTest, NoMoreIsReadThanIsAskedFor) {
    // Counts in the reading process, for all of its queries.
    std::size_t made = 0;
    RecordReader reader(counted(100, [&made](std::size_t) { return numberedRecord(++made); }));
    const auto query = reader.begin("any");
    EXPECT_EQ(reader.next(query), numberedRecord(1));
    const auto other = reader.begin("any");
    // The second query's source counts on where the first one has stopped.
    EXPECT_EQ(reader.next(other), numberedRecord(2));
}

TEST_F(RecordReaderTest, LargeRecordsTravelWhole) {
    const auto large = [](std::size_t place) {
        return Record{{"Message", std::string(1'000'000 + place, 'x')}, {"Other", "y"}};
    };
    RecordReader reader(counted(3, large));
    const auto query = reader.begin("any");
    for (std::size_t place = 0; place < 3; ++place) EXPECT_EQ(reader.next(query), large(place));
    EXPECT_EQ(reader.next(query), std::nullopt);
}

TEST_F(RecordReaderTest, ARecordBeyondAllBoundsIsAnErrorAndTheNextOneComes) {
    RecordReader reader(counted(2, [](std::size_t place) {
        return place > 0 ? numberedRecord(place)
                         : Record{{"Message", std::string(longestRecordMessage, 'x')}};
    }));
    const auto query = reader.begin("any");
    EXPECT_EQ(errorOf([&] { reader.next(query); }), error::automation);
    EXPECT_EQ(reader.next(query), numberedRecord(1));
}

TEST_F(RecordReaderTest, WhatASourceRaisesIsAnErrorOfThatCallAlone) {
    RecordReader reader(counted(2, [](std::size_t place) {
        if (place == 0) throw std::runtime_error("no such record");
        return numberedRecord(place);
    }));
    const auto query = reader.begin("any");
    EXPECT_EQ(errorOf([&] { reader.next(query); }), error::automation);
    EXPECT_EQ(errorOf([&] { reader.begin("none"); }), error::automation);
    const auto other = reader.begin("any");
    EXPECT_EQ(errorOf([&] { reader.next(other); }), error::automation);
}

TEST_F(RecordReaderTest, AStallEndsTheProcessAndRaisesTheErrorFromThenOn) {
    RecordReader reader(counted(3,
                                [](std::size_t place) {
                                    if (place == 1) waitForEver();
                                    return numberedRecord(place);
                                }),
                        2s);
    const auto query = reader.begin("any");
    EXPECT_EQ(reader.next(query), numberedRecord(0));
    const auto start = steady_clock::now();
    EXPECT_EQ(errorOf([&] { reader.next(query); }), error::automation);
    EXPECT_GE(steady_clock::now() - start, 2s);
    EXPECT_LT(steady_clock::now() - start, 20s);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    EXPECT_EQ(openDescriptors(), descriptorsBefore_);
    const auto later = steady_clock::now();
    EXPECT_EQ(errorOf([&] { reader.next(query); }), error::automation);
    EXPECT_EQ(errorOf([&] { reader.begin("any"); }), error::automation);
    EXPECT_EQ(errorOf([&] { reader.account("any"); }), error::automation);
    reader.end(query);
    EXPECT_LT(steady_clock::now() - later, 1s);
}

TEST_F(RecordReaderTest, EachCallHasTheDeadlineOfItsOwn) {
    const auto slow = [](std::size_t place) {
        poll(nullptr, 0, 500);
        return numberedRecord(place);
    };
    RecordReader reader(counted(4, slow), 1500ms);
    const auto query = reader.begin("any");
    for (std::size_t place = 0; place < 4; ++place)
        EXPECT_EQ(reader.next(query), numberedRecord(place));
}

TEST_F(RecordReaderTest, AProcessThatDiesIsAnErrorAtOnceAndStaysOne) {
    RecordReader reader(counted(1, [](std::size_t) -> Record { _exit(3); }));
    const auto query = reader.begin("any");
    const auto start = steady_clock::now();
    EXPECT_EQ(errorOf([&] { reader.next(query); }), error::automation);
    EXPECT_EQ(errorOf([&] { reader.begin("any"); }), error::automation);
    EXPECT_LT(steady_clock::now() - start, 1s);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
}

TEST_F(RecordReaderTest, TheProcessHasNothingOfTheProgramsButItsCode) {
    const UniqueFd inherited(open("/proc/self/status", O_RDONLY));
    signal(SIGUSR1, SIG_IGN);
    RecordReader reader(counted(1, [](std::size_t) {
        return Record{{"Files", std::to_string(openDescriptors())},
                      {"Session", std::to_string(getsid(0) == getpid())},
                      {"Folder", std::filesystem::current_path().string()},
                      {"Signal", signal(SIGUSR1, SIG_DFL) == SIG_DFL ? "default" : "other"}};
    }));
    const auto record = reader.next(reader.begin("any"));
    signal(SIGUSR1, SIG_DFL);
    // Its socket, two that lead nowhere, and the listing itself.
    EXPECT_EQ(record,
              (Record{{"Files", "4"}, {"Session", "1"}, {"Folder", "/"}, {"Signal", "default"}}));
}

TEST_F(RecordReaderTest, TheProcessEndsWithTheProgram) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const pid_t program = fork();
    if (program == 0) {
        RecordReader reader(counted(1, [](std::size_t) {
            return Record{{"Process", std::to_string(getpid())}};
        }));
        const auto record = reader.next(reader.begin("any"));
        const std::string id = record ? record->at("Process") : "";
        if (write(ends[1], id.data(), id.size()) < 0) _exit(1);
        // Without the reader's end.
        kill(getpid(), SIGKILL);
    }
    close(ends[1]);
    std::string id(32, '\0');
    const auto size = read(ends[0], id.data(), id.size());
    close(ends[0]);
    waitpid(program, nullptr, 0);
    ASSERT_GT(size, 0);
    const pid_t process = std::stoi(id);
    EXPECT_TRUE(waitUntil([&] {
        return kill(process, 0) != 0 ||
               contentsOf("/proc/" + std::to_string(process) + "/stat").find(") Z") !=
                   std::string::npos;
    }));
}

TEST_F(RecordReaderTest, ReadersLeaveNothingBehind) {
    for (int report = 0; report < 100; ++report) {
        RecordReader reader(counted(2, numberedRecord));
        const auto query = reader.begin("any");
        ASSERT_EQ(reader.next(query), numberedRecord(0));
        if (report % 2 == 0) reader.end(query);
    }
    EXPECT_EQ(reapLeftChildren(), 0u);
    EXPECT_EQ(childrenOfThisProcess(), childrenBefore_);
    EXPECT_EQ(openDescriptors(), descriptorsBefore_);
}

}  // namespace
}  // namespace velmora::linuxhost
