// Management records, of a source that plays what the test tells it.
#include "platform/windows/inventory/windows_wmi.h"

#include <gtest/gtest.h>
#include <windows.h>
// After the one above, which they need.
#include <objbase.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "base/errors.h"
#include "platform/windows/inventory/wmi_rig.h"
#include "support/wait.h"

#undef GetObject

namespace velmora::tests::windows {
namespace {

using velmora::windows::WindowsWmi;
using namespace std::chrono_literals;

// Long enough for an answer on a busy machine, so that only a stuck source ever misses it.
constexpr auto ampleForWmi = 30s;
// For a source that must miss it, after others that must not.
constexpr auto briefForWmi = 700ms;

constexpr const char* fourSlashes = R"(winmgmts:\\\\.\root\cimv2)";
constexpr const char* twoSlashes = R"(winmgmts:\\.\root\cimv2)";

std::string kindOf(const WmiValue& value) {
    switch (value.kind) {
        case WmiValue::Kind::missing:
            return "missing" + value.text;
        case WmiValue::Kind::null:
            return "null" + value.text;
        case WmiValue::Kind::array:
            return "array" + value.text;
        case WmiValue::Kind::text:
            break;
    }
    return "text " + value.text;
}

class WindowsWmiTest : public testing::Test {
  protected:
    std::unique_ptr<WmiServices> connect() { return wmi.GetObject(twoSlashes); }
    std::unique_ptr<WmiObjectSet> query(WmiServices& services) {
        return services.ExecQuery("Select * from Any", "WQL", 48);
    }
    /// The only record has these properties; what each of the names is then.
    std::vector<std::string> kindsOf(std::map<std::wstring, Maker> properties,
                                     const std::vector<std::string>& names) {
        script->records = {std::move(properties)};
        const auto services = connect();
        const auto record = query(*services)->Next();
        std::vector<std::string> kinds;
        for (const WmiValue& each : record->Properties(names)) kinds.push_back(kindOf(each));
        return kinds;
    }
    std::string kindOfValue(Maker make) {
        return kindsOf({{L"Value", std::move(make)}}, {"Value"}).at(0);
    }

    std::shared_ptr<WmiScript> script = std::make_shared<WmiScript>();
    WindowsWmi wmi{sourceOf(script), ampleForWmi};
};

TEST_F(WindowsWmiTest, ATextIsHandedOverAsItIs) {
    EXPECT_EQ(kindOfValue(wmiText(L"Gr\u00f6\u00dfe \u65e5\u672c")),
              "text Gr\u00f6\u00dfe \u65e5\u672c");
    EXPECT_EQ(kindOfValue(wmiText(L"")), "text ");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_BSTR;
                  result.bstrVal = nullptr;
                  return S_OK;
              }),
              "text ");
}

TEST_F(WindowsWmiTest, WholeNumbersArePlain) {
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_I4;
                  result.lVal = -1234567;
                  return S_OK;
              }),
              "text -1234567");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_UI4;
                  result.ulVal = 4294967295UL;
                  return S_OK;
              }),
              "text 4294967295");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_UI1;
                  result.bVal = 200;
                  return S_OK;
              }),
              "text 200");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_R8;
                  result.dblVal = 7.0;
                  return S_OK;
              }),
              "text 7");
}

TEST_F(WindowsWmiTest, TruthValuesAreWords) {
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_BOOL;
                  result.boolVal = VARIANT_TRUE;
                  return S_OK;
              }),
              "text True");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_BOOL;
                  result.boolVal = VARIANT_FALSE;
                  return S_OK;
              }),
              "text False");
}

// 36526.5 is noon of 2000-01-01, whose form is the user's.
TEST_F(WindowsWmiTest, ATimeIsATextOfTheUsersForm) {
    const std::string time = kindOfValue([](VARIANT& result) {
        result.vt = VT_DATE;
        result.date = 36526.5;
        return S_OK;
    });
    EXPECT_TRUE(time.starts_with("text ")) << time;
    EXPECT_NE(time.find("12"), std::string::npos) << time;
    EXPECT_NE(time.find("00"), std::string::npos) << time;
}

TEST_F(WindowsWmiTest, WhatHasNoContentIsNull) {
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_NULL;
                  return S_OK;
              }),
              "null");
    EXPECT_EQ(kindOfValue([](VARIANT& /*result*/) { return S_OK; }), "null");
}

TEST_F(WindowsWmiTest, SeveralValuesAndObjectsCanNotBeJoined) {
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_ARRAY | VT_I4;
                  result.parray = SafeArrayCreateVector(VT_I4, 0, 3);
                  return S_OK;
              }),
              "array");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  give(ScriptedObject::make(std::make_shared<Census>(), {}), result);
                  return S_OK;
              }),
              "array");
}

