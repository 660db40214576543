#include "export/PageFolder.h"
#include "export/ReportFolder.h"
#include "export/WordCounts.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "records/Highlight.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>
#include <functional>

// A report and a word cloud of 1,000 sources of 100,000 characters with 115,000 highlights, written into
// folders, against writing the same bytes; and the counting of the words of 100 MB by itself. Seconds of the
// clock and, behind them, of this process's processor time.

namespace {

constexpr int sourceCount = 1000;
constexpr int sourceLength = 100000;
constexpr int kernoCount = 100;
constexpr int highlightsPerSource = 115;
constexpr int highlightLength = 400;

QString textOfSource(int sourceId) {
    QString text;
    text.reserve(sourceLength + 20);
    quint32 state = static_cast<quint32>(sourceId) * 2654435761u;
    const auto random = [&state](quint32 bound) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % bound;
    };
    while (text.size() < sourceLength) {
        for (quint32 i = 2 + random(8); i > 0; --i)
            text += QLatin1Char("eeettaaooiinnsshhrrddlluucmwfgypbvk"[random(35)]);
        text += QLatin1Char(random(80) == 0 ? '\n' : ' ');
    }
    text.truncate(sourceLength);
    return text;
}

bool makeProject(KRNFile& file, const QString& path) {
    DataHelper& helper = *file.dataHelper();
    const QJsonObject project{{QStringLiteral("name"), path}, {QStringLiteral("project_uuid"), QString()}};
    if (!helper.connection()->connect(false) || !file.openProject(project, true, {}, true))
        return false;
    const QString author = QStringLiteral("Ann Author");
    for (int id = 1; id <= kernoCount; ++id)
        helper.save(Kerno(id, -1, QColor(Qt::red), QStringLiteral("Topic %1").arg(id), {}, {}, author, 1, 1),
                    true);
    int highlightId = 0;
    for (int id = 1; id <= sourceCount; ++id) {
        helper.save(
            Source(id, QStringLiteral("Interview %1").arg(id), QStringLiteral("md_generic"), author, {}));
        helper.save(QuestionAnswer(id, 1, id, author, textOfSource(id), {}));
        QList<Highlight> batch;
        for (int i = 0; i < highlightsPerSource; ++i) {
            const int start = i * (sourceLength - highlightLength) / highlightsPerSource;
            ++highlightId;
            batch.append(Highlight(highlightId, 1 + highlightId % kernoCount, id, 1, {}, start,
                                   highlightLength, start + highlightLength, author, {}, 0, 0, 0, false));
        }
        file.batchSaveHighlights(batch);
        if (id % 50 == 0)
            file.kernoIds();  // returns when all of it is stored
    }
    return true;
}

template <typename Work> void measure(const char* what, Work work) {
    QElapsedTimer timer;
    timer.start();
    const std::clock_t processor = std::clock();
    work();
    std::printf("%-34s %6.2f s %6.2f s\n", what, static_cast<double>(timer.nsecsElapsed()) / 1e9,
                static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC);
    std::fflush(stdout);
}

// The pages themselves belong to the programs; without them a folder holds its data alone.
void measureFolder(const char* what, const QString& folder, const std::function<void()>& write) {
    measure(what, write);
    QFile data(pagefolder::dataFile(folder));
    if (!data.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = data.readAll();
    std::printf("  %.0f MB\n", static_cast<double>(bytes.size()) / 1e6);
    measure("  the same bytes, written", [&] {
        QFile copy(folder + QStringLiteral("/copy"));
        if (copy.open(QIODevice::WriteOnly))
            copy.write(bytes);
    });
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QVector<QString> texts;
    for (int id = 1; id <= sourceCount; ++id)
        texts.append(textOfSource(id));
    measure("words of 100 MB", [&] {
        int words = 0;
        for (const QString& text : qAsConst(texts)) {
            WordCounts counts;
            counts.add(text);
            words += counts.sorted().size();
        }
        std::printf("%d different words by source\n", words);
    });
    texts.clear();
    const QTemporaryDir folder;
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    if (!makeProject(file, folder.filePath(QStringLiteral("study.krn"))))
        return 1;
    const QString reportFolder = folder.filePath(QStringLiteral("report"));
    const QString cloud = folder.filePath(QStringLiteral("cloud"));
    measureFolder("report data", reportFolder,
                  [&] { report::writeFolder(file, reportFolder, {}, false, false); });
    measureFolder("word cloud data", cloud, [&] { wordcloud::writeFolder(file, cloud); });
    file.close();
    return 0;
}
