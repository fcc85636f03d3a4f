// Properties that hold for every value, tried on many from a fixed seed.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "base/convert.h"
#include "base/date_time.h"
#include "base/format_number.h"
#include "base/input_fields.h"
#include "base/text.h"
#include "regionals.h"

namespace velmora {
namespace {

const Regional allRegionals[] = {unitedStates, germany, france, sweden, finland, arabicPoint};

class Properties : public testing::Test {
  protected:
    std::int64_t number(std::int64_t least, std::int64_t most) {
        const auto range = static_cast<std::uint64_t>(most - least) + 1;
        return least + static_cast<std::int64_t>(random_() % range);
    }

    /// Pieces of text, put together at random.
    std::string text(const std::vector<std::string>& pieces, int mostPieces) {
        std::string result;
        for (auto count = number(0, mostPieces); count > 0; --count) result += pick(pieces);
        return result;
    }

    const std::string& pick(const std::vector<std::string>& pieces) {
        return pieces[static_cast<std::size_t>(number(0, std::ssize(pieces) - 1))];
    }

    DateTime date() {
        return fromSeconds(number(toSeconds({100, 1, 1}), toSeconds({9999, 12, 31, 23, 59, 59})));
    }

  private:
    std::mt19937_64 random_{20240307};
};

TEST_F(Properties, FormattedNumbersReadBackAsTheyWereRounded) {
    for (int round = 0; round < 20000; ++round) {
        const int decimals = static_cast<int>(number(0, 6));
        const double value = static_cast<double>(number(-999'999'999'999, 999'999'999'999)) /
                             std::pow(10.0, static_cast<double>(number(0, 9)));
        const double rounded = roundTiesAway(value, decimals);
        for (const Regional& regional : allRegionals) {
            const std::string shown = FormatNumber(value, decimals, Grouping::regional, regional);
            ASSERT_EQ(toDouble(shown, regional), rounded) << shown;
        }
        const double noise = std::fabs(value) * 1e-15;  // of taking the difference
        ASSERT_LE(std::fabs(rounded - value), 0.5 * std::pow(10.0, -decimals) + noise) << value;
    }
}

TEST_F(Properties, PlainNumbersReadBackExactly) {
    for (int round = 0; round < 20000; ++round) {
        // Up to 15 digits, which a double keeps.
        const double value =
            toDouble(std::to_string(number(-99'999'999'999'999, 99'999'999'999'999)) + "E" +
                         std::to_string(number(-20, 5)),
                     unitedStates);
        for (const Regional& regional : allRegionals)
            ASSERT_EQ(toDouble(toText(value, regional), regional), value);
    }
}

TEST_F(Properties, NumberPicturesGroupAsFormatNumberDoes) {
    for (int round = 0; round < 20000; ++round) {
        const double value = static_cast<double>(number(-99'999'999, 99'999'999)) / 1000;
        ASSERT_EQ(Format(value, "#,##0.00", germany),
                  FormatNumber(value, 2, Grouping::regional, germany));
        ASSERT_EQ(Format(value, "0", germany), FormatNumber(value, 0, Grouping::none, germany));
    }
}

TEST_F(Properties, LeftMidAndRightPutTogetherMakeTheText) {
    const std::vector<std::string> pieces = {"a",          "\\",   "\u00E9", "\u20AC",
                                             "\U0001F4BE", "\x80", "\xE2",   "12345678"};
    for (int round = 0; round < 20000; ++round) {
        const std::string whole = text(pieces, 12);
        const std::size_t total = length(whole);
        const auto a = static_cast<std::size_t>(number(0, static_cast<std::int64_t>(total)));
        const auto b = static_cast<std::size_t>(
            number(static_cast<std::int64_t>(a), static_cast<std::int64_t>(total)));
        ASSERT_EQ(left(whole, a) + mid(whole, a + 1, b - a) + right(whole, total - b), whole);
        ASSERT_EQ(mid(whole, a + 1), right(whole, total - a));
    }
}

TEST_F(Properties, PartsJoinedByTheSeparatorMakeTheText) {
    for (int round = 0; round < 20000; ++round) {
        const std::string whole = text({"a", ";", ";;", "\u20AC"}, 12);
        for (const std::string separator : {";", ";;", "\u20AC"}) {
            std::string joined;
            for (const std::string& part : split(whole, separator)) {
                ASSERT_FALSE(contains(part, separator));
                joined += part + separator;
            }
            ASSERT_EQ(joined, whole + separator);
        }
    }
}

TEST_F(Properties, LowerCaseKeepsTheNumberOfCharactersAndIsDoneOnce) {
    for (int round = 0; round < 20000; ++round) {
        std::string whole = text({"\u00C0", "\u0130", "\u023A", "\u1E9E", "Z", "\xFF"}, 6);
        whole += static_cast<char>(number(0xC2, 0xDF));
        whole += static_cast<char>(number(0x80, 0xBF));
        const std::string lower = lowerCase(whole);
        ASSERT_EQ(length(lower), length(whole));
        ASSERT_EQ(lowerCase(lower), lower);
    }
}

TEST_F(Properties, DatesComeBackFromSeconds) {
    for (int round = 0; round < 50000; ++round) {
        const DateTime value = date();
        ASSERT_TRUE(isValid(value));
        ASSERT_EQ(fromSeconds(toSeconds(value)), value);
    }
}

TEST_F(Properties, EveryDayHasTheNextWeekdayAndTheNextSeconds) {
    // 400 years: after these the calendar repeats itself.
    const std::int64_t first = toSeconds({1900, 1, 1});
    const std::int64_t last = toSeconds({2300, 1, 1});
    DateTime before = fromSeconds(first);
    for (std::int64_t at = first + 86400; at <= last; at += 86400) {
        const DateTime next = fromSeconds(at);
        ASSERT_EQ(toSeconds(next), at);
        ASSERT_LT(before, next);
        ASSERT_EQ(weekday(next), (weekday(before) + 1) % 7);
        before = next;
    }
    ASSERT_EQ(before, (DateTime{2300, 1, 1}));
}

TEST_F(Properties, DatesComeBackFromTheirTextInEveryRegion) {
    for (int round = 0; round < 5000; ++round) {
        DateTime value = date();
        if (round % 5 == 0) value = DateTime{value.year, value.month, value.day};
        if (round % 7 == 0) value = DateTime{1899, 12, 30, value.hour, value.minute, value.second};
        for (const Regional& regional : allRegionals) {
            const std::string shown = dateText(value, regional);
            ASSERT_EQ(readDate(shown, regional), value) << shown;
        }
    }
}

TEST_F(Properties, InputFieldsLoseNothingButSeparators) {
    const auto withoutSeparators = [](std::string_view whole) {
        std::string rest;
        for (char c : whole)
            if (std::string_view(", \t\r\n\"").find(c) == std::string_view::npos) rest += c;
        return rest;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string whole =
            text({"a", "b", ",", "\"", " ", "\t", "\r", "\n", "\r\n", "\u20AC"}, 20);
        std::string joined;
        std::size_t fields = 0;
        for (InputFields input(whole); !input.atEnd(); ++fields) {
            ASSERT_LE(fields, whole.size());
            joined += input.next();
        }
        ASSERT_EQ(withoutSeparators(joined), withoutSeparators(whole));
    }
}

TEST_F(Properties, FieldsWrittenInQuotesAreReadAsTheyWereWritten) {
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::string> written;
        std::string whole;
        for (auto count = number(1, 6); count > 0; --count) {
            written.push_back(text({"a", ",", " ", "\t", "\r\n", "\u20AC"}, 5));
            whole += '"' + written.back() + '"' + pick({",", "\r\n", " ,", "  \n"});
        }
        std::vector<std::string> read;
        for (InputFields input(whole); !input.atEnd();) read.push_back(input.next());
        ASSERT_EQ(read, written) << whole;
    }
}

}  // namespace
}  // namespace velmora
