#include "http/RequestGate.h"

namespace {

/// Takes the same time wherever two texts of one length differ.
bool sameSecret(const QByteArray& left, const QByteArray& right) {
    if (left.size() != right.size())
        return false;
    int difference = 0;
    for (int i = 0; i < left.size(); ++i)
        difference |= left[i] ^ right[i];
    return difference == 0;
}

}  // namespace

RequestGate::RequestGate(quint16 port, const QByteArray& token)
    : m_host(QByteArrayLiteral("127.0.0.1:") + QByteArray::number(port)), m_token(token) {}

QString RequestGate::refusal(const RequestOrigin& origin) const {
    if (origin.hasOrigin)
        return QStringLiteral("Pages may not use this service.");
    if (origin.host != m_host)
        return QStringLiteral("This is not the address of the service.");
    if (!m_token.isEmpty() && !sameSecret(origin.token, m_token))
        return QStringLiteral("The token is missing or wrong.");
    return {};
}
