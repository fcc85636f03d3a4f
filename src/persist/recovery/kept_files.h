// Contents that were current one after the other, each a file of the user's own.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/user_state.h"

namespace velmora {

class KeptFiles {
  public:
    /// The files are NAME-1.dat, the newest, to NAME-5.dat; NAME-0.dat is one that hasn't come to
    /// its place yet.
    KeptFiles(UserState& state, std::string name) : state_(state), name_(std::move(name)) {}

    static constexpr int most = 5;

    struct Kept {
        std::string content;
        std::string place;  ///< the file in which it lies, as the host writes it
    };

    std::vector<Kept> newestFirst();
    /// Keeps a content as the newest; one that is kept already only comes to the front. Gives its
    /// place; empty where it can't be kept, and then all are as they were.
    std::string keep(std::string_view content);
    /// Where the newest one lies, whether there is one or not.
    std::string place() { return state_.placeOf(nameOf(1)); }

  private:
    int numberOf(std::string_view content);
    int firstFree();
    bool bringToFront();
    std::string nameOf(int number) const { return name_ + '-' + std::to_string(number) + ".dat"; }

    UserState& state_;
    std::string name_;
};

}  // namespace velmora
