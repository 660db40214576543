#pragma once

#include "wire/Operations.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

class DataHelper;

/// Hands out the ids of new records. Each comes from the service at the moment it is taken, so ids are unique
/// across the clients of a shared project. Main thread. One object for the process, made on first use and
/// owned by the application object.
class IdManager : public QObject {
    Q_OBJECT

public:
    static IdManager* instance();

    /// Runs when a project opens. Stores the helper (not owned) and sets every counter: to the highest id in
    /// the project when `fetch` is true, otherwise to 0.
    void init(bool fetch, DataHelper* helper);

    /// Reserves an id at the service; 0 when no project is open.
    Q_INVOKABLE int nextKernoId() { return next(wire::Record::Kerno); }
    Q_INVOKABLE int nextHighlightId() { return next(wire::Record::Highlight); }
    Q_INVOKABLE int nextMemoId() { return next(wire::Record::Memo); }
    Q_INVOKABLE int nextSourceId() { return next(wire::Record::Source); }
    Q_INVOKABLE int nextQuestionId() { return next(wire::Record::Question); }
    Q_INVOKABLE int nextAnswerId() { return next(wire::Record::QuestionAnswer); }
    Q_INVOKABLE int nextSourceMetadataId() { return next(wire::Record::SourceMetadata); }
    Q_INVOKABLE int nextSourceMetadataKeyId() { return next(wire::Record::SourceMetadataKey); }
    Q_INVOKABLE int nextSourceMetadataValueId() { return next(wire::Record::SourceMetadataValue); }
    Q_INVOKABLE int nextKernoGroupId() { return next(wire::Record::KernoGroup); }
    Q_INVOKABLE int nextGroupId() { return next(wire::Record::Group); }
    Q_INVOKABLE int nextChatMessageId() { return next(wire::Record::ChatMessage); }

    /// Reserves `count` ids at the service in one go, ascending; empty when not all can be had.
    QList<int> nextIds(wire::Record record, int count);
    QList<int> nextHighlightIds(int count) { return nextIds(wire::Record::Highlight, count); }
    QList<int> nextQuestionIds(int count) { return nextIds(wire::Record::Question, count); }
    QList<int> nextAnswerIds(int count) { return nextIds(wire::Record::QuestionAnswer, count); }

    /// Reserves ids of a kind in advance: as many calls for one id then ask nobody, and so don't wait for
    /// what was sent before them. What is left of them is dropped with the stock or the project.
    /// False when not all can be had.
    bool stock(wire::Record record, int count);
    void dropStock() { m_stock.clear(); }

    /// Whether the id of a source came out of the stock; true once for each.
    bool claimStockedSource(int id) { return m_stockedSources.remove(id); }

    /// The last id that is known; asks nobody.
    Q_INVOKABLE int maxKernoId() const { return max(wire::Record::Kerno); }
    Q_INVOKABLE int maxHighlightId() const { return max(wire::Record::Highlight); }
    Q_INVOKABLE int maxMemoId() const { return max(wire::Record::Memo); }
    Q_INVOKABLE int maxSourceId() const { return max(wire::Record::Source); }
    Q_INVOKABLE int maxQuestionId() const { return max(wire::Record::Question); }
    Q_INVOKABLE int maxAnswerId() const { return max(wire::Record::QuestionAnswer); }
    Q_INVOKABLE int maxSourceMetadataId() const { return max(wire::Record::SourceMetadata); }
    Q_INVOKABLE int maxSourceMetadataKeyId() const { return max(wire::Record::SourceMetadataKey); }
    Q_INVOKABLE int maxSourceMetadataValueId() const { return max(wire::Record::SourceMetadataValue); }
    Q_INVOKABLE int maxKernoGroupId() const { return max(wire::Record::KernoGroup); }
    Q_INVOKABLE int maxGroupId() const { return max(wire::Record::Group); }
    Q_INVOKABLE int maxChatMessageId() const { return max(wire::Record::ChatMessage); }

private:
    explicit IdManager(QObject* parent) : QObject(parent) {}

    int next(wire::Record record);
    int max(wire::Record record) const { return m_counters.value(static_cast<int>(record), 0); }

    QPointer<DataHelper> m_helper;
    QHash<int, int> m_counters;      ///< last known id by `wire::Record`
    QHash<int, QList<int>> m_stock;  ///< ids reserved in advance, likewise
    QSet<int> m_stockedSources;      ///< taken, and not claimed yet
};
