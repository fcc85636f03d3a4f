#include "platform/windows/inventory/windows_wmi.h"

#include <optional>
#include <utility>

#include "platform/windows/inventory/component_thread.h"
#include "platform/windows/inventory/late_bound.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

/// The component with a result, as its number; nothing when the result is none.
template <typename Interface>
std::optional<ComponentId> addedFrom(const ScriptValue& result, Components& components) {
    auto component = result.component().as<Interface>();
    if (!component) return std::nullopt;
    return components.add(std::move(component));
}

class Object final : public WmiObject {
  public:
    Object(ComponentThread& thread, ComponentId record) : thread_(thread), record_(record) {}
    ~Object() override { thread_.discard(record_); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    std::vector<WmiValue> Properties(const std::vector<std::string>& names) override {
        return thread_.ask<std::vector<WmiValue>>([record = record_, names](Components& owned) {
            return valuesOf(owned.get<IDispatch>(record), names);
        });
    }

  private:
    static std::optional<std::vector<WmiValue>> valuesOf(const ComReference<IDispatch>& record,
                                                         const std::vector<std::string>& names) {
        if (!record) return std::nullopt;
        std::vector<WmiValue> values;
        for (const std::string& name : names) {
            ScriptValue value;
            const bool isRead = SUCCEEDED(readProperty(*record.get(), toUtf16(name), value));
            values.push_back(isRead ? wmiValueOf(value.get()) : WmiValue{});
        }
        return values;
    }

    ComponentThread& thread_;
    ComponentId record_;
};

class ObjectSet final : public WmiObjectSet {
  public:
    ObjectSet(ComponentThread& thread, ComponentId records) : thread_(thread), records_(records) {}
    ~ObjectSet() override { thread_.discard(records_); }
    ObjectSet(const ObjectSet&) = delete;
    ObjectSet& operator=(const ObjectSet&) = delete;

    std::unique_ptr<WmiObject> Next() override {
        const auto record = thread_.ask<ComponentId>([records = records_](Components& owned) {
            return nextOf(owned.get<IEnumVARIANT>(records), owned);
        });
        if (record == noComponent) return nullptr;
        return std::make_unique<Object>(thread_, record);
    }

  private:
    static std::optional<ComponentId> nextOf(const ComReference<IEnumVARIANT>& records,
                                             Components& owned) {
        if (!records) return std::nullopt;
        ScriptValue record;
        ULONG fetched = 0;
        if (FAILED(records->Next(1, record.place(), &fetched))) return std::nullopt;
        if (fetched == 0) return noComponent;
        return addedFrom<IDispatch>(record, owned);
    }

    ComponentThread& thread_;
    ComponentId records_;
};

class Services final : public WmiServices {
  public:
    Services(std::unique_ptr<ComponentThread> thread, ComponentId services)
        : thread_(std::move(thread)), services_(services) {}

    std::unique_ptr<WmiObjectSet> ExecQuery(const std::string& query, const std::string& language,
                                            std::int32_t flags) override {
        const auto records = thread_->ask<ComponentId>(
            [services = services_, query, language, flags](Components& owned) {
                std::vector<ScriptValue> arguments;
                arguments.emplace_back(toUtf16(query));
                arguments.emplace_back(toUtf16(language));
                arguments.emplace_back(static_cast<long>(flags));
                return enumerationOf(resultOfCall(owned, services, L"ExecQuery", arguments), owned);
            });
        return std::make_unique<ObjectSet>(*thread_, records);
    }

    std::unique_ptr<WmiObject> Get(const std::string& path) override {
        const auto record = thread_->ask<ComponentId>([services = services_,
                                                       path](Components& owned) {
            std::vector<ScriptValue> arguments;
            arguments.emplace_back(toUtf16(path));
            return addedFrom<IDispatch>(resultOfCall(owned, services, L"Get", arguments), owned);
        });
        return std::make_unique<Object>(*thread_, record);
    }

  private:
    /// Empty when there is no result.
    static ScriptValue resultOfCall(Components& owned, ComponentId services,
                                    const std::wstring& method,
                                    const std::vector<ScriptValue>& arguments) {
        ScriptValue result;
        const auto object = owned.get<IDispatch>(services);
        if (!object || FAILED(callMethod(*object.get(), method, arguments, result))) return {};
        return result;
    }
    static std::optional<ComponentId> enumerationOf(const ScriptValue& set, Components& owned) {
        const auto object = set.component().as<IDispatch>();
        ScriptValue records;
        if (!object || FAILED(readProperty(*object.get(), DISPID_NEWENUM, records)))
            return std::nullopt;
        return addedFrom<IEnumVARIANT>(records, owned);
    }

    std::unique_ptr<ComponentThread> thread_;
    ComponentId services_;
};

/// A connection by a call that gives the services on its thread.
template <typename Connect>
std::unique_ptr<WmiServices> connected(std::chrono::milliseconds deadline, Connect connect) {
    auto thread = std::make_unique<ComponentThread>(deadline);
    const auto services = thread->ask<ComponentId>(
        [connect = std::move(connect)](Components& owned) -> std::optional<ComponentId> {
            auto found = connect();
            if (!found) return std::nullopt;
            return owned.add(std::move(found));
        });
    return std::make_unique<Services>(std::move(thread), services);
}

/// A moniker with two back-slashes before the machine, however many there are.
std::wstring withTwoSlashes(std::wstring moniker) {
    const auto begin = moniker.find(L'\\');
    const auto end = moniker.find_first_not_of(L'\\', begin);
    if (begin == std::wstring::npos || end == std::wstring::npos) return moniker;
    return moniker.replace(begin, end - begin, L"\\\\");
}

// Not every system reads a moniker with more back-slashes than two before the machine.
ComReference<IDispatch> servicesOf(const WmiSource& source, const std::wstring& moniker) {
    auto services = source.bind(moniker);
    const std::wstring usual = withTwoSlashes(moniker);
    if (!services && usual != moniker) services = source.bind(usual);
    return services;
}

ComReference<IDispatch> servicesOf(const ComReference<IDispatch>& locator,
                                   const std::string& server, const std::string& nameSpace) {
    std::vector<ScriptValue> arguments;
    arguments.emplace_back(toUtf16(server));
    arguments.emplace_back(toUtf16(nameSpace));
    ScriptValue services;
    if (!locator || FAILED(callMethod(*locator.get(), L"ConnectServer", arguments, services)))
        return {};
    return services.component().as<IDispatch>();
}

}  // namespace

WindowsWmi::WindowsWmi(WmiSource source, std::chrono::milliseconds deadline)
    : source_(std::move(source)), deadline_(deadline) {}

std::unique_ptr<WmiServices> WindowsWmi::GetObject(const std::string& moniker) {
    return connected(deadline_,
                     [source = source_, moniker] { return servicesOf(source, toUtf16(moniker)); });
}

std::unique_ptr<WmiServices> WindowsWmi::ConnectServer(const std::string& server,
                                                       const std::string& nameSpace) {
    return connected(deadline_, [source = source_, server, nameSpace] {
        return servicesOf(source.locator(), server, nameSpace);
    });
}

}  // namespace velmora::windows
