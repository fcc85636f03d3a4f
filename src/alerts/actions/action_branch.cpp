#include "alerts/actions/action_branch.h"

namespace velmora {

void Actions::run(int action, Shortage& shortage) {
    switch (action) {
        case act::move:
            return move_.run(shortage);
        case act::remove:
            return delete_.run(shortage);
        case act::recycle:
            return small_.recycle(shortage);
        case act::autoMove:
            return small_.autoMove(shortage);
        case act::sound:
            return small_.playSound();
        case act::emptyBin:
            return small_.emptyBin(shortage);
        case act::run:
            return small_.runListed(shortage);
        case act::mail:
            return small_.sendMail(shortage);
        case act::cleaner:
            return small_.startCleaner(shortage);
        case act::pause:
            return small_.pause(shortage);
        default:
            return;
    }
}

}  // namespace velmora
