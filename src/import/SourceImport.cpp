#include "import/SourceImport.h"

#include "import/ImportLog.h"
#include "import/ImportSourceCommand.h"
#include "import/QuestionParser.h"
#include "import/TextFile.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"
#include "undo/UndoManager.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>

namespace {

constexpr int mostNames = 10;

/// What came of a batch, for the person who chose its files.
void tellOf(int imported, const QStringList& withoutText) {
    QMessageBox box(QMessageBox::Information, SourceImport::tr("Information"),
                    SourceImport::tr("%1 Source(s) have successfully been imported.").arg(imported),
                    QMessageBox::Ok);
    if (!withoutText.isEmpty()) {
        QString names = QStringList(withoutText.mid(0, mostNames)).join(QLatin1String(", "));
        if (withoutText.size() > mostNames)
            names += SourceImport::tr(" and %1 more").arg(withoutText.size() - mostNames);
        // Marked, so that a name is never taken for marks.
        box.setInformativeText(
            QStringLiteral("<p>%1</p>")
                .arg(SourceImport::tr("No text could be read from %1.").arg(names).toHtmlEscaped()));
    }
    box.exec();
}

}  // namespace

QVariantList SourceImport::pairsOfFile(const QUrl& file, const QString& questionMarker,
                                       const QString& answerMarker, bool noLoadedFile,
                                       const std::function<bool()>& cancelled) const {
    const bool needsMarkers = !noLoadedFile && !m_krnFile->singleQuestionMode();
    if (needsMarkers && (questionMarker.isEmpty() || answerMarker.isEmpty())) {
        qCDebug(logFileImport) << "Answer and/or question marker is empty!";
        return {};
    }
    return pairsOfText(textfile::read(file, cancelled), questionMarker, answerMarker, noLoadedFile);
}

QVariantList SourceImport::pairsOfText(const QString& text, const QString& questionMarker,
                                       const QString& answerMarker, bool noLoadedFile) const {
    return parseQuestions(text, questionMarker, answerMarker,
                          noLoadedFile || m_krnFile->singleQuestionMode());
}

bool SourceImport::save(const QString& sourceTitle, const QVariantList& questions) const {
    if (questions.isEmpty()) {
        qCDebug(logFileImport) << "Cannot save imported questions. Empty list passed!";
        return false;
    }
    return m_undoManager->perform(
        [&] { return std::make_unique<ImportSourceCommand>(sourceTitle, questions, m_krnFile); });
}

int SourceImport::importFiles(const QList<QUrl>& files, const QString& questionMarker,
                              const QString& answerMarker, bool showInfo) const {
    QProgressDialog progress(tr("Importing sources..."), tr("Cancel"), 0, files.size());
    progress.setWindowModality(Qt::WindowModal);
    m_undoManager->beginMacro(tr("Batch Import Sources"));
    const QJsonObject project = m_krnFile->currentProject();
    const bool wholeTexts = m_krnFile->singleQuestionMode();
    // An id that is asked for waits until the file before is stored; with ids at hand, many are stored at
    // once.
    if (wholeTexts) {
        IdManager::instance()->stock(wire::Record::Source, files.size());
        IdManager::instance()->stock(wire::Record::QuestionAnswer, files.size());
    }
    int imported = 0;
    QStringList withoutText;
    const auto cancelled = [&progress] { return progress.wasCanceled(); };
    for (const QUrl& file : files) {
        progress.setValue(progress.value() + 1);
        QCoreApplication::processEvents();
        if (progress.wasCanceled())
            break;
        const QVariantList pairs = pairsOfFile(file, questionMarker, answerMarker, false, cancelled);
        QCoreApplication::processEvents();
        if (m_krnFile->currentProject() != project)
            break;
        if (pairs.isEmpty() && !progress.wasCanceled())
            withoutText << file.fileName();
        if (save(textfile::titleFor(file), pairs)) {
            ++imported;
            if (!wholeTexts)
                awaitNotifications();
        }
        QCoreApplication::processEvents();
    }
    IdManager::instance()->dropStock();
    m_undoManager->endMacro();
    if (wholeTexts && imported > 0 && m_krnFile->currentProject() == project)
        awaitNotifications();
    progress.setValue(files.size());
    if (showInfo)
        tellOf(imported, withoutText);
    return imported;
}

// The questions that the next file adds are given to the sources that the models have. A service answers
// after it has told what it stored before.
void SourceImport::awaitNotifications() const {
    m_krnFile->dataHelper()->maxId(wire::word(wire::Record::Source), false);
}

int SourceImport::importFolder(const QUrl& folder, const QString& questionMarker, const QString& answerMarker,
                               bool showInfo) const {
    return importFiles(textfile::importableFiles(folder), questionMarker, answerMarker, showInfo);
}

void SourceImport::importChosen(bool selectWholeFolder) const {
    if (selectWholeFolder) {
        const QUrl folder = QFileDialog::getExistingDirectoryUrl(nullptr, tr("Import Sources from Folder"),
                                                                 QUrl(), QFileDialog::ShowDirsOnly);
        if (!folder.isEmpty())
            importFolder(folder, QString(), QString(), true);
    } else {
        const QList<QUrl> files = QFileDialog::getOpenFileUrls(nullptr, tr("Import Multiple Sources"), QUrl(),
                                                               textfile::multipleFilesFilter());
        if (!files.isEmpty())
            importFiles(files, QString(), QString(), true);
    }
}
