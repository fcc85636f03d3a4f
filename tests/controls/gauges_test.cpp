#include "controls/gauges.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

constexpr Colour darkGreen = 32768;
constexpr Colour lightGreen = 65280;

int litIn(const Meter2::Column& column) {
    return static_cast<int>(std::count(column.begin(), column.end(), lightGreen));
}

struct Meter2Test : testing::Test {
    Form form{"frmIndDri"};
    Meter2 meter{form, "VMeter1"};
};

TEST_F(Meter2Test, BeginsWithoutALitSegment) {
    EXPECT_EQ(meter.Level(), 0);
    EXPECT_EQ(meter.Label1(), "0%");
    EXPECT_EQ(meter.Value(), 50);
    for (const Colour colour : meter.Shape2()) EXPECT_EQ(colour, darkGreen);
}

TEST_F(Meter2Test, TheLevelIsWhatIsMissingToTheMaximum) {
    meter.setValue(38);
    EXPECT_EQ(meter.Level(), 12);
    EXPECT_EQ(meter.Label1(), "24%");
    for (std::size_t i = 0; i < 50; ++i) {
        EXPECT_EQ(meter.Shape2()[i], i < 12 ? lightGreen : darkGreen) << i;
    }
    meter.setValue(45);
    EXPECT_EQ(meter.Label1(), "10%");
    EXPECT_EQ(litIn(meter.Shape2()), 5);
}

