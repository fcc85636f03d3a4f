#include "alerts/actions/action_branch.h"

namespace velmora {

Actions::Actions(ActionParts parts)
    : parts_(parts), move_(parts_), delete_(parts_), files_(parts_), small_(parts_, files_) {
    table_.set(act::move, [this](Shortage& shortage) { move_.run(shortage); });
    table_.set(act::remove, [this](Shortage& shortage) { delete_.run(shortage); });
    table_.set(act::recycle, [this](Shortage& shortage) { small_.recycle(shortage); });
    table_.set(act::autoMove, [this](Shortage& shortage) { small_.autoMove(shortage); });
    table_.set(act::sound, [this](Shortage&) { small_.playSound(); });
    table_.set(act::emptyBin, [this](Shortage& shortage) { small_.emptyBin(shortage); });
    table_.set(act::run, [this](Shortage& shortage) { small_.runListed(shortage); });
    table_.set(act::mail, [this](Shortage& shortage) { small_.sendMail(shortage); });
    table_.set(act::cleaner, [this](Shortage& shortage) { small_.startCleaner(shortage); });
    table_.set(act::pause, [this](Shortage& shortage) { small_.pause(shortage); });
}

}  // namespace velmora
