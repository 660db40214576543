#pragma once

#include <QJsonObject>
#include <QPointer>
#include <functional>

class DataHelper;
class QObject;
class ReplyBase;

/// The newest list read that a model has on its way. A reply that the model no longer waits for (it asked
/// anew, or called `forget` when the project closed) never reaches it. Main thread.
class PendingRead {
public:
    using Take = std::function<void(const QJsonObject& data)>;
    using Fail = std::function<void()>;

    /// Asks, in place of what was on its way. `take` gets the data of a reply without errors; one with errors
    /// ends in `fail`. Both run in the life of `owner`. False when the read is refused: the link is down or
    /// no project is open.
    bool send(DataHelper* helper, const QString& text, QObject* owner, Take take, Fail fail = {});
    void forget();
    bool isOnItsWay() const { return !m_reply.isNull(); }

private:
    QPointer<ReplyBase> m_reply;
};
