// What became of the good copies, kept beside them.
#pragma once

#include <set>
#include <string>

#include "platform/user_state.h"

namespace velmora {

/// Sums of contents, as `sumOfText` gives them.
struct CopyMarks {
    std::set<std::string> passed = {};  ///< had their turn while the user goes back in steps
    std::set<std::string> ended = {};   ///< ended a start

    bool operator==(const CopyMarks&) const = default;
};

/// None where there are none, or they can't be read.
CopyMarks readMarks(UserState& state, const std::string& name);
/// Where they can't be kept, nothing happens.
void writeMarks(UserState& state, const std::string& name, const CopyMarks& marks);

}  // namespace velmora
