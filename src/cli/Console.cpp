#include "cli/Console.h"

#include <QElapsedTimer>
#include <csignal>
#include <cstdio>
#include <memory>
#include <unistd.h>

namespace cli {

namespace {

constexpr int progressInterval = 100;  // ms

volatile std::sig_atomic_t interrupted = 0;

void write(std::FILE* file, const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), file);
}

}  // namespace

Console::Console(bool quiet) : m_showsProgress(!quiet && isatty(STDERR_FILENO)) {}

void Console::print(const QString& text) {
    write(stdout, text.toUtf8());
}

void Console::print(const QJsonDocument& json) {
    write(stdout, json.toJson(QJsonDocument::Indented));
}

bool Console::flush() {
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}

void Console::complain(const QString& sentence) {
    write(stderr, "kernova-cli: " + sentence.toUtf8() + '\n');
}

QString Console::printable(QString text) {
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control || character.category() == QChar::Other_Format)
            character = QLatin1Char(' ');
    }
    return text;
}

Progress Console::progress(const QString& what) const {
    if (!m_showsProgress)
        return [](qint64, qint64) { return !isInterrupted(); };
    auto sinceShown = std::make_shared<QElapsedTimer>();
    return [what, sinceShown](qint64 done, qint64 of) {
        if (!sinceShown->isValid() || sinceShown->elapsed() >= progressInterval) {
            sinceShown->start();
            write(stderr, QStringLiteral("\r%1 %2%").arg(what).arg(of > 0 ? 100 * done / of : 0).toUtf8());
        }
        return !isInterrupted();
    };
}

void Console::endProgress() const {
    if (m_showsProgress)
        write(stderr, "\r\033[K");
}

void Console::watchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM}) {
        std::signal(signal, [](int which) {
            interrupted = 1;
            std::signal(which, SIG_DFL);
        });
    }
    // A reader that goes away is told as a failed write.
    std::signal(SIGPIPE, SIG_IGN);
}

bool Console::isInterrupted() {
    return interrupted != 0;
}

}  // namespace cli
