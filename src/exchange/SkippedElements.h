#pragma once

#include <QMap>
#include <QString>
#include <QVariantList>

/// What an import could not take over, counted by kind.
class SkippedElements {
public:
    enum class Kind {
        PictureSource,
        PdfSource,
        AudioSource,
        VideoSource,
        SourceWithoutText,
        CodingInSkippedSource,
        SelectionWithoutCode,
        PassageOutsideText,
        UnknownCode,
        CodingWithoutCode,
        Note,
        Case,
        CaseName,
        Variable,
        SetMember,
        SetDescription,
        Link,
        Graph,
        ProjectDescription,
        Duplicate,
        Other
    };

    void add(Kind kind, int count = 1) { m_counts[kind] += count; }
    int count(Kind kind) const { return m_counts.value(kind); }
    bool isEmpty() const { return m_counts.isEmpty(); }

    /// A map with "kind", its name for people in the plural, and "count" for each kind, in the order above.
    QVariantList toVariantList() const;
    /// "Name: count" for each kind, a line each.
    QString toText() const;

private:
    QMap<Kind, int> m_counts;
};
