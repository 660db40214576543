#include "link/ReplyBase.h"

#include "link/WebSocketHandler.h"

namespace {

const QLatin1String keyErrors("errors");
const QLatin1String keyData("data");

}  // namespace

ReplyBase::ReplyBase(const ReplyBase& other)
    : QObject(), m_id(other.m_id), m_status(other.m_status), m_arrived(other.m_arrived),
      m_handler(other.m_handler), m_errors(other.m_errors), m_data(other.m_data) {}

ReplyBase& ReplyBase::operator=(const ReplyBase& other) {
    m_id = other.m_id;
    m_status = other.m_status;
    m_arrived = other.m_arrived;
    m_handler = other.m_handler;
    m_errors = other.m_errors;
    m_data = other.m_data;
    return *this;
}

ReplyBase::ReplyBase(int id, int status, const QJsonObject& payload)
    : m_id(id), m_status(status), m_arrived(true), m_errors(payload.value(keyErrors).toArray()),
      m_data(payload.value(keyData).toObject()) {}

ReplyBase::ReplyBase(WebSocketHandler* handler, int id, QObject* parent)
    : QObject(parent), m_id(id), m_handler(handler) {
    // By name: a connection to a member function, ended on this thread while the handler's thread emits,
    // loses the memory that holds the function.
    connect(handler, SIGNAL(messageReceived(int, int, QJsonObject)), this, SLOT(take(int, int, QJsonObject)),
            Qt::QueuedConnection);
    connect(handler, SIGNAL(connected()), this, SLOT(stopListening()), Qt::QueuedConnection);
}

void ReplyBase::take(int id, int status, const QJsonObject& payload) {
    if (id != m_id || !m_handler)
        return;
    stopListening();
    m_status = status;
    m_arrived = true;
    if (payload.contains(keyErrors))
        m_errors = payload.value(keyErrors).toArray();
    if (payload.contains(keyData))
        m_data = payload.value(keyData).toObject();
    emit finished();
}

void ReplyBase::stopListening() {
    disconnect(m_handler, nullptr, this, nullptr);
    m_handler = nullptr;
}
