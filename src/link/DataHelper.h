#pragma once

#include "link/CloudCalls.h"
#include "link/LinkTimings.h"
#include "link/Message.h"
#include "link/ReplyBase.h"
#include "wire/Operations.h"
#include "wire/QueryText.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>

class Connection;
class QNetworkAccessManager;
class QNetworkRequest;
class WebSocketHandler;

/// Reads and writes of records over the link, and whether a project is open at the service.
///
/// A read blocks its caller until the reply has come and gives the empty value of its type when the link is
/// down, no project is open, the access level forbids it, or the service reports an error. Every operation
/// may be called on any thread but the network thread; a lock held for the whole of each operation, wait
/// included, lets one pass at a time. `openProject`, `closeProject` and the calls about projects and accounts
/// belong to the main thread.
///
/// A record class T offers `static wire::Record record()`, `static const QStringList& queryFields()`,
/// `QStringList mutationArguments() const` and a constructor from a JSON object and a tag.
class DataHelper : public QObject {
    Q_OBJECT

public:
    explicit DataHelper(QObject* parent = nullptr);
    explicit DataHelper(const LinkTimings& timings, QObject* parent = nullptr);
    ~DataHelper() override;

    // Reads

    template <typename T> QList<T> findAll() { return readList<T>(listText<T>(), {listKey<T>()}, "findAll"); }

    /// The same for callers to whom a failed read is not an empty list: false when the service reported an
    /// error or didn't answer in time. A refused read gives true and no records.
    template <typename T> bool findAll(QList<T>& list) { return queryList(listText<T>(), list); }
    template <typename T> bool queryList(const QString& text, QList<T>& list) {
        QJsonObject data;
        const bool read = tryRead(text, Log::Silent, data);
        list = records<T>(data, {listKey<T>()});
        return read;
    }

    /// The record with that id (or key), or an invalid one.
    template <typename T, typename Id> T findById(const Id& id) {
        const QString operation = wire::operationName(T::record(), wire::Operation::QueryById);
        const QJsonObject data =
            read(wire::read(operation, {idArgument(id)}, T::queryFields()), Log::Refusal);
        return data.contains(operation) ? T(data.value(operation).toObject(), "findById") : T();
    }

    /// The records that a finished text asks for, read at `key`; an empty key means the record's list
    /// operation.
    template <typename T> QList<T> queryList(const QString& text, const QString& key = {}) {
        return readList<T>(text, {key.isEmpty() ? listKey<T>() : key}, "queryList");
    }

    /// The records that a finished text asks for, read at the first of the keys whose array isn't empty.
    template <typename T> QList<T> queryList(const QString& text, const QStringList& keys) {
        return readList<T>(text, keys, "queryList");
    }

    /// The first record of the reply's list, or an invalid one.
    template <typename T> T queryOne(const QString& text) {
        const QJsonArray list = read(text, Log::Refusal).value(listKey<T>()).toArray();
        return list.isEmpty() ? T() : T(list.first().toObject(), "queryOne");
    }

    /// Sends a list read without waiting. The reply is owned by the caller and emits `finished` when it has
    /// come; null when the read is refused. Its records are those of `records<T>(reply->data(), keys)`.
    ReplyBase* queryListAsync(const QString& text, QObject* parent = nullptr);

    /// The records in a reply's data, read at the first of the keys whose array isn't empty.
    template <typename T>
    static QList<T> records(const QJsonObject& data, const QStringList& keys, const char* tag = "queryList") {
        QList<T> list;
        const QJsonArray array = firstFilled(data, keys);
        list.reserve(array.size());
        for (const QJsonValue& value : array)
            list.append(T(value.toObject(), tag));
        return list;
    }

    /// Where a read of highlights finds its list: at `key`, or at one of the window operations.
    static QStringList highlightKeys(const QString& key = {});

    /// The text of a list read with all fields of the record.
    template <typename T>
    static QString listText(const QStringList& arguments = {},
                            wire::Operation operation = wire::Operation::QueryList) {
        return wire::read(wire::operationName(T::record(), operation), arguments, T::queryFields());
    }

