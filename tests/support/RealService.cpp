#include "tests_support/RealService.h"

#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"

namespace {

constexpr int bound = 20000;  // ms

}

QString RealService::program() {
    const QString path = qEnvironmentVariable("KERNOVA_SERVICE_PROGRAM");
    return QFileInfo(path).isExecutable() ? path : QString();
}

RealService::RealService(const QByteArray& token) : m_token(token) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

RealService::~RealService() {
    unshare();
    if (m_process.state() != QProcess::NotRunning)
        kill();
}

bool RealService::start() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString variable = "KERNOVA_SERVICE_TOKEN"_s;
    if (m_token.isEmpty())
        environment.remove(variable);
    else
        environment.insert(variable, QString::fromLatin1(m_token));
    m_process.setProcessEnvironment(environment);
    m_process.start(program(), {"-local"_s});
    m_port = 0;
    static const QRegularExpression line("Port:\\s(\\d+)\\s"_s);
    const QDeadlineTimer deadline(bound);
    QString output;
    while (m_port == 0 && !deadline.hasExpired()) {
        if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
        output += QString::fromUtf8(m_process.readAllStandardOutput());
        m_port = line.match(output).captured(1).toUShort();
    }
    return m_port != 0;
}

bool RealService::share() {
    const QString shared =
        writeProgram(m_folder, "shared"_s, "echo 'Port: %1'\nexec cat > /dev/null"_s.arg(m_port));
    if (m_port == 0 || shared.isEmpty())
        return false;
    if (m_formerProgram.isEmpty())
        m_formerProgram = qgetenv("KERNOVA_SERVICE_PROGRAM");
    return qputenv("KERNOVA_SERVICE_PROGRAM", QFile::encodeName(shared));
}

void RealService::unshare() {
    if (!m_formerProgram.isEmpty())
        qputenv("KERNOVA_SERVICE_PROGRAM", m_formerProgram);
}

QUrl RealService::httpUrl(const QString& pathAndQuery) const {
    return QUrl("http://127.0.0.1:%1%2"_s.arg(m_port).arg(pathAndQuery));
}

int RealService::endByInput() {
    m_process.closeWriteChannel();
    return waitForEnd();
}

void RealService::kill() {
    m_process.kill();
    m_process.waitForFinished(bound);
}

int RealService::waitForEnd() {
    // Clients of this thread hear meanwhile that it ends, which it waits for.
    if (!waitFor([this] { return m_process.state() == QProcess::NotRunning; }, bound))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}
