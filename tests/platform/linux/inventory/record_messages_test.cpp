#include "platform/linux/inventory/record_messages.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

TEST(RecordMessages, ARequestArrivesAsItWasSent) {
    const auto request =
        requestIn(bytesOf(RecordRequest{RecordRequest::Kind::account, 70000, "a\\b"}));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, RecordRequest::Kind::account);
    EXPECT_EQ(request->query, 70000u);
    EXPECT_EQ(request->text, "a\\b");
}

TEST(RecordMessages, AReplyArrivesAsItWasSent) {
    const Record record{{"Name", std::string("with a \0 in it", 14)},
                        {"Empty", ""},
                        {"Message", std::string(1'000'000, 'x')}};
    const auto reply = replyIn(bytesOf(RecordReply{RecordReply::Kind::record, record}));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->kind, RecordReply::Kind::record);
    EXPECT_EQ(reply->record, record);
}

TEST(RecordMessages, OneThatIsCutOrTooLongIsNone) {
    const std::string reply =
        bytesOf(RecordReply{RecordReply::Kind::record, {{"Name", "value"}, {"Other", "x"}}});
    const std::string request = bytesOf(RecordRequest{RecordRequest::Kind::begin, 1, "class"});
    for (std::size_t size = 0; size < reply.size(); ++size)
        EXPECT_FALSE(replyIn(reply.substr(0, size))) << size;
    for (std::size_t size = 0; size < request.size(); ++size)
        EXPECT_FALSE(requestIn(request.substr(0, size))) << size;
    EXPECT_FALSE(replyIn(reply + 'x'));
    EXPECT_FALSE(requestIn(request + 'x'));
}

TEST(RecordMessages, ImpossibleCountsAndKindsAreRefused) {
    std::string reply = bytesOf(RecordReply{RecordReply::Kind::nothing, {}});
    ASSERT_TRUE(replyIn(reply));
    reply[0] = 3;
    EXPECT_FALSE(replyIn(reply));
    EXPECT_FALSE(replyIn(std::string("\0\xFF\xFF\xFF\xFF", 5)));
    EXPECT_FALSE(replyIn(std::string("\0\1\0\0\0\xFF\xFF\xFF\xFF", 9)));
    std::string request = bytesOf(RecordRequest{RecordRequest::Kind::begin, 1, ""});
    request[0] = 4;
    EXPECT_FALSE(requestIn(request));
}

}  // namespace
}  // namespace velmora::linuxhost