    int queryInt(const QString& text, const QString& key);
    /// The numbers that many such reads give, in their order, for about the time of one. Empty when one of
    /// them fails, or all are refused.
    QList<int> queryInts(const QStringList& texts, const QString& key);
    QJsonValue queryValue(const QString& text, const QString& key);
    /// The value of one field of each element of the word's list.
    QVariantList queryIds(const QString& text, const QString& word, const QString& field);
    /// The authors of all records of that word, each once, in the order of their first record.
    QStringList queryAuthors(const QString& word);
    /// The highest id of that word; with `next` a new id that the service reserves. 0 when refused.
    int maxId(const QString& word, bool next);
    int nextId(const QString& word, bool reserve) { return maxId(word, reserve); }
    /// Reserves `count` ids of that word, ascending; between them may lie ids that other clients have taken.
    /// Costs one round trip, or in the cloud about one for many. Empty when refused, or when not all could be
    /// reserved.
    QList<int> nextIds(const QString& word, int count);

    // Writes: false when refused. A write that is only sent learns its outcome from the notification.

    /// Creates or updates the record. Preferences, questions, kernos and shortcut keys wait for the reply and
    /// give whether it came and had no errors; all others are only sent.
    template <typename T> bool save(const T& record) { return save(record, !savesBlocking(T::record())); }
    /// The same with the choice made by the caller.
    template <typename T> bool save(const T& record, bool async) {
        return write(mutationText(record, wire::Operation::CreateOrUpdate), !async);
    }
    template <typename T> bool remove(const T& record) {
        return write(mutationText(record, wire::Operation::Remove), false);
    }
    template <typename T> bool batchSave(const QList<T>& records) {
        return write(batchText(records, wire::Operation::BatchCreateOrUpdate), false);
    }
    template <typename T> bool batchRemove(const QList<T>& records) {
        return write(batchText(records, wire::Operation::BatchRemove), false);
    }
    /// Saves or removes many records of a kind whose batches are answered with records. In the cloud, where
    /// the service may not know these, each goes alone.
    template <typename T> bool saveAll(const QList<T>& records) {
        if (isRemote())
            return std::all_of(records.cbegin(), records.cend(),
                               [this](const T& record) { return save(record); });
        return writeBatches(T::record(), wire::Operation::BatchCreateOrUpdate, listOfArguments(records),
                            T::queryFields());
    }
    template <typename T> bool removeAll(const QList<T>& records) {
        if (isRemote())
            return std::all_of(records.cbegin(), records.cend(),
                               [this](const T& record) { return remove(record); });
        QList<QStringList> ids;
        for (const T& record : records)
            ids.append({idArgument(record.id())});
        return writeBatches(T::record(), wire::Operation::BatchRemove, ids, {wire::name::id});
    }

    // Access and project

    /// Level write or above; otherwise emits `mutationNotAllowed` when `notify` is set.
    bool canMutate(bool notify);
    /// Level read or above; otherwise emits `queryNotAllowed`.
    bool canQuery();
    bool isOwner() const;
    QString access() const;
    bool isOpen() const { return m_isOpen; }
    bool isConnected() const;
    bool isRemote() const;
    /// The project object of the last successful open; kept while the link is down, empty after a close.
    QJsonObject currentProject() const;

    /// Opens the project at the service; `project` needs `name`, and has `project_uuid` and `region` when it
    /// lives in the cloud. Connects first when the link is down. True when the service answered for this
    /// project, even if it could not open it: then `isOpen` stays false.
    bool openProject(const QJsonObject& project);
    bool closeProject();
    /// Closes the link and logs out.
    void disconnect();

    // Accounts and stored projects

    // They wait in a local event loop. Without a known cloud they give a message that says so. What the
    // message's `json` holds is said beside the call.

    /// Logs in and keeps tokens, region and regional hosts.
    Message login(const QString& email, const QString& password);
    Message projects();        ///< the account's own: `projects`
    Message projectsShared();  ///< those that others share with it: `shares`
    Message projectByName(const QString& name);
    Message createNewProject(const QString& title);  ///< `project`
    Message removeProject(const QString& uuid);
    /// Sends a project file; `project`.
    Message uploadProject(const QString& path);
    /// Fetches a project's file. Only a whole one takes the place of `file`.
    bool downloadProject(const QString& uuid, const QString& file);
    /// Has the cloud copy the open project under a new name; `project`.
    Message saveAs(const QString& newName);
    /// Asks the service, local or in the cloud, for the whole project; `project_json`.
    Message exportProjectJson(const QJsonObject& project);
    /// The same with the preferences alone in `project_json`, where the service knows how: a cloud sends the
    /// whole project.
    Message exportPreferences(const QJsonObject& project);
    /// Writes a new project of the whole project `json`, local or in the cloud; `project`.
    Message importProjectJson(const QJsonObject& project, const QJsonValue& json);
    /// The two for a large project, which is too much to be held as values: the reply of the first comes as
    /// its bytes in `body`, and the second takes a file that holds the project object with `project_json` in
    /// it.
    Message readProject(const QJsonObject& project, QByteArray& body);
    Message writeProject(const QString& bodyFile);

