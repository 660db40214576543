#include "Study.h"
#include "export/PageFolder.h"
#include "export/ReportFolder.h"
#include "export/WordCounts.h"

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
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QCoreApplication application(argc, argv);
    QVector<QString> texts;
    const Study study;
    for (int id = 1; id <= study.sources; ++id)
        texts.append(textOfSource(id, study.length));
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
    if (!makeStudy(file, folder.filePath(QStringLiteral("study.krn")), study))
        return 1;
    const QString reportFolder = folder.filePath(QStringLiteral("report"));
    const QString cloud = folder.filePath(QStringLiteral("cloud"));
    measureFolder("report data", reportFolder,
                  [&] { report::writeFolder(file, reportFolder, {}, false, false); });
    measureFolder("word cloud data", cloud, [&] { wordcloud::writeFolder(file, cloud); });
    file.close();
    return 0;
}
