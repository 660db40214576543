#include "tests_support/TestMain.h"

#include <cstdio>

namespace {

QStringList expectedWarnings;

bool isExpected(const QString& line) {
    for (const QString& pattern : qAsConst(expectedWarnings)) {
        if (QRegularExpression(pattern).match(line).hasMatch())
            return true;
    }
    return false;
}

// Qt Test takes over the message handler while it runs, so warnings are counted from its log afterwards.
QStringList unexpectedWarnings(const QString& logFile) {
    QFile log(logFile);
    QStringList found;
    if (!log.open(QIODevice::ReadOnly | QIODevice::Text))
        return {"the log of the run cannot be read"_s};
    static const QRegularExpression warning("^(QWARN|QSYSTEM|QCRITICAL|QFATAL) "_s);
    QTextStream lines(&log);
    while (!lines.atEnd()) {
        const QString line = lines.readLine();
        if (warning.match(line).hasMatch() && !isExpected(line))
            found << line;
    }
    return found;
}

// In memory where there is room: most of a test's time at a service would go into waiting for the disk.
QString folderTemplate() {
    const QStorageInfo memory("/dev/shm"_s);
    const bool hasRoom = memory.fileSystemType() == "tmpfs" && memory.bytesAvailable() > (1 << 30) &&
                         QFileInfo(memory.rootPath()).isWritable();
    return (hasRoom ? memory.rootPath() : QDir::tempPath()) + "/kernova-test-XXXXXX"_s;
}

}  // namespace

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written", qPrintable(path));
}

void expectWarning(const char* pattern) {
    expectedWarnings << QString::fromLatin1(pattern);
}

TestEnvironment::TestEnvironment() {
    QTemporaryDir root(folderTemplate());
    root.setAutoRemove(false);
    m_root = root.path();
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        const QString folder = m_root + QLatin1Char('/') + QString::fromLatin1(name).toLower();
        QDir().mkpath(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(name, QFile::encodeName(folder));
    }
    // Tests that expect a debug line need the lines that a developer may have switched off.
    for (const char* name : {"QT_LOGGING_RULES", "QT_LOGGING_CONF"})
        qunsetenv(name);
    QLoggingCategory::setFilterRules("*.debug=false"_s);
}

TestEnvironment::~TestEnvironment() {
    QDir(m_root).removeRecursively();
}

int TestEnvironment::run(QObject* test, const QStringList& arguments) {
    const QString logFile = m_root + "/log.txt"_s;
    const QStringList logs{"-o"_s, "-,txt"_s, "-o"_s, logFile + ",txt"_s};
    const int result = QTest::qExec(test, arguments + logs);
    if (result != 0)
        return result;
    const QStringList warnings = unexpectedWarnings(logFile);
    for (const QString& warning : warnings)
        std::fprintf(stderr, "unexpected warning: %s\n", qPrintable(warning));
    return warnings.isEmpty() ? 0 : 1;
}
