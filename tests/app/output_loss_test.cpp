// An output that takes nothing for a while, or never again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

#include "app/dropping_buffer.h"
#include "console_session.h"

namespace velmora::tests {
namespace {

// A place for text with some room; what doesn't fit is refused with an errno.
struct Place {
    std::size_t write(std::string_view bytes) {
        const std::size_t size = std::min(bytes.size(), room);
        text.append(bytes.substr(0, size));
        room -= size;
        if (size < bytes.size()) errno = refusal;
        return size;
    }
    std::string text;
    std::size_t room = 1'000'000;
    int refusal = ENOSPC;
};

struct OutputLoss : testing::Test {
    Place place;
    DroppingBuffer buffer{[this](std::string_view bytes) { return place.write(bytes); }};
    std::ostream stream{&buffer};
};

TEST_F(OutputLoss, WritesAtOnceWhatWasGatheredUntilTheFlush) {
    stream << "a" << 1 << '\n';
    EXPECT_EQ(place.text, "");
    stream.flush();
    EXPECT_EQ(place.text, "a1\n");
    stream << std::string(100'000, 'x');
    EXPECT_EQ(place.text.size(), 100'003u) << "a long text needs no flush";
}

TEST_F(OutputLoss, AFlushOfNothingIsNoFailure) {
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(place.text, "");
}

TEST_F(OutputLoss, GathersLessThanSixteenKilobytes) {
    stream << std::string(16 * 1024 - 1, 'x');
    EXPECT_EQ(place.text.size(), 0u);
    stream << 'x';
    EXPECT_EQ(place.text.size(), 16u * 1024);
}

TEST_F(OutputLoss, ALineOfWhichASingleByteWasWrittenStaysOneOfItsOwn) {
    place.room = 1;
    stream << "first\n" << std::flush;
    place.room = 100;
    stream.clear();
    stream << "second\n" << std::flush;
    EXPECT_EQ(place.text, "f\nsecond\n");
}

TEST_F(OutputLoss, WhatStillWaitsIsWrittenAtItsEnd) {
    {
        DroppingBuffer ending{[this](std::string_view bytes) { return place.write(bytes); }};
        std::ostream(&ending) << "last words";
        EXPECT_EQ(place.text, "");
    }
    EXPECT_EQ(place.text, "last words");
}

TEST_F(OutputLoss, WhatAFullDiskDoesNotTakeIsDropped) {
    place.room = 0;
    stream << "lost\n";
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(buffer.isReaderGone());
    place.room = 100;
    stream.clear();
    stream << "kept\n";
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(place.text, "kept\n");
}

TEST_F(OutputLoss, ACharacterThatFindsNoRoomIsRefused) {
    place.room = 0;
    for (int i = 0; i < 100'000 && stream; ++i) stream.put('x');
    EXPECT_TRUE(stream.bad());
}

TEST_F(OutputLoss, ACutLineStaysALineOfItsOwn) {
    place.room = 5;
    stream << "one\ntwo\n";
    EXPECT_FALSE(stream.flush());
    stream.clear();
    stream << "lost\n";
    EXPECT_FALSE(stream.flush());
    place.room = 100;
    stream.clear();
    stream << "three\n" << std::flush << "four\n" << std::flush;
    EXPECT_EQ(place.text, "one\nt\nthree\nfour\n");
}

TEST_F(OutputLoss, TheEndOfTheReaderIsTold) {
    place.room = 0;
    place.refusal = EPIPE;
    stream << "lost\n" << std::flush;
    EXPECT_TRUE(buffer.isReaderGone());
    stream.clear();
    place.refusal = ENOSPC;
    stream << "lost\n" << std::flush;
    EXPECT_FALSE(buffer.isReaderGone()) << "it is the last failure that counts";
}

struct ConsoleOutputLoss : OutputLoss, ConsoleSession {
    int runInto(const std::string& input) {
        std::istringstream in(input);
        const auto sleep = [this](std::int64_t ms) {
            machine.advance(ms);
            place.room = roomLater.value_or(place.room);
        };
        return runConsole(machine,
                          {.input = in, .output = stream, .sleep = sleep, .isReaderGone = [this] {
                               return buffer.isReaderGone();
                           }});
    }
    std::optional<std::size_t> roomLater;  // once the program has waited
};

TEST_F(ConsoleOutputLoss, AFullDiskDoesNotEndAProgramThatKeepsRunning) {
    machine.platform().app.Options.keepRunning = true;
    place.room = 0;
    roomLater = 1'000'000;
    EXPECT_EQ(runInto("get txtAmt\nwait 1\nget txtAmt\n"), 0);
    EXPECT_EQ(place.text, "ok\n50\n");
}

TEST_F(ConsoleOutputLoss, StartedPlainlyItEnds) {
    place.room = 0;
    EXPECT_EQ(runInto("get txtAmt\n"), 1);
}

TEST_F(ConsoleOutputLoss, TheLastWordsCountToo) {
    EXPECT_EQ(runInto(""), 0);
    ASSERT_TRUE(place.text.ends_with("type help.\n")) << place.text;
    place.room = place.text.size() - 1;
    EXPECT_EQ(runInto(""), 1);
}

TEST_F(ConsoleOutputLoss, AReaderWhoIsGoneEndsAProgramThatKeepsRunning) {
    machine.platform().app.Options.keepRunning = true;
    place.refusal = EPIPE;
    for (const std::size_t room : {0u, 10u, 100u, 1000u}) {
        place.room = room;
        EXPECT_EQ(runInto("json on\nwait forever\n"), 1) << room;
        stream.clear();
    }
}

}  // namespace
}  // namespace velmora::tests
