#include "link/ServiceProcess.h"

#include "link/ServiceConfig.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>

namespace serviceprocess {
namespace {

constexpr int waitSlice = 50;  // ms, so that a wait notices that the thread is to stop

QString tr(const char* text) {
    return QCoreApplication::translate("ServiceProcess", text);
}

// Reads until the port line stands there; empty output lines and other words before it are skipped.
int waitForPort(QProcess& process, const LinkTimings& timings, QString& error) {
    QDeadlineTimer deadline(timings.start);
    QDeadlineTimer restOfLine(QDeadlineTimer::Forever);
    QString output;
    for (;;) {
        output += QString::fromUtf8(process.readAllStandardOutput());
        const PortLine line = findPort(output);
        if (line.port > 0 && (line.ended || restOfLine.hasExpired()))
            return line.port;
        if (line.port > 0 && restOfLine.isForever())
            restOfLine.setRemainingTime(timings.portLine);
        qDebug() << "finding port";
        if (process.state() == QProcess::NotRunning) {
            error = tr("The data service ended before it was ready.");
            return 0;
        }
        if (deadline.hasExpired() || QThread::currentThread()->isInterruptionRequested()) {
            error = tr("The data service did not become ready in time.");
            return 0;
        }
        process.waitForReadyRead(waitSlice);
    }
}

}  // namespace

QString program() {
    const QByteArray other = qgetenv("KERNOVA_SERVICE_PROGRAM");
    if (!other.isEmpty())
        return QFile::decodeName(other);
    return QCoreApplication::applicationDirPath() + QDir::separator() + QLatin1String("kernova-service");
}

PortLine findPort(const QString& output) {
    static const QRegularExpression pattern(QStringLiteral("Port:\\s\\d+"));
    const QRegularExpressionMatch match = pattern.match(output);
    if (!match.hasMatch())
        return {};
    return {match.captured().mid(6).toInt(), match.capturedEnd() < output.size()};
}

Start start(QProcess& process, const LinkTimings& timings) {
    end(process, timings);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("KERNOVA_SERVICE_TOKEN"),
                       QString::fromLatin1(ServiceConfig::instance().serviceToken()));
    process.setProcessEnvironment(environment);
    // Nobody reads its errors here: they go where this program's own go.
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program(), {QStringLiteral("-local")}, QIODevice::ReadWrite);
    Start result;
    if (!process.waitForStarted(timings.start))
        result.error = tr("The data service could not be started: %1").arg(process.errorString());
    else
        result.port = waitForPort(process, timings, result.error);
    if (result.port == 0)
        end(process, timings);
    return result;
}

void end(QProcess& process, const LinkTimings& timings) {
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (process.waitForFinished(timings.stop))
        return;
    process.kill();
    process.waitForFinished(timings.stop);
}

}  // namespace serviceprocess
