#include "forms/hints.h"

namespace velmora {

void Hints::say(const Hint& hint) {
    if (said_.emplace(hint.field, hint.about, hint.endsStart).second) Said(hint);
}

}  // namespace velmora
