#include "import/PDFTextExtractor.h"

#include "import/ImportLog.h"
#include "import/ImportedText.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTimer>

namespace {

constexpr int notStarted = -2;
constexpr int crashed = -1;
// Far more than any book; a converter that writes on and on isn't read.
constexpr qint64 mostOutputBytes = qint64(64) << 20;

}  // namespace

PDFTextExtractor::PDFTextExtractor(const QString& pdfPath, QObject* parent)
    : QObject(parent), m_converter(QCoreApplication::applicationDirPath() + QDir::separator() +
                                   QLatin1String("3rd_party/pdftotext/pdftotext")),
      m_inputPath(pdfPath) {
    m_outputPath =
        QStringLiteral("%1%2%3.txt")
            .arg(m_folder.path(), QDir::separator(), QString::number(QDateTime::currentMSecsSinceEpoch()));
}

void PDFTextExtractor::setConverter(const QString& program, const Timings& timings) {
    m_converter = program;
    m_timings = timings;
}

QString PDFTextExtractor::extract(const std::function<bool()>& cancelled) {
    const int exitCode = m_folder.isValid() ? convert(cancelled) : notStarted;
    qCDebug(logFileImport) << "exit code" << exitCode;
    const QString text = exitCode == 0 ? readOutput() : QString();
    emit extracted(exitCode, text);
    return text;
}

int PDFTextExtractor::convert(const std::function<bool()>& cancelled) {
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &m_loop,
            &QEventLoop::quit);
    connect(&process, &QProcess::errorOccurred, &m_loop, &QEventLoop::quit);
    QTimer limit;
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, &process, &QProcess::kill);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &process, [&] {
        if (cancelled && cancelled())
            process.kill();
    });
    limit.start(m_timings.limit);
    poll.start(m_timings.poll);
    process.start(m_converter, {QStringLiteral("-enc"), QStringLiteral("UTF-8"), m_inputPath, m_outputPath},
                  QIODevice::ReadOnly);
    while (process.state() != QProcess::NotRunning && m_loop.exec() == 0) {}
    if (process.error() == QProcess::FailedToStart)
        return notStarted;
    return process.state() == QProcess::NotRunning && process.exitStatus() == QProcess::NormalExit
               ? process.exitCode()
               : crashed;
}

QString PDFTextExtractor::readOutput() const {
    QFile output(m_outputPath);
    if (!output.open(QIODevice::ReadOnly) || output.size() > mostOutputBytes)
        return {};
    qCDebug(logFileImport) << "opened";
    return withLineFeeds(QString::fromUtf8(output.readAll())).trimmed();
}
