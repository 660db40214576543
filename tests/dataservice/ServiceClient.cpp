#include "ServiceClient.h"

#include "store/Table.h"
#include "wire/Frames.h"
#include "wire/QueryText.h"

#include <QEventLoop>
#include <QNetworkRequest>
#include <QTimer>

ServiceClient::ServiceClient() {
    connect(&m_socket, &QWebSocket::textMessageReceived, this, &ServiceClient::receive);
}

ServiceClient::~ServiceClient() {
    m_socket.abort();
}

bool ServiceClient::connectTo(quint16 port, const QByteArray& token) {
    QNetworkRequest request(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)));
    if (!token.isEmpty())
        request.setRawHeader("Kernova-Service-Token", token);
    bool failed = false;
    const auto connection = connect(&m_socket, &QWebSocket::disconnected, this, [&] { failed = true; });
    m_socket.open(request);
    waitUntil([&] { return failed || m_socket.isValid(); });
    disconnect(connection);
    return m_socket.isValid();
}

bool ServiceClient::open(const QString& path) {
    const QJsonObject reply = ask(wire::openProject(path, {})).toObject();
    return reply.value(QStringLiteral("status")).toString() == QLatin1String("open");
}

int ServiceClient::send(const QString& query) {
    m_socket.sendTextMessage(wire::RequestFrame{{}, ++m_lastId, query}.toText());
    return m_lastId;
}

QJsonObject ServiceClient::request(const QString& query) {
    const int id = send(query);
    waitUntil([&] { return reply(id) != nullptr; });
    const Frame* frame = reply(id);
    return frame ? frame->payload : QJsonObject();
}

QJsonValue ServiceClient::ask(const QString& query) {
    const QJsonObject data = request(query).value(QStringLiteral("data")).toObject();
    return data.isEmpty() ? QJsonValue(QJsonValue::Undefined) : data.begin().value();
}

QString ServiceClient::errorOf(const QString& query) {
    const QJsonArray errors = request(query).value(QStringLiteral("errors")).toArray();
    return errors.at(0).toObject().value(QStringLiteral("message")).toString();
}

bool ServiceClient::waitUntil(const std::function<bool()>& condition, int milliseconds) {
    QEventLoop loop;
    QTimer deadline;
    deadline.setSingleShot(true);
    connect(&deadline, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(&m_socket, &QWebSocket::textMessageReceived, &loop, &QEventLoop::quit);
    connect(&m_socket, &QWebSocket::connected, &loop, &QEventLoop::quit);
    connect(&m_socket, &QWebSocket::disconnected, &loop, &QEventLoop::quit);
    deadline.start(milliseconds);
    while (!condition() && deadline.isActive())
        loop.exec();
    return condition();
}

bool ServiceClient::waitForFrames(size_t count) {
    return waitUntil([&] { return frames.size() >= count; });
}

const ServiceClient::Frame* ServiceClient::reply(int messageId) const {
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
        if (frame->messageId == messageId)
            return &*frame;
    }
    return nullptr;
}

QString ServiceClient::allFields(wire::Record record) {
    QStringList names;
    for (const Column& column : tableOf(record).columns)
        names << column.name;
    return names.join(QLatin1Char(' '));
}

QString ServiceClient::saving(wire::Record record, const QString& arguments) {
    return wire::mutation(wire::operationName(record, wire::Operation::CreateOrUpdate), {arguments},
                          {allFields(record)});
}

QString ServiceClient::removing(wire::Record record, const QString& arguments) {
    return wire::mutation(wire::operationName(record, wire::Operation::Remove), {arguments},
                          {allFields(record)});
}

QString ServiceClient::listing(wire::Record record, const QString& arguments) {
    const QString operation = wire::operationName(record, wire::Operation::QueryList);
    if (arguments.isEmpty())
        return wire::read(operation, QStringList(), {allFields(record)});
    return wire::read(operation, {arguments}, {allFields(record)});
}

QByteArray ServiceClient::handshake(quint16 port) {
    return "GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(port) +
           "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
           "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n";
}

QByteArray ServiceClient::frame(const QByteArray& payload, int opcode, bool masked) {
    const int size = payload.size();
    QByteArray bytes(1, static_cast<char>(0x80 | opcode));
    bytes += static_cast<char>((masked ? 0x80 : 0) | qMin(size, 126));
    if (size >= 126)
        bytes.append(static_cast<char>(size / 256)).append(static_cast<char>(size % 256));
    return bytes + QByteArray(masked ? 4 : 0, '\0') + payload;
}

void ServiceClient::receive(const QString& text) {
    const wire::ResponseFrame frame = wire::responseFromJson(wire::readFrame(text).object);
    frames.push_back({frame.messageId, frame.status, frame.payload});
}
