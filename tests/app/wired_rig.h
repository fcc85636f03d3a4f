// The wired program on a machine in memory that has one drive and a settings file.
#pragma once

#include <string>

#include "app/core.h"
#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "persist/scramble.h"

namespace velmora::tests {

struct WiredRig {
    WiredRig() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files[programFolder + "\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    }

    const std::string programFolder = "C:\\Program Files\\Velmora";
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
};

}  // namespace velmora::tests
