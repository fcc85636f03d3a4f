// Other starts of the program, in memory.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/other_starts.h"

namespace velmora::fake {

class FakeOtherStarts final : public OtherStarts {
  public:
    bool holdFolder() override { return isFolderFree; }
    bool listen(Taken taken) override {
        if (isTakenByAnother) {
            answers = answers || answersOnceAsked;
            return false;
        }
        taken_ = std::move(taken);
        return true;
    }
    bool handOver(const std::string& command) override {
        if (!answers) return false;
        handedOver.push_back(command);
        return true;
    }
    void release() override { taken_ = {}; }
    /// A later start hands its command line over; false when nobody takes it.
    bool start(const std::string& command) { return taken_ && taken_(command); }

    bool isFolderFree = true;       ///< no other program watches it
    bool isTakenByAnother = false;  ///< another program takes command lines
    bool answers = false;           ///< that program takes what it is handed
    bool answersOnceAsked = false;  ///< it does so from the attempt to listen on
    std::vector<std::string> handedOver;

  private:
    Taken taken_;
};

}  // namespace velmora::fake
