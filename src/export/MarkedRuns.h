#pragma once

#include <QString>
#include <QVector>

/// A stretch of a text in one look.
struct MarkedRun {
    int start = 0;
    int length = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// The runs that cover a plain text, in order, from the same text with `<b>`, `<i>`, `<u>` and their ends.
/// What of the plain text looks like a mark stays text.
QVector<MarkedRun> markedRuns(const QString& plain, const QString& rich);
