#include "models/KernoLevels.h"

namespace {

constexpr int deepestLevel = 2;
constexpr int angleOfFew = 30;

void add(KernoLevels& found, int id, int level, const std::function<QList<int>(int)>& childIdsOf) {
    if (found.levels.contains(id))
        return;
    found.ids.append(id);
    found.levels.insert(id, level);
    if (level == deepestLevel)
        return;
    const QList<int> children = childIdsOf(id);
    for (int child : children)
        add(found, child, level + 1, childIdsOf);
}

}  // namespace

KernoLevels kernoLevels(int mainId, const std::function<QList<int>(int)>& childIdsOf) {
    KernoLevels found;
    add(found, mainId, 0, childIdsOf);
    return found;
}

int angleForOverlap(const QHash<int, int>& overlaps, int overlap, int mainId) {
    int count = 0;
    for (auto entry = overlaps.cbegin(); entry != overlaps.cend(); ++entry) {
        if (entry.value() == overlap && entry.key() != mainId)
            ++count;
    }
    return count < 2 ? angleOfFew : 360 / count;
}