    Connection* connection() const { return m_connection.get(); }
    /// The object whose signals are the service's notifications; it lives on the network thread.
    WebSocketHandler* notifications() const;

    /// The sentence for people about a local project whose file isn't there.
    static QString missingFile(const QString& path);
    /// Whether `save` waits for the reply of a record of this kind.
    static bool savesBlocking(wire::Record record);

signals:
    void kernosJson(QJsonValue json);
    void wsConnected();
    void wsDisconnected();
    void closedDueToAnotherSession();
    void mutationNotAllowed();
    void queryNotAllowed();
    void accessChanged(QString newAccess);
    void accessRevoked();
    /// A write that waited for its reply got none: it may be stored or not.
    void writeUnanswered();
    /// A read that waited got no reply, or an error: what it gives is no answer.
    void readFailed();
    /// The link is back, but the local project that was open could not be opened again; it is forgotten.
    void reopenFailed(QString error);

private slots:
    void onReconnected();
    void onAccessChanged(const QString& newAccess);

private:
    enum class Log { Silent, Refusal };

    template <typename T> static QString listKey() {
        return wire::operationName(T::record(), wire::Operation::QueryList);
    }
    template <typename T> QList<T> readList(const QString& text, const QStringList& keys, const char* tag) {
        return records<T>(read(text, Log::Silent), keys, tag);
    }
    template <typename T> static QString mutationText(const T& record, wire::Operation operation) {
        return wire::mutation(wire::operationName(T::record(), operation), record.mutationArguments(),
                              T::queryFields());
    }
    template <typename T> static QString batchText(const QList<T>& records, wire::Operation operation) {
        return wire::batchMutation(T::record(), operation, listOfArguments(records));
    }
    template <typename T> static QList<QStringList> listOfArguments(const QList<T>& records) {
        QList<QStringList> arguments;
        arguments.reserve(records.size());
        for (const T& record : records)
            arguments.append(record.mutationArguments());
        return arguments;
    }
    static QString idArgument(int id) { return wire::argument(wire::name::id, id); }
    static QString idArgument(const QString& key) { return wire::argument(QStringLiteral("key"), key); }
    static QJsonArray firstFilled(const QJsonObject& data, const QStringList& keys);

    void connectLinkSignals();
    bool mayRead(Log log);
    bool mayWrite();
    QJsonObject read(const QString& text, Log log);
    bool tryRead(const QString& text, Log log, QJsonObject& data);
    bool write(const QString& text, bool blocking);
    bool writeBatches(wire::Record record, wire::Operation operation, const QList<QStringList>& records,
                      const QStringList& fields);
    void reopen(const QJsonObject& project);
    void switchRegion(const QString& region);
    void forgetProject();
    Message send(HttpVerb verb, const QNetworkRequest& request, const QByteArray& body);
    Message sendFile(const QNetworkRequest& request, const QString& path);
    Message sendContentOf(const QNetworkRequest& request, const QString& path);
    Message callCloud(CloudCall call, const QString& argument = {}, const QJsonObject& body = {});
    Message callLocal(const QString& path, const std::function<Message(const QNetworkRequest&)>& call);
    Message exportJson(const QJsonObject& project, const QString& localPart);
    static QString localRead(const QJsonObject& project);

    std::atomic<bool> m_isOpen{false};
    QJsonObject m_currentProject;
    QString m_access;
    mutable QRecursiveMutex m_mutex;
    // Before the link: its thread makes one, too, and what the first one loads is not made for two threads.
    QNetworkAccessManager* m_networkAccessManager = nullptr;
    std::unique_ptr<Connection> m_connection;
    int m_transferBound;  ///< ms
};
