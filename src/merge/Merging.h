#pragma once

#include "merge/HighlightJoin.h"
#include "merge/IdChanges.h"

#include <QSet>

/// Brings projects together into one. Every look-up goes through a map; each holds the first record that a
/// walk through its list would find. May be used on any thread, by one at a time.
class Merging {
public:
    /// Takes the records of the master and numbers them anew.
    explicit Merging(ProjectRecords master);

    /// Brings the records of another project in, one kind after another.
    void add(ProjectRecords added);

    const ProjectRecords& result() const { return m_master; }

private:
    using Pair = QPair<int, int>;
    using Triple = QPair<Pair, int>;

    void addSources(ProjectRecords& added);
    void addMetadataKeys(ProjectRecords& added);
    void addMetadataValues(ProjectRecords& added);
    void addMetadatas(ProjectRecords& added);
    void addQuestions(ProjectRecords& added);
    void addAnswers(ProjectRecords& added);
    void addKernos(ProjectRecords& added);
    void addHighlights(ProjectRecords& added);
    void addMemos(ProjectRecords& added);
    void addGroups(ProjectRecords& added);
    void addGroupKernos(ProjectRecords& added);
    void addShortcuts(ProjectRecords& added);
    void addChatMessages(ProjectRecords& added);

    bool hasAnswer(const QuestionAnswer& answer) const;
    QString masterText(int sourceId) const;
    QString uniqueTitle(const QString& title) const;

    ProjectRecords m_master;
    QHash<QString, int> m_sources;          ///< by title
    QHash<int, QVector<int>> m_answerRows;  ///< by source
    QHash<QString, int> m_keys;             ///< by name
    QHash<QPair<int, QString>, int> m_values;
    QSet<Triple> m_metadatas;         ///< source, key, value
    QHash<QString, int> m_questions;  ///< by text
    QHash<QString, int> m_kernos;     ///< by title
    QHash<QString, int> m_groups;     ///< by title
    QSet<QPair<Triple, QPair<int, QString>>> m_memos;
    QSet<Pair> m_groupKernos;
    QSet<QString> m_shortcuts;
    HighlightJoin m_highlights;
};
