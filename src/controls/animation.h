// A clip beside the list: opened, playing or stopped. Views show it; nothing else happens.
#pragma once

#include <string>

#include "controls/control.h"

namespace velmora {

class Animation : public Control {
  public:
    using Control::Control;

    /// Path of the open clip; empty before one is opened.
    const std::string& File() const { return file_; }
    bool Playing() const { return playing_; }
    void Open(const std::string& file);
    void Play();
    void Stop();

    std::string mainProperty() const override { return "File"; }
    Properties properties() override;

  private:
    std::string file_;
    bool playing_ = false;
};

}  // namespace velmora
