#include "models/TextLoader.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "records/FreeMemory.h"

#include <QJsonArray>
#include <algorithm>

namespace {

/// So many sources are on their way or on the worker at a time. Enough to keep service and worker busy while
/// the window draws; a blocking read of the screens waits for no more than these.
constexpr int atOnce = 12;

/// Milliseconds between two announcements of progress: each makes the window draw anew.
constexpr int progressInterval = 250;

const QString sourceIdName = QStringLiteral("sourceId");

QString listKey() {
    return wire::operationName(QuestionAnswer::record(), wire::Operation::QueryList);
}

QList<QuestionAnswer> recordsOf(const QJsonObject& data, SimpleCipher cipher) {
    QList<QuestionAnswer> list;
    const QJsonArray array = data.value(listKey()).toArray();
    for (const QJsonValue& element : array)
        list.append(QuestionAnswer(element.toObject(), "queryList", &cipher));
    return list;
}

}  // namespace

TextLoader::TextLoader(DataHelper* helper, QObject* parent) : QObject(parent), m_helper(helper) {
    m_pool.setMaxThreadCount(1);
    if (!helper)
        return;
    connect(helper, &DataHelper::wsDisconnected, this, &TextLoader::onLinkLost);
    connect(helper, &DataHelper::wsConnected, this, [this] {
        askForList();
        sendMore();
    });
}

void TextLoader::start(const QList<int>& sourceIds, const SimpleCipher& cipher) {
    stop();
    if (!m_helper)
        return;
    m_cipher = cipher;
    m_queue.assign(sourceIds.cbegin(), sourceIds.cend());
    m_missing = QSet<int>(sourceIds.cbegin(), sourceIds.cend());
    m_expected = m_missing.size();
    m_listing = true;
    m_sinceProgress.start();
    emit progressed();
    askForList();
}

void TextLoader::askForList() {
    if (!m_listing)
        return;
    m_list.send(
        m_helper, reads::sourceIdsOfAnswers(), this,
        [this](const QJsonObject& data) {
            QList<int> ids;
            const QJsonArray list = data.value(listKey()).toArray();
            for (const QJsonValue& element : list)
                ids.append(element.toObject().value(sourceIdName).toInt());
            takeList(ids);
        },
        [this] { takeList(m_missing.values()); });
}

void TextLoader::takeList(const QList<int>& withAnswers) {
    m_listing = false;
    const QSet<int> known = m_missing;
    m_missing = QSet<int>(withAnswers.cbegin(), withAnswers.cend()) - m_early;
    m_failed &= m_missing;
    m_expected = (m_missing + m_early).size();
    m_early.clear();
    const QSet<int> unknown = m_missing - known;
    m_queue.insert(m_queue.end(), unknown.cbegin(), unknown.cend());
    announce();
    sendMore();
}

void TextLoader::stop() {
    ++m_run;
    m_pool.clear();
    dropReplies();
    m_list.forget();
    m_listing = false;
    m_early.clear();
    m_queue.clear();
    m_missing.clear();
    m_failed.clear();
    m_converting = 0;
    m_expected = 0;
    m_cipher = SimpleCipher();
}

void TextLoader::prefer(int sourceId) {
    if (isWaitingFor(sourceId) && !m_replies.contains(sourceId))
        send(sourceId);
}

bool TextLoader::readNow(int sourceId) {
    if (!isWaitingFor(sourceId))
        return true;
    QList<QuestionAnswer> answers;
    const bool reachable = m_helper->isConnected() && m_helper->isOpen();
    if (!reachable || !m_helper->queryList(reads::answersOfSource(sourceId), answers))
        return false;
    take(sourceId, answers);
    return true;
}

bool TextLoader::readAllNow() {
    if (m_listing) {
        m_list.forget();
        const QVariantList ids = m_helper->queryIds(reads::sourceIdsOfAnswers(),
                                                    wire::word(QuestionAnswer::record()), sourceIdName);
        QList<int> withAnswers = m_missing.values();
        for (const QVariant& id : ids)
            withAnswers.append(id.toInt());
        takeList(withAnswers);
    }
    const QList<int> missing = m_missing.values();
    return std::all_of(missing.cbegin(), missing.cend(), [this](int sourceId) { return readNow(sourceId); });
}

void TextLoader::retryFailed() {
    m_queue.insert(m_queue.end(), m_failed.cbegin(), m_failed.cend());
    m_failed.clear();
    sendMore();
}

void TextLoader::sendMore() {
    if (m_listing)
        return;
    while (m_replies.size() + m_converting < atOnce && !m_queue.empty()) {
        const int sourceId = m_queue.front();
        if (isWaitingFor(sourceId) && !m_replies.contains(sourceId) && !send(sourceId))
            return;
        m_queue.pop_front();
    }
}

bool TextLoader::send(int sourceId) {
    ReplyBase* reply = m_helper->queryListAsync(reads::answersOfSource(sourceId), this);
    if (!reply)
        return false;
    m_failed.remove(sourceId);
    m_replies.insert(sourceId, reply);
    connect(reply, &ReplyBase::finished, this, [this, sourceId] { takeReply(sourceId); });
    return true;
}

void TextLoader::takeReply(int sourceId) {
    ReplyBase* reply = m_replies.take(sourceId);
    reply->deleteLater();
    if (!reply->errors().isEmpty()) {
        fail(sourceId);
        return;
    }
    ++m_converting;
    m_pool.start([this, sourceId, run = m_run, data = reply->data(), cipher = m_cipher] {
        const QList<QuestionAnswer> answers = recordsOf(data, cipher);
        QMetaObject::invokeMethod(
            this,
            [this, sourceId, run, answers] {
                if (run != m_run)
                    return;
                --m_converting;
                take(sourceId, answers);
                sendMore();
            },
            Qt::QueuedConnection);
    });
}

void TextLoader::take(int sourceId, const QList<QuestionAnswer>& answers) {
    if (!m_missing.remove(sourceId))
        return;
    if (m_listing)
        m_early.insert(sourceId);
    m_failed.remove(sourceId);
    emit arrived(sourceId, answers);
    announce();
}

void TextLoader::fail(int sourceId) {
    if (!isWaitingFor(sourceId))
        return;
    m_failed.insert(sourceId);
    announce();
    sendMore();
}

void TextLoader::announce() {
    if (!isLoading() || m_sinceProgress.hasExpired(progressInterval)) {
        m_sinceProgress.restart();
        emit progressed();
    }
    if (isLoading())
        return;
    m_pool.start(giveBackFreeMemory);
    emit finished();
}

// The numbers of requests begin anew with the next link, so that nothing that is under way can come.
void TextLoader::onLinkLost() {
    m_list.forget();
    const QList<int> asked = m_replies.keys();
    m_queue.insert(m_queue.begin(), asked.cbegin(), asked.cend());
    dropReplies();
}

void TextLoader::dropReplies() {
    for (ReplyBase* reply : qAsConst(m_replies)) {
        reply->disconnect(this);
        reply->deleteLater();
    }
    m_replies.clear();
}
