#pragma once

#include <QByteArray>
#include <QString>

/// A text that is kept for long and read now and then. One whose characters all have codes below 256 takes a
/// byte for each of them instead of two: a project's texts are most of what it has in memory.
class CompactText {
public:
    CompactText() = default;
    explicit CompactText(const QString& text);

    /// The text; made anew for each caller, but for the one that is read again and again.
    QString text() const;
    /// The text in Latin-1 if it is held so; else null.
    const QByteArray& narrow() const { return m_narrow; }
    /// In UTF-16 units.
    int size() const { return m_narrow.size() + m_wide.size(); }

private:
    QByteArray m_narrow;  ///< either this holds the text,
    QString m_wide;       ///< or this
};