TEST_F(WindowsWmiTest, WhatCanNotBeReadIsMissing) {
    const Maker failing = [](VARIANT& /*result*/) { return DISP_E_EXCEPTION; };
    EXPECT_EQ(kindOfValue(failing), "missing");
    EXPECT_EQ(kindOfValue([](VARIANT& result) {
                  result.vt = VT_ERROR;
                  result.scode = E_FAIL;
                  return S_OK;
              }),
              "missing");
}

TEST_F(WindowsWmiTest, ValuesComeInTheOrderOfTheirNames) {
    const Maker failing = [](VARIANT& /*result*/) { return DISP_E_EXCEPTION; };
    const std::vector<std::string> expected{"text b", "missing", "text a", "missing", "text b"};
    EXPECT_EQ(kindsOf({{L"A", wmiText(L"a")}, {L"B", wmiText(L"b")}, {L"Failing", failing}},
                      {"B", "Nothing", "A", "Failing", "B"}),
              expected);
}

TEST_F(WindowsWmiTest, PropertiesAreAskedForInTheWayOfScripts) {
    kindOfValue(wmiText(L"a"));
    // The way to the records, and the property.
    EXPECT_EQ(script->propertyFlags, std::vector<WORD>(2, DISPATCH_PROPERTYGET | DISPATCH_METHOD));
}

TEST_F(WindowsWmiTest, AQueryIsHandedOverWithItsLanguageAndFlags) {
    const auto services = connect();
    services->ExecQuery("Select * from Win32_Process", "WQL", 48);
    services->ExecQuery("Select * from Win32_LoggedOnUser", "WQL", 32);
    EXPECT_EQ(script->calls.at(1), "ExecQuery [Select * from Win32_Process] [WQL] [48]");
    EXPECT_EQ(script->calls.at(2), "ExecQuery [Select * from Win32_LoggedOnUser] [WQL] [32]");
}

TEST_F(WindowsWmiTest, ARecordIsReadWhenItIsAskedFor) {
    script->records.resize(3, {{L"A", wmiText(L"a")}});
    const auto services = connect();
    const auto records = query(*services);
    EXPECT_EQ(script->recordsRead, 0);
    EXPECT_NE(records->Next(), nullptr);
    EXPECT_EQ(script->recordsRead, 1);
    EXPECT_NE(records->Next(), nullptr);
    EXPECT_NE(records->Next(), nullptr);
    EXPECT_EQ(records->Next(), nullptr);
    EXPECT_EQ(records->Next(), nullptr);
    EXPECT_EQ(script->recordsRead, 3);
}

TEST_F(WindowsWmiTest, TheRecordAtAPathIsGot) {
    script->atPath = {{L"Name", wmiText(L"root")}};
    const auto services = connect();
    const auto account = services->Get(R"(Win32_Account.Name="root")");
    EXPECT_EQ(kindOf(account->Properties({"Name"}).at(0)), "text root");
    EXPECT_EQ(script->calls.at(1), R"(Get [Win32_Account.Name="root"])");
}

TEST_F(WindowsWmiTest, AMonikerIsBoundAsItIs) {
    EXPECT_NE(wmi.GetObject(fourSlashes), nullptr);
    EXPECT_EQ(script->calls, std::vector{std::string("bind ") + fourSlashes});
}

TEST_F(WindowsWmiTest, AMonikerThatDoesNotBindIsTriedWithTwoBackSlashes) {
    script->unbound = {LR"(winmgmts:\\\\.\root\cimv2)"};
    EXPECT_NE(wmi.GetObject(fourSlashes), nullptr);
    const std::vector<std::string> expected{std::string("bind ") + fourSlashes,
                                            std::string("bind ") + twoSlashes};
    EXPECT_EQ(script->calls, expected);
}

TEST_F(WindowsWmiTest, WithoutServicesNothingIsConnected) {
    script->unbound = {LR"(winmgmts:\\\\.\root\cimv2)", LR"(winmgmts:\\.\root\cimv2)",
                       L"winmgmts:"};
    EXPECT_EQ(errorOf([&] { wmi.GetObject(fourSlashes); }), 440);
    EXPECT_EQ(errorOf([&] { wmi.GetObject(twoSlashes); }), 440);
    EXPECT_EQ(errorOf([&] { wmi.GetObject("winmgmts:"); }), 440);
    // Those that are in the usual form already aren't tried twice.
    EXPECT_EQ(script->calls.size(), 4u);
    script->atBinding = [] { throw std::runtime_error("no"); };
    EXPECT_EQ(errorOf([&] { connect(); }), 440);
}

TEST_F(WindowsWmiTest, TheLocatorConnectsToAServer) {
    script->records.resize(1);
    const auto services = wmi.ConnectServer(".", R"(root\cimv2)");
    EXPECT_EQ(script->calls, std::vector<std::string>{R"(ConnectServer [.] [root\cimv2])"});
    EXPECT_NE(query(*services)->Next(), nullptr);
    script->hasLocator = false;
    EXPECT_EQ(errorOf([&] { wmi.ConnectServer(".", R"(root\cimv2)"); }), 440);
}

