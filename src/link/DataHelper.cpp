#include "link/DataHelper.h"

#include "link/Connection.h"
#include "wire/AccessLevel.h"

#include <QDebug>
#include <QNetworkAccessManager>
#include <algorithm>

namespace {

/// Requests that are on their way at one time, each burst with the bound of one request.
constexpr int requestsAtOnce = 1000;

/// Bounds of one batch, so that others get their turn in between: records, and characters of their arguments.
constexpr int recordsOfBatch = 500;
constexpr int lengthOfBatch = 500000;

bool isAnswer(const ReplyBase& reply) {
    return !reply.isNull() && reply.errors().isEmpty();
}

}  // namespace

DataHelper::DataHelper(QObject* parent) : DataHelper(LinkTimings(), parent) {}

DataHelper::DataHelper(const LinkTimings& timings, QObject* parent)
    : QObject(parent), m_networkAccessManager(new QNetworkAccessManager(this)),
      m_connection(std::make_unique<Connection>(timings)), m_transferBound(timings.transfer) {
    connectLinkSignals();
}

DataHelper::~DataHelper() {
    // The link closes while it is destroyed; nobody is to hear of that through a half destroyed object.
    QObject::disconnect(m_connection.get(), nullptr, this, nullptr);
}

// The first four run on the network thread and must not take the lock: its holder waits for that thread.
void DataHelper::connectLinkSignals() {
    Connection* link = m_connection.get();
    connect(link, &Connection::connected, this, &DataHelper::wsConnected, Qt::DirectConnection);
    connect(link, &Connection::connectionLost, this, &DataHelper::wsDisconnected, Qt::DirectConnection);
    connect(
        link, &Connection::disconnected, this,
        [this] {
            qDebug() << "datahelper disconnected handler";
            m_isOpen = false;
            emit wsDisconnected();
        },
        Qt::DirectConnection);
    connect(link, &Connection::closedDueToAnotherSession, this, &DataHelper::closedDueToAnotherSession,
            Qt::DirectConnection);
    connect(link, &Connection::reconnected, this, &DataHelper::onReconnected, Qt::QueuedConnection);
    connect(link, &Connection::accessChanged, this, &DataHelper::onAccessChanged, Qt::QueuedConnection);
}

bool DataHelper::mayRead(Log log) {
    if (!m_connection->isConnected()) {
        if (log == Log::Refusal)
            qDebug() << "No connection";
        return false;
    }
    if (!m_isOpen) {
        qDebug() << "DB is closed";
        return false;
    }
    return canQuery();
}

bool DataHelper::mayWrite() {
    if (!m_connection->isConnected())
        return false;
    if (!m_isOpen) {
        qDebug() << "DB is closed";
        return false;
    }
    return canMutate(true);
}

QJsonObject DataHelper::read(const QString& text, Log log) {
    QJsonObject data;
    tryRead(text, log, data);
    return data;
}

bool DataHelper::tryRead(const QString& text, Log log, QJsonObject& data) {
    QMutexLocker locker(&m_mutex);
    if (!mayRead(log))
        return true;
    const ReplyBase reply = m_connection->request(text);
    data = reply.data();
    if (!isAnswer(reply))
        emit readFailed();
    return isAnswer(reply);
}

bool DataHelper::write(const QString& text, bool blocking) {
    QMutexLocker locker(&m_mutex);
    if (!mayWrite())
        return false;
    qDebug().noquote() << text;
    if (!blocking) {
        m_connection->send(text);
        return true;
    }
    const ReplyBase reply = m_connection->request(text);
    if (reply.isNull())
        emit writeUnanswered();
    return isAnswer(reply);
}

bool DataHelper::writeBatches(wire::Record record, wire::Operation operation,
                              const QList<QStringList>& records, const QStringList& fields) {
    for (int first = 0; first < records.size();) {
        QList<QStringList> some;
        for (int length = 0; first < records.size() && some.size() < recordsOfBatch && length < lengthOfBatch;
             ++first) {
            some.append(records.at(first));
            for (const QString& argument : records.at(first))
                length += argument.size();
        }
        if (!write(wire::batchMutation(record, operation, some, fields), false))
            return false;
    }
    return true;
}

ReplyBase* DataHelper::queryListAsync(const QString& text, QObject* parent) {
    QMutexLocker locker(&m_mutex);
    return mayRead(Log::Silent) ? m_connection->sendAsync(text, parent) : nullptr;
}

QJsonArray DataHelper::firstFilled(const QJsonObject& data, const QStringList& keys) {
    for (const QString& key : keys) {
        const QJsonArray array = data.value(key).toArray();
        if (!array.isEmpty())
            return array;
    }
    return {};
}