TEST_F(Meter2Test, TheEndsOfTheRange) {
    meter.setValue(0);
    EXPECT_EQ(meter.Level(), 50);
    EXPECT_EQ(meter.Label1(), "100%");
    EXPECT_EQ(litIn(meter.Shape2()), 50);
    meter.setValue(50);
    EXPECT_EQ(meter.Label1(), "0%");
    EXPECT_EQ(litIn(meter.Shape2()), 0);
    EXPECT_EQ(errorOf([this] { meter.setValue(51); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([this] { meter.setValue(-1); }), error::invalidPropertyValue);
    EXPECT_EQ(meter.Value(), 50);
}

TEST_F(Meter2Test, AnotherValuePaintsAndTheSameDoesNot) {
    const Count paintings(meter.Changed);
    meter.setValue(20);
    EXPECT_EQ(paintings, 1);
    meter.setValue(20);
    EXPECT_EQ(paintings, 1);
}

TEST_F(Meter2Test, ReportsItsPropertiesToTheContainer) {
    std::vector<std::string> reported;
    const auto connection = meter.PropertyChanged.connect(
        [&reported](const std::string& name) { reported.push_back(name); });
    meter.setValue(20);
    meter.setValue(20);
    meter.setBorder(1);
    EXPECT_EQ(reported, (std::vector<std::string>{"Value", "Value", "Border"}));
}

TEST_F(Meter2Test, KeepsItsPropertiesInTheContainersBag) {
    meter.setValue(7);
    meter.setBorder(1);
    PropertyBag bag;
    meter.WriteProperties(bag);
    EXPECT_EQ(bag, (PropertyBag{{"Value", 7}, {"Border", 1}}));
    Meter2 other(form, "VMeter2");
    other.ReadProperties(bag);
    EXPECT_EQ(other.Value(), 7);
    EXPECT_EQ(other.Level(), 43);
    EXPECT_EQ(other.Border(), 1);
    other.ReadProperties({});
    EXPECT_EQ(other.Value(), 7);
}

TEST_F(Meter2Test, ItsPropertiesCanBeReadAndSetByName) {
    const auto property = [this](const std::string& name) {
        for (const Property& each : meter.properties()) {
            if (each.name == name) return each;
        }
        ADD_FAILURE() << name;
        return Property{};
    };
    EXPECT_EQ(meter.mainProperty(), "Value");
    property("Value").set("38");
    EXPECT_EQ(property("Value").get(), PropertyValue{std::int64_t{38}});
    EXPECT_EQ(property("Level").get(), PropertyValue{std::int64_t{12}});
    EXPECT_EQ(property("Label1").get(), PropertyValue{std::string("24%")});
    EXPECT_FALSE(property("Level").set);
    EXPECT_FALSE(property("Label1").set);
}

TEST_F(Meter2Test, TheContainerChoosesItsSize) {
    meter.setBounds({10, 20, 300, 4000});
    EXPECT_EQ(meter.bounds(), (Bounds{10, 20, 300, 4000}));
}

TEST(MeterTest, HasTwoColumnsAndASizeOfItsOwn) {
    Form form{"f"};
    Meter meter(form, "Meter1");
    EXPECT_EQ(meter.bounds(), (Bounds{0, 0, 855, 2775}));
    meter.setBounds({10, 20, 300, 4000});
    EXPECT_EQ(meter.bounds(), (Bounds{10, 20, 855, 2775}));
    meter.setValue(30);
    EXPECT_EQ(litIn(meter.Shape1()), 20);
    EXPECT_EQ(meter.Shape1(), meter.Shape2());
    EXPECT_EQ(meter.Label1(), "40%");
}

struct LampsTest : testing::Test {
    Form form{"f"};
    CtlDigital lamps{form, "ctlDigital1"};

    LampsTest() { lamps.setMaxVal(1000); }
    int lit() {
        int count = 0;
        for (int i = 1; i <= 10; ++i) {
            if (lamps.picLED(i) == CtlDigital::lit) ++count;
        }
        return count;
    }
};

TEST_F(LampsTest, BeginsWithAllLampsOff) {
    CtlDigital made(form, "ctlDigital2");
    EXPECT_EQ(made.litLamps(), 0);
    for (int i = 1; i <= 10; ++i) EXPECT_EQ(made.picLED(i), 0U) << i;
    EXPECT_EQ(made.switchings(), 0);
}

TEST_F(LampsTest, ItsPropertiesCanBeReadByName) {
    lamps.setTxtSpeed("42");
    lamps.setCurrentValue(300);
    std::vector<std::string> values;
    for (const Property& each : lamps.properties()) {
        if (each.name == "CurrentValue" || each.name == "MaxVal" || each.name == "Lit") {
            values.push_back(each.name + " " + std::to_string(std::get<std::int64_t>(each.get())));
        } else if (each.name == "txtSpeed") {
            values.push_back(each.name + " " + std::get<std::string>(each.get()));
        }
    }
    EXPECT_EQ(values, (std::vector<std::string>{"CurrentValue 300", "MaxVal 1000", "Lit 3",
                                                "txtSpeed 42"}));
}

TEST_F(LampsTest, ALampLightsForEachTenth) {
    const std::pair<double, int> cases[] = {{0, 0},   {49, 0},   {51, 1},   {100, 1},
                                            {149, 1}, {150, 2},  {250, 2},  {500, 5},
                                            {949, 9}, {951, 10}, {1000, 10}};
    for (const auto& [value, count] : cases) {
        lamps.setCurrentValue(value);
        EXPECT_EQ(lit(), count) << value;
        EXPECT_EQ(lamps.litLamps(), count) << value;
    }
}

TEST_F(LampsTest, AValueBeyondTheMaximumIsTheMaximum) {
    lamps.setCurrentValue(5000);
    EXPECT_EQ(lamps.CurrentValue(), 1000);
    EXPECT_EQ(lit(), 10);
}

TEST_F(LampsTest, ALowerValueSwitchesOffOnlyTheSurplus) {
    lamps.setCurrentValue(800);
    const int before = lamps.switchings();
    lamps.setCurrentValue(500);
    // Three off, five on once more.
    EXPECT_EQ(lamps.switchings() - before, 8);
    EXPECT_EQ(lit(), 5);
    EXPECT_EQ(lamps.picLED(5), CtlDigital::lit);
    EXPECT_EQ(lamps.picLED(6), 0U);
}

TEST_F(LampsTest, TheValueIsRoundedToAWholeNumber) {
    lamps.setCurrentValue(2.5);
    EXPECT_EQ(lamps.CurrentValue(), 2);
    lamps.setCurrentValue(3.5);
    EXPECT_EQ(lamps.CurrentValue(), 4);
    EXPECT_EQ(errorOf([this] { lamps.setCurrentValue(3e9); }), error::overflow);
}

TEST_F(LampsTest, WithoutAMaximumItIsADivisionByZero) {
    lamps.setMaxVal(0);
    EXPECT_EQ(errorOf([this] { lamps.setCurrentValue(1); }), error::divisionByZero);
}

TEST_F(LampsTest, ANegativeValueIsAnOverflow) {
    EXPECT_EQ(errorOf([this] { lamps.setCurrentValue(-200); }), error::overflow);
}

TEST_F(LampsTest, HasATextForTheSpeed) {
    EXPECT_EQ(lamps.txtSpeed(), "");
    lamps.setTxtSpeed("42");
    EXPECT_EQ(lamps.txtSpeed(), "42");
    EXPECT_STREQ(CtlDigital::Label1, "Kb/s");
    EXPECT_EQ(errorOf([this] { lamps.picLED(11); }), error::indexOutOfBounds);
    EXPECT_EQ(errorOf([this] { lamps.picLED(0); }), error::indexOutOfBounds);
}

}  // namespace
}  // namespace velmora::tests