TEST_F(WindowsWmiTest, AFailingSourceIsAnError) {
    const auto services = connect();
    script->queryFails = E_INVALIDARG;
    EXPECT_EQ(errorOf([&] { query(*services); }), 440);
    script->queryFails = S_OK;
    script->enumerationFails = E_FAIL;
    EXPECT_EQ(errorOf([&] { query(*services); }), 440);
    script->enumerationFails = S_OK;
    script->getFails = E_FAIL;
    EXPECT_EQ(errorOf([&] { services->Get("nowhere"); }), 440);
    script->nextFails = E_FAIL;
    const auto records = query(*services);
    EXPECT_EQ(errorOf([&] { records->Next(); }), 440);
    // A failure is no missed deadline: the source is asked again.
    script->nextFails = S_OK;
    EXPECT_EQ(records->Next(), nullptr);
}

TEST_F(WindowsWmiTest, AllComponentsStayOnOneThread) {
    script->records.resize(2, {{L"A", wmiText(L"a")}});
    APTTYPE type = APTTYPE_NA;
    script->atBinding = [&type] {
        APTTYPEQUALIFIER qualifier{};
        CoGetApartmentType(&type, &qualifier);
    };
    {
        const auto services = connect();
        const auto records = query(*services);
        const auto first = records->Next();
        EXPECT_EQ(kindOf(first->Properties({"A"}).at(0)), "text a");
        EXPECT_GT(script->census->alive(), 0);
    }
    EXPECT_TRUE(type == APTTYPE_STA || type == APTTYPE_MAINSTA) << type;
    EXPECT_EQ(script->census->alive(), 0);
    const auto callers = script->census->callers();
    EXPECT_EQ(callers.size(), 1u);
    EXPECT_FALSE(callers.contains(std::this_thread::get_id()));
}

TEST_F(WindowsWmiTest, ARecordIsGivenBackBeforeTheNextOne) {
    script->records.resize(100, {{L"A", wmiText(L"a")}});
    const auto services = connect();
    const auto records = query(*services);
    while (records->Next()) {
        // The services, the enumeration and the record.
        ASSERT_LE(script->census->alive(), 3);
    }
    EXPECT_EQ(script->recordsRead, 100);
}

class StuckWmi : public WindowsWmiTest {
  protected:
    StuckWmi() {
        script->records.resize(1);
        script->nextWaits = barrier;
    }
    ~StuckWmi() override { barrier->open(); }

    std::shared_ptr<Barrier> barrier = std::make_shared<Barrier>();
};

TEST_F(StuckWmi, ASourceThatMakesNoProgressIsGivenUpAfterTwoSeconds) {
    WindowsWmi impatient{sourceOf(script)};
    const auto services = impatient.GetObject(twoSlashes);
    const auto records = query(*services);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(errorOf([&] { records->Next(); }), 440);
    const auto waited = std::chrono::steady_clock::now() - before;
    EXPECT_GE(waited, 2s);
    EXPECT_LT(waited, 4s);
}

TEST_F(StuckWmi, WhatIsAskedOfAStuckSourceFailsAtOnceAndNothingIsLost) {
    {
        WindowsWmi impatient{sourceOf(script), briefForWmi};
        auto services = impatient.GetObject(twoSlashes);
        auto records = query(*services);
        EXPECT_EQ(errorOf([&] { records->Next(); }), 440);
        const auto before = std::chrono::steady_clock::now();
        for (int i = 0; i < 100; ++i) {
            ASSERT_EQ(errorOf([&] { records->Next(); }), 440);
            ASSERT_EQ(errorOf([&] { query(*services); }), 440);
            ASSERT_EQ(errorOf([&] { services->Get("any"); }), 440);
        }
        EXPECT_LT(std::chrono::steady_clock::now() - before, briefForWmi);
        EXPECT_EQ(script->calls.size(), 2u);
    }
    EXPECT_GT(script->census->alive(), 0);
    barrier->open();
    EXPECT_TRUE(waitUntil([this] { return script->census->alive() == 0; }));
    EXPECT_EQ(script->census->callers().size(), 1u);
}

TEST_F(StuckWmi, AnotherConnectionStillAnswers) {
    WindowsWmi impatient{sourceOf(script), briefForWmi};
    const auto stuck = impatient.GetObject(twoSlashes);
    const auto records = query(*stuck);
    EXPECT_EQ(errorOf([&] { records->Next(); }), 440);
    const auto healthy = std::make_shared<WmiScript>();
    healthy->records.resize(1);
    WindowsWmi other{sourceOf(healthy), ampleForWmi};
    const auto services = other.GetObject(twoSlashes);
    EXPECT_NE(query(*services)->Next(), nullptr);
}

}  // namespace
}  // namespace velmora::tests::windows