QStringList DataHelper::highlightKeys(const QString& key) {
    const QString list = wire::operationName(wire::Record::Highlight, wire::Operation::QueryList);
    return {key.isEmpty() ? list : key,
            wire::operationName(wire::Record::Highlight, wire::Operation::QueryListWithOffset),
            wire::operationName(wire::Record::Memo, wire::Operation::QueryListWithOffset)};
}

int DataHelper::queryInt(const QString& text, const QString& key) {
    return read(text, Log::Refusal).value(key).toInt();
}

QJsonValue DataHelper::queryValue(const QString& text, const QString& key) {
    const QJsonObject data = read(text, Log::Refusal);
    const QJsonValue value = data.value(key);
    if (!value.isUndefined() && !value.isNull())
        return value;
    emit readFailed();
    return {};
}

QVariantList DataHelper::queryIds(const QString& text, const QString& word, const QString& field) {
    const QString key = word + wire::suffix(wire::Operation::QueryList);
    const QJsonArray list = read(text, Log::Refusal).value(key).toArray();
    QVariantList ids;
    ids.reserve(list.size());
    for (const QJsonValue& element : list)
        ids.append(element.toObject().value(field).toVariant());
    return ids;
}

QStringList DataHelper::queryAuthors(const QString& word) {
    const QString key = word + wire::suffix(wire::Operation::QueryList);
    QStringList authors;
    const QVariantList all =
        queryIds(wire::read(key, QStringList(), {wire::name::author}), word, wire::name::author);
    for (const QVariant& author : all)
        authors.append(author.toString());
    authors.removeDuplicates();
    return authors;
}

int DataHelper::maxId(const QString& word, bool next) {
    const int id = queryInt(wire::maxId(word, next), word + wire::suffix(wire::Operation::MaxId));
    if (next && id < 1)
        emit readFailed();
    return id;
}

QList<int> DataHelper::queryInts(const QStringList& texts, const QString& key) {
    QMutexLocker locker(&m_mutex);
    QList<int> values;
    if (!mayRead(Log::Refusal))
        return values;
    values.reserve(texts.size());
    while (values.size() < texts.size()) {
        const QStringList some = texts.mid(values.size(), requestsAtOnce);
        const QVector<ReplyBase> replies = m_connection->requests(some);
        const bool answered =
            replies.size() == some.size() && std::all_of(replies.begin(), replies.end(), isAnswer);
        if (!answered) {
            emit readFailed();
            return {};
        }
        for (const ReplyBase& reply : replies)
            values.append(reply.data().value(key).toInt());
    }
    return values;
}

QList<int> DataHelper::nextIds(const QString& word, int count) {
    if (count < 1)
        return {};
    const QString key = word + wire::suffix(wire::Operation::MaxId);
    const int bound = isRemote() ? 1 : wire::maxReservedIds;
    QStringList texts;
    for (int left = count; left > 0; left -= bound)
        texts.append(bound == 1 ? wire::maxId(word, true) : wire::reserveIds(word, qMin(left, bound)));
    QList<int> ids;
    for (const int last : queryInts(texts, key)) {
        const int reserved = qMin(count - ids.size(), bound);
        for (int id = last - reserved + 1; id <= last; ++id)
            ids.append(id);
    }
    if (std::all_of(ids.cbegin(), ids.cend(), [](int id) { return id > 0; }))
        return ids;
    emit readFailed();
    return {};
}

bool DataHelper::savesBlocking(wire::Record record) {
    switch (record) {
    case wire::Record::Preference:
    case wire::Record::Question:
    case wire::Record::Kerno:
    case wire::Record::KernoShortcutKey:
        return true;
    default:
        return false;
    }
}

bool DataHelper::canMutate(bool notify) {
    QMutexLocker locker(&m_mutex);
    const bool allowed = accessLevelFromName(m_access) >= AccessLevel::Write;
    if (!allowed && notify)
        emit mutationNotAllowed();
    return allowed;
}

bool DataHelper::canQuery() {
    QMutexLocker locker(&m_mutex);
    const bool allowed = accessLevelFromName(m_access) >= AccessLevel::Read;
    if (!allowed)
        emit queryNotAllowed();
    return allowed;
}

bool DataHelper::isOwner() const {
    QMutexLocker locker(&m_mutex);
    return accessLevelFromName(m_access) == AccessLevel::Owner;
}

QString DataHelper::access() const {
    QMutexLocker locker(&m_mutex);
    return m_access;
}

QJsonObject DataHelper::currentProject() const {
    QMutexLocker locker(&m_mutex);
    return m_currentProject;
}

bool DataHelper::isConnected() const {
    return m_connection->isConnected();
}

bool DataHelper::isRemote() const {
    return m_connection->isRemote();
}

WebSocketHandler* DataHelper::notifications() const {
    return m_connection->webSocketHandler();
}
