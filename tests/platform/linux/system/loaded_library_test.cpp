#include "platform/linux/system/loaded_library.h"

#include <gtest/gtest.h>

#include "platform/network/curl_calls.h"

namespace velmora::linuxhost {
namespace {

TEST(LoadedLibrary, AFunctionIsFoundAndCanBeCalled) {
    LoadedLibrary library("libm.so.6");
    double (*absolute)(double) = nullptr;
    library.find("fabs", absolute);
    ASSERT_NE(absolute, nullptr);
    EXPECT_EQ(absolute(-2.5), 2.5);
    EXPECT_TRUE(library.isWhole());
}

TEST(LoadedLibrary, OneWithoutAFunctionIsNotWhole) {
    LoadedLibrary library("libm.so.6");
    double (*missing)(double) = [](double value) { return value; };
    library.find("velmora_has_no_such_function", missing);
    EXPECT_EQ(missing, nullptr);
    double (*absolute)(double) = nullptr;
    library.find("fabs", absolute);
    EXPECT_NE(absolute, nullptr);
    EXPECT_FALSE(library.isWhole());
}

TEST(LoadedLibrary, OneThatIsNotThereHasNothing) {
    LoadedLibrary library("libvelmora-is-not-there.so.1");
    EXPECT_FALSE(library.isWhole());
    double (*absolute)(double) = [](double value) { return value; };
    library.find("fabs", absolute);
    EXPECT_EQ(absolute, nullptr);
}

TEST(CurlCalls, AllAreThereAndBelongTogether) {
    const network::CurlCalls* const curl = network::curlCalls();
    ASSERT_NE(curl, nullptr);
    EXPECT_EQ(network::curlCalls(), curl);
    EXPECT_STREQ(curl->easyStrerror(CURLE_OK), "No error");
}

}  // namespace
}  // namespace velmora::linuxhost
