#include <gtest/gtest.h>

#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/inventory/journal_entry.h"

namespace velmora::linuxhost {
namespace {

std::string namedUser(std::uint32_t id) {
    return "user" + std::to_string(id);
}

class EventJournalEntry : public testing::Test {
  protected:
    static Record read(const std::map<std::string, std::string>& fields) {
        return journalRecord({.fields = fields, .received = std::nullopt, .cursor = {}}, namedUser);
    }

    InventoryZone zone_{"TST-1"};
};

TEST_F(EventJournalEntry, EachFieldHasItsProperty) {
    const Record record =
        journalRecord({.fields = {{"_HOSTNAME", "box"},
                                  {"SYSLOG_IDENTIFIER", "cron"},
                                  {"_COMM", "crond"},
                                  {"MESSAGE", "first\nsecond"},
                                  {"_TRANSPORT", "syslog"},
                                  {"_UID", "33"},
                                  {"SYSLOG_FACILITY", "9"},
                                  {"PRIORITY", "6"},
                                  {"_SOURCE_REALTIME_TIMESTAMP", "1795325387123456"}},
                       .received = 1795325387'234567,
                       .cursor = "s=abc;i=12c;b=123;m=1;t=2;x=3"},
                      namedUser);
    EXPECT_EQ(record, (Record{{"Category", "9"},
                              {"ComputerName", "box"},
                              {"Logfile", "syslog"},
                              {"Message", "first\r\nsecond"},
                              {"RecordNumber", "300"},
                              {"SourceName", "cron"},
                              {"TimeGenerated", "20261122062947.123456+060"},
                              {"TimeWritten", "20261122062947.234567+060"},
                              {"Type", "Information"},
                              {"User", "user33"}}));
}

TEST_F(EventJournalEntry, WhatTheEntryLacksIsMissing) {
    EXPECT_EQ(read({}), Record{});
    EXPECT_EQ(read({{"MESSAGE", ""}}), (Record{{"Message", ""}}));
}

TEST_F(EventJournalEntry, TheProgramIsTheSourceOfOneWithoutAName) {
    EXPECT_EQ(read({{"_COMM", "crond"}}), (Record{{"SourceName", "crond"}}));
    EXPECT_EQ(read({{"_COMM", "crond"}, {"SYSLOG_IDENTIFIER", ""}, {"_HOSTNAME", ""}}),
              (Record{{"SourceName", "crond"}}));
}

TEST_F(EventJournalEntry, AnEventThatKnowsNoTimeHasThatOfItsArrival) {
    const Record record =
        journalRecord({.fields = {}, .received = 1795325387'234567, .cursor = {}}, namedUser);
    EXPECT_EQ(record, (Record{{"TimeGenerated", "20261122062947.234567+060"},
                              {"TimeWritten", "20261122062947.234567+060"}}));
}

TEST_F(EventJournalEntry, ThePriorityIsAType) {
    const char* const types[] = {"Error",   "Error",       "Error",       "Error",
                                 "Warning", "Information", "Information", "Information"};
    for (int priority = 0; priority < 8; ++priority)
        EXPECT_EQ(read({{"PRIORITY", std::to_string(priority)}}),
                  (Record{{"Type", types[priority]}}));
}

TEST_F(EventJournalEntry, WhatShouldBeANumberAndIsNoneIsMissing) {
    for (const char* text : {"", "x", "-1", "6x", " 6", "99999999999999999999999"})
        EXPECT_EQ(read({{"PRIORITY", text},
                        {"_UID", text},
                        {"SYSLOG_FACILITY", text},
                        {"_SOURCE_REALTIME_TIMESTAMP", text}}),
                  Record{})
            << text;
    EXPECT_EQ(read({{"PRIORITY", "8"}}), Record{});
    EXPECT_EQ(read({{"_SOURCE_REALTIME_TIMESTAMP", "18446744073709551615"}}), Record{});
}

TEST_F(EventJournalEntry, OnlyAMessageHasLines) {
    const Record record = read({{"_HOSTNAME", "a\nb"},
                                {"SYSLOG_IDENTIFIER", "c\r\nd"},
                                {"_TRANSPORT", "e\nf"},
                                {"MESSAGE", "g\xFFh"}});
    EXPECT_EQ(record, (Record{{"ComputerName", "a?b"},
                              {"SourceName", "c??d"},
                              {"Logfile", "e?f"},
                              {"Message", "g\xEF\xBF\xBDh"}}));
}

TEST_F(EventJournalEntry, TheNumberIsThatInTheCursor) {
    EXPECT_EQ(sequenceNumberOf("s=1;i=ff;b=2"), 255u);
    EXPECT_EQ(sequenceNumberOf("i=ffffffffffffffff"), 18446744073709551615u);
    for (const char* cursor :
         {"", "s=1;b=2", "s=1;i=;b=2", "s=1;i=zz;b=2", "si=5", "i=10000000000000000"})
        EXPECT_EQ(sequenceNumberOf(cursor), std::nullopt) << cursor;
}

}  // namespace
}  // namespace velmora::linuxhost
