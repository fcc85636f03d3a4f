#include "platform/work_steps.h"

#include <utility>

namespace velmora {

namespace {

std::function<void()>& hearer() {
    thread_local std::function<void()> heard;
    return heard;
}

}  // namespace

void hearWorkSteps(std::function<void()> heard) {
    hearer() = std::move(heard);
}

void noteWorkStep() {
    if (hearer()) hearer()();
}

}  // namespace velmora
