#pragma once

#include <QByteArray>
#include <QString>

/// What a request shows of where it comes from.
struct RequestOrigin {
    QByteArray host;
    bool hasOrigin = false;
    QByteArray token;  ///< empty when the header is missing
};

/// Who may talk to the service: programs of this machine, never a page in a browser.
class RequestGate {
public:
    /// With an empty token any request of a local program passes.
    RequestGate(quint16 port, const QByteArray& token);

    /// Empty when the request may pass, otherwise why not.
    QString refusal(const RequestOrigin& origin) const;

private:
    QByteArray m_host;
    QByteArray m_token;
};

/// Header that carries the token, and environment variable that hands it to the service.
constexpr char tokenHeader[] = "Kernova-Service-Token";
constexpr char tokenVariable[] = "KERNOVA_SERVICE_TOKEN";
