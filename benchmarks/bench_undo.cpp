#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/LinkTimings.h"
#include "models/KernoModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "undo/UndoManager.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

// How long the commands take that write the codings of whole kernos anew: two kernos with 5,000 highlights
// each over 1,000 sources. A figure is the time from the call until the service has stored everything.

namespace {

constexpr int sourceCount = 1000;
constexpr int highlightsPerSource = 5;

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

bool openProject(KRNFile& file, const QString& path) {
    return file.dataHelper()->connection()->connect(false) &&
           file.openProject({{text("name"), path}}, true, QString(), true, true);
}

// Every second highlight of one kerno overlaps one of the other.
QList<Highlight> highlights(int kernoId, int firstId) {
    QList<Highlight> list;
    for (int source = 1; source <= sourceCount; ++source) {
        for (int i = 0; i < highlightsPerSource; ++i) {
            const int start = i * 20 + (kernoId == 2 ? (i % 2 ? 12 : 5) : 0);
            list.append(Highlight(firstId++, kernoId, source, 1, {}, start, 8, start + 8, text("Ann"), {}, 0,
                                  0, 0, false));
        }
    }
    return list;
}

void fill(KRNFile& file) {
    const QString body(200, QLatin1Char('x'));
    for (int source = 1; source <= sourceCount; ++source) {
        file.saveSource(Source(source, text("Source %1").arg(source), QString(), text("Ann"), {}));
        file.saveAnswer(QuestionAnswer(source, 1, source, text("Ann"), body, {}));
    }
    for (int kernoId = 1; kernoId <= 2; ++kernoId) {
        file.saveKerno(Kerno(kernoId, -1, Qt::red, text("Kerno %1").arg(kernoId), {}, {}, text("Ann"), 1, 1));
        file.batchSaveHighlights(highlights(kernoId, 1 + (kernoId - 1) * sourceCount * highlightsPerSource));
    }
}

void settle(KRNFile& file) {
    file.kernoIds();
    QCoreApplication::processEvents();
}

template <typename Function> void measure(const char* name, KRNFile& file, Function function) {
    QElapsedTimer timer;
    timer.start();
    function();
    const qint64 returned = timer.elapsed();
    file.kernoIds();
    const qint64 stored = timer.elapsed();
    std::printf("%-20s returned after %5lld ms, stored after %5lld ms; %d highlights\n", name, returned,
                stored, file.totalHighlightsCount());
    settle(file);
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    KRNFile file(LinkTimings(), ProjectTimings{0, 0});
    file.initModels();
    if (!openProject(file, folder.filePath(text("undo.krn")))) {
        std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
        return 1;
    }
    fill(file);
    settle(file);
    UndoManager undo(&file);
    measure("merge two kernos", file, [&] { undo.mergeKernos(1, 2, text("Both")); });
    measure("undo the merge", file, [&] { undo.undo(); });
    measure("redo the merge", file, [&] { undo.redo(); });
    measure("undo it again", file, [&] { undo.undo(); });
    measure("duplicate a kerno", file, [&] { undo.duplicateKerno(1); });
    measure("undo the duplicate", file, [&] { undo.undo(); });
    measure("delete a kerno", file, [&] { undo.deleteKerno(1); });
    measure("undo the deletion", file, [&] { undo.undo(); });
    measure("delete a source", file, [&] { undo.deleteSource(1); });
    measure("add a question", file, [&] { undo.addQuestion(Question(-1, text("Why?"), 2)); });
    return 0;
}
