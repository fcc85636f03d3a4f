// Management records of the machine, as the scripting objects of WMI give them: a service, queries,
// records, properties by name. docs/inventory.md lists what each class reports on each system.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// A header of the system may have given this name to a call of its own.
#undef GetObject

namespace velmora {

/// The content of a property, as far as a text can be made of it.
struct WmiValue {
    enum class Kind {
        missing,  ///< the record has no such property, or it can't be read
        null,     ///< it has one without content
        array,    ///< several values, which can't be joined to a text
        text,     ///< a text, or a number, truth value or time as a text
    };
    Kind kind = Kind::missing;
    std::string text;  ///< UTF-8; empty unless the kind is text

    static WmiValue of(std::string text) { return {Kind::text, std::move(text)}; }
    bool isText() const { return kind == Kind::text; }
};

/// A record.
class WmiObject {
  public:
    virtual ~WmiObject() = default;
    /// The values of these properties, in this order. Names have no case. One that can't be read
    /// counts as missing. Error 440 when nothing can be read any more.
    virtual std::vector<WmiValue> Properties(const std::vector<std::string>& names) = 0;
};

/// The records of a query, one after the other.
class WmiObjectSet {
  public:
    virtual ~WmiObjectSet() = default;
    /// The next record; null at the end. It is read when it is asked for, and not before. Error 440
    /// when the source fails, or makes no progress for two seconds.
    virtual std::unique_ptr<WmiObject> Next() = 0;
};

/// How a query is to be answered.
namespace wmi_flag {
inline constexpr std::int32_t returnImmediately = 16;
inline constexpr std::int32_t forwardOnly = 32;
}  // namespace wmi_flag

/// A connection. What it gives must not outlive it.
class WmiServices {
  public:
    virtual ~WmiServices() = default;
    /// Begins a query such as "Select * from Win32_Process" in the language "WQL". Error 440 when
    /// it is refused or not answered.
    virtual std::unique_ptr<WmiObjectSet> ExecQuery(const std::string& query,
                                                    const std::string& language,
                                                    std::int32_t flags) = 0;
    /// The record at a path, which is a property of another record. Error 440 when there is none.
    virtual std::unique_ptr<WmiObject> Get(const std::string& path) = 0;
};

class Wmi {
  public:
    virtual ~Wmi() = default;
    /// The connection of a moniker, "winmgmts:" and the place. Error 440 when there is none.
    virtual std::unique_ptr<WmiServices> GetObject(const std::string& moniker) = 0;
    /// The same by the locator: "." is this machine. Error 440 when there is none.
    virtual std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                                       const std::string& nameSpace) = 0;
};

}  // namespace velmora
