"""What the program is asked to do while its calls fail, as lines for the console.

A scenario is prepared, then comes what is looked at, then questions how things stand, and at last the same is done
again: whatever has failed before, it works then.
"""

import dataclasses

from tracer import AGAIN, BEGIN, END, LAST

BOB = "<bob@test.example>"
STANDING = ["get Timer1.Enabled", "get ListView1.Enabled", "get dlgAlert.Timer1.Enabled", "get cmdPause"]
# Due at the first tick behind that of the start, so that a tick after a fault is a waiting one.
ONE_CHECK = ["set DTPInterval.Value 0:00:05", "fire Timer1"]
# A check that only looks.
CHECK_NOW = [*(f"tick lstAct {n} off" for n in range(12)), "set DTPInterval.Value 0:00:00", "fire Timer1",
             "get StatusBar1(3)"]
# A connection that fails is waited for without end: the user leaves.
LEAVE = ["answer ok", "after 5 exit"]


@dataclasses.dataclass
class Scenario:
    name: str
    prepared: list = dataclasses.field(default_factory=list)
    steps: list = dataclasses.field(default_factory=list)
    asked: list = dataclasses.field(default_factory=list)
    again: list = dataclasses.field(default_factory=list)
    gone: tuple = ()    # listed files that are removed for good
    options: tuple = ()
    begin: str = "-"    # a path, where the run is looked at from the start of the program on

    def first_lines(self):
        """Without the same once more."""
        begin = [] if self.begin != "-" else [BEGIN]
        return [*self.prepared, *begin, *self.steps, END, *STANDING, *self.asked]

    def lines(self):
        return [*self.first_lines(), AGAIN, *CHECK_NOW, *self.again, LAST]


def watched(world):
    return [f'tick ListView1 "{world.small}" on', "set txtSpace.Text 100000"]


def listed(world, *names):
    return ["drop LVFile " + " ".join(f'"{world.small}/{name}"' for name in names), "rows LVFile"]


def account(world):
    return ["set frmNotify.txtMailServer.Text 127.0.0.1", f"set frmNotify.txtMailPort.Text {world.mail.port}",
            "set frmNotify.txtYourEmail.Text <alice@test.example>", f"set frmNotify.cboNotEmail.Text {BOB}",
            "click frmNotify.cmdAdd", *(f"tick frmNotify.lstNotContent {n} on" for n in (0, 2, 3))]


def start(_):
    return Scenario("start", begin="/proc/self/mountinfo", steps=["get StatusBar1(1)"],
                    again=["click Command8"])


def first_start(world):
    """In a folder of its own, which is made and gets the first settings."""
    return dataclasses.replace(start(world), name="first start", options=("--settings", str(world.home / "chosen")))


def check(world):
    actions = [f"tick lstAct {n} on" for n in (0, 2, 6, 8, 10, 11)]
    events = [f"tick lstEvt {n} on" for n in range(4)]
    return Scenario("check", [*watched(world), *account(world), *listed(world, "one.bin", "old", "two.bin"),
                              "set chkAutoSave.Value on", *CHECK_NOW,
                              "set DTPInterval.Value 0:00:05", "fire Timer1", "answer no", *actions, *events, *LEAVE],
                    ONE_CHECK, ["get StatusBar1(1)", "rows LVFile"],
                    # A file that can't be looked at is none: the next listed one is taken, folders on the way.
                    gone=("one.bin", "old", "two.bin"))


def recycling(world):
    return Scenario("recycling check", [*watched(world), *listed(world, "one.bin", "two.bin", "three.bin"), "tick lstAct 3 on",
                                        "set chkAutoSave.Value on", "set chkSaveSet.Value on"],
                    ONE_CHECK, ["rows LVFile"])


def running(world):
    actions = [f"tick lstAct {n} on" for n in (1, 5, 7, 9)]
    return Scenario("running check", [*watched(world), *listed(world, "one.bin"), f'drop cboFile "{world.small}/one.bin" "/x"',
                                      f'set txtDrive.Text {world.other}', *actions],
                    ONE_CHECK, ["rows LVFile"])


def mail(world):
    return Scenario("mail", [*account(world), "answer yes", *LEAVE], ["click frmNotify.Command1"], [],
                    ["answer yes", "click frmNotify.Command1"])


def save(_):
    change = ["set frmNotify.txtCustMsg.Text " + "long " * 1500, "tick lstAct 2 on"]
    return Scenario("save", change, ["click Command8"], [], ["click Command8"])


def log(_):
    return Scenario("log", ["set chkAutoSave.Value on", "answer yes", "answer yes"],
                    ["click lblAl(0)", "click lblAl(3)"], [], ["answer yes", "click lblAl(0)"])


def move(world):
    return Scenario("move", [*listed(world, "one.bin"), "select LVFile 1", "answer yes",
                             f"set txtDrive.Text {world.small}/kept/"],
                    ["click lblSF(2)"], ["rows LVFile"])


def move_over(world):
    return Scenario("move to another drive", [*listed(world, "one.bin", "größe.log"), "answer yes", "answer yes",
                                              f"set txtDrive.Text {world.other}/archive/"],
                    ["click lblSF(6)"], ["rows LVFile"])


def delete(world):
    return Scenario("delete", [*listed(world, "one.bin", "old"), "select LVFile 1"],
                    ["click lblSF(3)", "select LVFile 1", "click lblSF(3)"], ["rows LVFile"], gone=("one.bin", "old"))


def delete_all(world):
    return Scenario("delete all", [*listed(world, "one.bin", "two.bin"), "answer no"],
                    ["click lblSF(5)"], ["rows LVFile"], gone=("one.bin", "two.bin"))


def recycle_all(world):
    return Scenario("recycle all", [*listed(world, "one.bin", "two.bin"), "answer yes"],
                    ["click lblSF(5)"], ["rows LVFile"])


def inspection(world):
    steps = ["report ram", "report users", "report processlist", "report jobs", "report ntevents 3", "report message",
             "report chart", "report watch", "report drive C:"]
    return Scenario("inspection", watched(world), steps)
