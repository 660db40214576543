#pragma once

#include "link/LinkTimings.h"

#include <QString>

class QProcess;

/// Starting and ending the executable of the local data service. Both functions block the calling thread.
namespace serviceprocess {

/// The executable beside this program; the environment variable KERNOVA_SERVICE_PROGRAM names another.
QString program();

/// What the service's output says about its port.
struct PortLine {
    int port = 0;        ///< 0: no port line yet
    bool ended = false;  ///< something follows the number, so that it is whole
};
PortLine findPort(const QString& output);

struct Start {
    int port = 0;   ///< 0: it failed
    QString error;  ///< why, for people
};

/// Starts the service and waits for its port line, at most `LinkTimings::start` for each of the two, and no
/// longer than the process lives or until the thread is asked to stop. A running process is ended first, one
/// that fails is ended too. The process gets the token of ServiceConfig in its environment.
Start start(QProcess& process, const LinkTimings& timings);

/// Asks a running process to end, waits, and kills it when it doesn't in `LinkTimings::stop`.
void end(QProcess& process, const LinkTimings& timings);

}  // namespace serviceprocess
