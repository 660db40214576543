#pragma once

#include <QPair>

/// Places and ranges in a list of passages, ordered by start with the longer first.
namespace passages {

/// The row before which `passage` belongs: as far up as it is less than the rows, seen from the last one.
template <typename Rows, typename P, typename Less>
int insertionRow(const Rows& rows, const P& passage, Less less) {
    int row = rows.size();
    while (row > 0 && less(passage, *rows.at(row - 1)))
        --row;
    return row;
}

/// The stretch of text that `passage` and its neighbours around `row` cover together: what must be painted
/// anew. `rows` doesn't hold the passage itself.
template <typename Rows, typename P>
QPair<int, int> affectedRange(const Rows& rows, int row, const P& passage) {
    QPair<int, int> range(passage.start(), passage.end());
    for (int i = row; i < rows.size() && passage.extendRangeWith(range, *rows.at(i)); ++i) {}
    for (int i = row - 1; i >= 0 && passage.extendRangeWith(range, *rows.at(i)); --i) {}
    return range;
}

}  // namespace passages
