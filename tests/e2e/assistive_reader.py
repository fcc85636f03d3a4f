"""What assistive tools see of a program: found by role and name, in its windows.

Reads requests from standard input and answers each on standard output, a JSON object a line:

  {"window": TITLE, "role": ROLE, "name": NAME}                 what is found, or null
  {"window": ..., "role": ..., "name": ..., "do": ACTION}       carries an action out ("Press")
  {"window": ..., "role": ..., "name": ..., "do": "focus"}      gives it the keyboard

What is found has "states" (of those in STATES), "description" and "value" (the text of a text
field). Only what is shown is found; without a role, whatever has the name. To be run by the Python
that Debian's packages are for, with the accessibility switched on as such tools do it.
"""

import json
import sys

import dbus
import dbus.bus

ACCESSIBLE = "org.a11y.atspi.Accessible"
PROPERTIES = "org.freedesktop.DBus.Properties"
STATES = {4: "checked", 8: "enabled", 10: "expanded", 12: "focused", 23: "selected",
          24: "sensitive", 25: "showing"}
DEEPEST = 20


def accessibility_bus():
    launcher = dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus")
    launcher.Set("org.a11y.Status", "IsEnabled", True, dbus_interface=PROPERTIES)
    return dbus.bus.BusConnection(launcher.GetAddress(dbus_interface="org.a11y.Bus"))


class Element:
    def __init__(self, bus, reference):
        self.bus = bus
        self.object = bus.get_object(*reference, introspect=False)

    def get(self, name):
        return str(self.object.Get(ACCESSIBLE, name, dbus_interface=PROPERTIES))

    def role(self):
        return str(self.object.GetRoleName(dbus_interface=ACCESSIBLE))

    def states(self):
        low = int(self.object.GetState(dbus_interface=ACCESSIBLE)[0])
        return [word for bit, word in STATES.items() if low >> bit & 1]

    def children(self):
        return [Element(self.bus, reference)
                for reference in self.object.GetChildren(dbus_interface=ACCESSIBLE)]

    def find(self, role, name, depth=0):
        """The first below this one that is shown, in the order of the window."""
        for child in self.children():
            if "showing" in child.states() and child.get("Name") == name and \
                    role in (None, child.role()):
                return child
            found = depth < DEEPEST and child.find(role, name, depth + 1)
            if found:
                return found
        return None

    def value(self):
        try:
            return str(self.object.GetText(0, -1, dbus_interface="org.a11y.atspi.Text"))
        except dbus.DBusException:
            return ""

    def do(self, action):
        if action == "focus":
            self.object.GrabFocus(dbus_interface="org.a11y.atspi.Component")
            return
        actions = "org.a11y.atspi.Action"
        names = [str(each[0]) for each in self.object.GetActions(dbus_interface=actions)]
        self.object.DoAction(names.index(action), dbus_interface=actions)


class Desktop:
    """The windows of all programs on the bus."""

    def __init__(self):
        self.bus = accessibility_bus()
        self.root = Element(self.bus, ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"))

    def window(self, title):
        for program in self.root.children():
            for window in program.children():
                if window.get("Name") == title and "showing" in window.states():
                    return window
        return None

    def answer(self, request):
        window = self.window(request["window"])
        found = window and window.find(request.get("role"), request["name"])
        if not found:
            return None
        if "do" in request:
            found.do(request["do"])
        return {"states": found.states(), "description": found.get("Description"),
                "value": found.value()}


def main():
    desktop = Desktop()
    print("ready", flush=True)
    for line in sys.stdin:
        try:
            answer = desktop.answer(json.loads(line))
        except dbus.DBusException as failure:
            # A window may go while it is looked at.
            answer = {"failure": str(failure)}
        print(json.dumps(answer), flush=True)


if __name__ == "__main__":
    main()
