#include "Pulse.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "merge/ProjectMerger.h"
#include "models/KernoModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionAnswerModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

// Opening a large project through KRNFile, in a process of its own that does nothing else: how long until it
// can be used, until the text of the shown source and all texts are here, how long the main thread is held at
// most in between, and what memory is left at rest against the UTF-8 bytes of the texts.
//
//   bench_opening              makes a project in a temporary folder and opens it three times
//   bench_opening make FILE    makes the project and keeps it
//   bench_opening open FILE    opens a project once

namespace {

constexpr int sourceCount = 1000;
constexpr int textLength = 100000;
constexpr int kernoCount = 1000;
constexpr int highlightsPerSource = 115;
constexpr int highlightLength = 400;
constexpr int bound = 120000;  // ms
constexpr int rounds = 3;

const char* const words[] = {"we",     "talked", "about", "trust", "and",  "what",  "changed",
                             "in",     "the",    "team",  "when",  "they", "moved", "interview",
                             "people", "said",   "that",  "work",  "was",  "never", "simple"};

QString textOfSource(int sourceId) {
    QString text;
    text.reserve(textLength + 20);
    quint32 state = static_cast<quint32>(sourceId) * 2654435761u;
    while (text.size() < textLength) {
        state = state * 1664525u + 1013904223u;
        text += QLatin1String(words[(state >> 16) % (sizeof(words) / sizeof(*words))]);
        text += QLatin1Char(state % 97 == 0 ? '\n' : ' ');
    }
    text.truncate(textLength);
    return text;
}

QJsonObject projectOf(const QString& path) {
    return {{QStringLiteral("name"), path}, {QStringLiteral("project_uuid"), QString()}};
}

bool makeProject(const QString& path) {
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    DataHelper& helper = *file.dataHelper();
    if (!helper.connection()->connect(false) || !file.openProject(projectOf(path), true, {}, true))
        return false;
    const QString author = QStringLiteral("Ann Author");
    for (int id = 1; id <= kernoCount; ++id)
        helper.save(Kerno(id, id > 100 ? id % 100 + 1 : -1, QColor::fromHsv(id % 360, 200, 200),
                          QStringLiteral("Topic %1").arg(id), {}, {}, author, id * 7 % 900, id * 13 % 700),
                    true);
    int highlightId = 0;
    for (int id = 1; id <= sourceCount; ++id) {
        helper.save(
            Source(id, QStringLiteral("Interview %1").arg(id), QStringLiteral("md_generic"), author, {}));
        helper.save(QuestionAnswer(id, 1, id, author, textOfSource(id), {}));
        QList<Highlight> batch;
        for (int i = 0; i < highlightsPerSource; ++i) {
            const int start = i * (textLength - highlightLength) / highlightsPerSource;
            ++highlightId;
            batch.append(Highlight(highlightId, 1 + highlightId % kernoCount, id, 1, {}, start,
                                   highlightLength, start + highlightLength, author, {}, 0, 0, 0, false));
        }
        file.batchSaveHighlights(batch);
        if (id % 50 == 0)
            file.kernoIds();  // returns when all of it is stored
    }
    file.close();
    return true;
}

/// Runs the event loop until the signal has come and the condition holds.
template <typename Sender, typename Signal, typename Condition>
void until(const Sender* sender, Signal signal, Condition condition) {
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, [&] {
        if (condition())
            loop.quit();
    });
    QTimer::singleShot(bound, &loop, &QEventLoop::quit);
    if (!condition())
        loop.exec();
}

bool openProject(const QString& path) {
    KRNFile file;
    file.initModels();
    ProjectMerger merger(file.dataHelper());
    QuestionAnswerModel shown(file.dataHelper());
    shown.setSourceId(sourceCount / 2);
    if (!file.dataHelper()->connection()->connect(false))
        return false;
    const double before = megabytesResident();
    const auto passed = [clock = QElapsedTimer()]() mutable {
        if (!clock.isValid())
            clock.start();
        return static_cast<double>(clock.nsecsElapsed()) / 1e6;
    };
    auto now = passed;
    now();
    if (!merger.tryProjectPassword(projectOf(path), QString()))
        return false;
    const double tried = now();
    if (!file.openProject(projectOf(path), false, {}, true, true))
        return false;
    const double opened = now();
    Pulse pulse;
    until(&shown, &IModelListBase::modelUpdated, [&] { return shown.rowCount() > 0; });
    const double shownAt = now();
    until(&file, &KRNFile::textsChanged, [&] { return file.allTextsHere(); });
    const double complete = now();
    until(file.sourceModel(), &SourceModel::globalPercentageCodedChanged,
          [&] { return file.sourceModel()->globalPercentageCoded() > 0; });
    const double counted = now();
    qint64 bytes = 0;
    for (int id : file.answerModel()->lengthsBySource())
        bytes += id;  // the texts are plain ASCII
    QEventLoop rest;
    QTimer::singleShot(1000, &rest, &QEventLoop::quit);
    rest.exec();
    std::printf(
        "password tried %.0f ms; usable after %.0f ms, shown text %.0f ms, all texts %.0f ms, shares of "
        "coded text %.0f ms; main thread held %.0f ms at most; resident %.0f MB (%.0f MB before), %.2f "
        "times the texts' %.0f MB\n",
        tried, opened, shownAt, complete, counted, pulse.longest(), megabytesResident(), before,
        megabytesResident() / (static_cast<double>(bytes) / 1e6), static_cast<double>(bytes) / 1e6);
    file.close();
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    bool done = true;
    if (arguments.value(1) == QLatin1String("make")) {
        done = makeProject(arguments.value(2));
    } else if (arguments.value(1) == QLatin1String("open")) {
        done = openProject(arguments.value(2));
    } else {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.krn"));
        const auto again = [&](const char* what) {
            return QProcess::execute(application.applicationFilePath(), {QLatin1String(what), path}) == 0;
        };
        done = again("make");
        for (int round = 0; done && round < rounds; ++round)
            done = again("open");
    }
    if (!done)
        std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
    return done ? 0 : 1;
}
