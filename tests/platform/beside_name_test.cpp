#include "platform/beside_name.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(BesideName, HasADotInFrontAndTheWritersNumber) {
    EXPECT_EQ(besideName("set.dat", 4711), ".set.dat.4711");
}

TEST(BesideName, IsReadBackForItsOwnNameOrForAny) {
    EXPECT_EQ(writerBeside(".set.dat.4711", "set.dat"), 4711u);
    EXPECT_EQ(writerBeside(".set.dat.4711", ""), 4711u);
    EXPECT_EQ(writerBeside(".place.4294967295", ""), 4294967295u);
    EXPECT_EQ(writerBeside(".set.dat.4711", "place"), std::nullopt);
    EXPECT_EQ(writerBeside(".set.dat.4711", "set"), std::nullopt);
}

TEST(BesideName, OtherNamesAreNobodys) {
    for (const char* name : {"", ".", "..", "..5", "set.dat", "set.dat.4711", ".set.dat", ".4711",
                             ".set.dat.", ".set.dat.0", ".set.dat.-1", ".set.dat.47x", ".set.dat.x",
                             ".set.dat. 4", ".set.dat.4294967296"}) {
        EXPECT_EQ(writerBeside(name, ""), std::nullopt) << name;
    }
}

}  // namespace
}  // namespace velmora
