#include "models/Reparenting.h"

bool mayReparent(const ReparentingFacts& facts) {
    if (facts.same || !facts.bothExist || facts.hasGrandChildren)
        return false;
    return !facts.hasChildren || !facts.newParentHasParent;
}
