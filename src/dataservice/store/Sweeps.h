#pragma once

#include <QtGlobal>
#include <functional>
#include <vector>

/// Counts over the highlights of texts, in one pass. Ranges are half open, and within one text they come
/// ordered by start, longer ones first.

/// The number of characters under at least one range.
class CoveredLength {
public:
    /// Ranges of the next text have positions of their own.
    void nextText() { m_reached = 0; }
    void add(qint64 start, qint64 end);
    qint64 total() const { return m_total; }

private:
    qint64 m_total = 0;
    qint64 m_reached = 0;
};

/// Finds which kernos' highlights overlap: each starts before the other ends.
class OverlapSweep {
public:
    /// Told for each highlight: it overlaps `count` earlier highlights of `other`, which may be the same
    /// kerno.
    using Found = std::function<void(qint64 kernoId, qint64 other, qint64 count)>;

    explicit OverlapSweep(Found found) : m_found(std::move(found)) {}

    void nextText() { m_open.clear(); }
    void add(qint64 kernoId, qint64 start, qint64 end);

private:
    /// The highlights of one kerno that reach beyond the present start.
    struct OpenKerno {
        qint64 kernoId = 0;
        std::vector<qint64> ends;  ///< a heap, the nearest end first
        qint64 latestStart = 0;
        qint64 startedAtLatest = 0;  ///< how many of them begin there
    };

    Found m_found;
    std::vector<OpenKerno> m_open;
};
