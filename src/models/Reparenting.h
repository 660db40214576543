#pragma once

/// What decides whether a kerno may move below another one.
struct ReparentingFacts {
    bool same = false;  ///< the kerno itself is the new parent
    bool bothExist = false;
    bool hasChildren = false;
    bool hasGrandChildren = false;
    bool newParentHasParent = false;
};

/// Keeps the tree three levels deep as far as the moved kerno's own children go.
bool mayReparent(const ReparentingFacts& facts);
