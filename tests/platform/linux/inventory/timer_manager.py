#!/usr/bin/python3
"""A service manager with some timers, on the bus that DBUS_SYSTEM_BUS_ADDRESS names.

Prints "ready" once it owns the name. Whatever it is asked for, it appends to the file that its
argument names: "list STATES PATTERNS", or the object and the property. With the further argument
"silent" it answers the list alone.
"""

import sys
import time

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.systemd1"
FOREVER = 2 ** 64 - 1

# id, description, unit, next start in microseconds since 1970, result
TIMERS = [
    ("backup.timer", "Backup\nof all", "backup.service", 1795325387123456, "success"),
    ("idle.timer", "Never again", "idle.service", 0, "resources"),
    ("other.timer", "Other", "other\x01.service", FOREVER, "start-limit-hit"),
    ("bare.timer", "Bare", None, None, None),
    ("boot.timer", "An hour from now", "boot.service", 0, "success"),
]

# Next start in microseconds since the start of the system.
MONOTONIC = {"boot.timer": int((time.monotonic() + 3600) * 1e6)}


def note(text):
    with open(sys.argv[1], "a", encoding="utf-8") as file:
        file.write(text + "\n")


class Manager(dbus.service.Object):
    @dbus.service.method(NAME + ".Manager", in_signature="asas", out_signature="a(ssssssouso)")
    def ListUnitsByPatterns(self, states, patterns):
        note(f"list {list(map(str, states))} {list(map(str, patterns))}")
        return [(id, description, "loaded", "active", "waiting", "",
                 dbus.ObjectPath(f"/org/freedesktop/systemd1/unit/t{number}"), dbus.UInt32(0), "",
                 dbus.ObjectPath("/"))
                for number, (id, description, *_) in enumerate(TIMERS)]


class Timer(dbus.service.Object):
    def __init__(self, bus, number):
        super().__init__(bus, f"/org/freedesktop/systemd1/unit/t{number}")
        name, _, unit, elapse, result = TIMERS[number]
        self.number = number
        self.properties = {}
        if unit is not None:
            self.properties = {"Unit": dbus.String(unit), "Result": dbus.String(result),
                               "NextElapseUSecRealtime": dbus.UInt64(elapse),
                               "NextElapseUSecMonotonic": dbus.UInt64(MONOTONIC.get(name, 0))}

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Get(self, interface, name, answer, fail):
        note(f"t{self.number} {name}")
        if "silent" in sys.argv:
            return
        if interface == NAME + ".Timer" and name in self.properties:
            answer(self.properties[name])
        else:
            fail(dbus.DBusException("no such property"))


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SystemBus()
    owned = dbus.service.BusName(NAME, bus, do_not_queue=True)
    objects = [Manager(bus, "/org/freedesktop/systemd1")]
    objects += [Timer(bus, number) for number in range(len(TIMERS))]
    print("ready", flush=True)
    GLib.MainLoop().run()
    del owned, objects


main()
