#include "http/RequestGate.h"
#include "http/Server.h"

#include <QCoreApplication>
#include <cstdio>

/// The data service of one person on one machine: `kernova-service -local`.
int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2 || arguments[1] != QLatin1String("-local")) {
        std::fprintf(stderr, "Usage: kernova-service -local\n");
        return 2;
    }
    const QByteArray token = qgetenv(tokenVariable);
    // The secret is for this process alone, not for what it may start.
    qunsetenv(tokenVariable);
    Server server(token);
    QString message;
    if (!server.listen(&message)) {
        std::fprintf(stderr, "The service can't listen: %s\n", qPrintable(message));
        return 1;
    }
    std::printf("Port: %u\n", static_cast<unsigned>(server.port()));
    std::fflush(stdout);
    server.run();
    return 0;
}
