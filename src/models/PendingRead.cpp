#include "models/PendingRead.h"

#include "link/DataHelper.h"

bool PendingRead::send(DataHelper* helper, const QString& text, QObject* owner, Take take, Fail fail) {
    forget();
    ReplyBase* reply = helper ? helper->queryListAsync(text, owner) : nullptr;
    if (!reply)
        return false;
    m_reply = reply;
    QObject::connect(reply, &ReplyBase::finished, owner,
                     [this, reply, take = std::move(take), fail = std::move(fail)] {
                         if (reply != m_reply)
                             return;
                         forget();
                         if (reply->errors().isEmpty())
                             take(reply->data());
                         else if (fail)
                             fail();
                     });
    return true;
}

void PendingRead::forget() {
    if (m_reply)
        m_reply->deleteLater();
    m_reply = nullptr;
}
