// The regional settings of the user of this machine.
#pragma once

#include "base/regional.h"

namespace velmora::windows {

Regional userRegional();

}  // namespace velmora::windows
