#pragma once

#include "project/Progress.h"

#include <QJsonDocument>
#include <QString>

namespace cli {

/// Standard output and standard error. Results go to the first, progress and failures to the second.
class Console {
public:
    explicit Console(bool quiet);

    /// Writes to standard output, in UTF-8. What can't be written is told by `flush`.
    static void print(const QString& text);
    static void print(const QJsonDocument& json);
    static bool flush();
    static void complain(const QString& sentence);

    /// A text of a person in one line, without the characters that a terminal would obey.
    static QString printable(QString text);

    /// Shows how far something is, when standard error is a terminal. The work ends when the user interrupts
    /// the program.
    Progress progress(const QString& what) const;
    /// Takes a progress that stands there away.
    void endProgress() const;

    /// From now on the first SIGINT or SIGTERM asks long work to end; the second ends the program.
    static void watchInterrupts();
    static bool isInterrupted();

private:
    bool m_showsProgress;
};

}  // namespace cli
