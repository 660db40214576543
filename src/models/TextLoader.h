#pragma once

#include "models/PendingRead.h"
#include "records/QuestionAnswer.h"
#include "records/SimpleCipher.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <deque>

class DataHelper;
class ReplyBase;

/// Brings the texts of a project's sources into memory without holding the main thread: the sources are read
/// one by one, a few reads are on their way at a time, and a worker makes records of the replies. Where the
/// link is lost it waits, and goes on when the link is back.
///
/// Lives on the main thread.
class TextLoader : public QObject {
    Q_OBJECT

public:
    /// `helper` isn't owned; without one nothing ever comes.
    explicit TextLoader(DataHelper* helper, QObject* parent = nullptr);

    /// Begins anew: the texts of these sources in their order, then those whose source isn't known (yet).
    /// `cipher` is the project's; without a key texts pass unchanged.
    void start(const QList<int>& sourceIds, const SimpleCipher& cipher);
    /// Forgets everything: the project closes.
    void stop();

    /// Asks for this source at once, before all others.
    void prefer(int sourceId);
    /// Reads this source, or all, now and blocking, unless they are here. False when one can't be read.
    bool readNow(int sourceId);
    bool readAllNow();
    /// Asks once more for what could not be read.
    void retryFailed();

    /// Whether the texts of this source are still to come.
    bool isWaitingFor(int sourceId) const { return m_missing.contains(sourceId); }
    /// Whether texts may still come by themselves.
    bool isLoading() const { return m_listing || m_missing.size() > m_failed.size(); }
    /// Number of sources whose texts were asked for, are here, and could not be read.
    int expectedCount() const { return m_expected; }
    int hereCount() const { return m_expected - m_missing.size(); }
    int failedCount() const { return m_failed.size(); }

signals:
    /// All answers of one source, in the order of their ids.
    void arrived(int sourceId, QList<QuestionAnswer> answers);
    /// The counts above have changed: a few times in a second, and always at the end.
    void progressed();
    /// Nothing comes any more by itself: all texts are here, or some could not be read.
    void finished();

private:
    void askForList();
    void takeList(const QList<int>& withAnswers);
    void sendMore();
    bool send(int sourceId);
    void takeReply(int sourceId);
    void take(int sourceId, const QList<QuestionAnswer>& answers);
    void fail(int sourceId);
    void announce();
    void onLinkLost();
    void dropReplies();

    DataHelper* m_helper;
    SimpleCipher m_cipher;
    PendingRead m_list;                ///< the sources that have answers
    bool m_listing = false;            ///< that list is still to come
    QSet<int> m_early;                 ///< texts that came before it
    std::deque<int> m_queue;           ///< not asked for yet; may hold sources that are here by now
    QHash<int, ReplyBase*> m_replies;  ///< on their way, by source; children of this object
    QSet<int> m_missing;               ///< not here
    QSet<int> m_failed;                ///< not here, and no longer asked for
    int m_converting = 0;              ///< replies on the worker
    int m_expected = 0;
    QElapsedTimer m_sinceProgress;
    int m_run = 0;  ///< a result of the worker from an earlier run is dropped
    QThreadPool m_pool;
};
