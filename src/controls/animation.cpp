#include "controls/animation.h"

namespace velmora {

void Animation::Open(const std::string& file) {
    if (file_ == file) return;
    file_ = file;
    Changed();
}

void Animation::Play() {
    if (playing_) return;
    playing_ = true;
    Changed();
}

void Animation::Stop() {
    if (!playing_) return;
    playing_ = false;
    Changed();
}

Properties Animation::properties() {
    Properties all = Control::properties();
    all.push_back({"File", [this] { return PropertyValue{file_}; }, {}});
    all.push_back({"Playing", [this] { return PropertyValue{playing_}; }, {}});
    return all;
}

}  // namespace velmora
