#pragma once

#include <QCoreApplication>
#include <QList>
#include <QUrl>
#include <QVariantList>
#include <functional>

class KRNFile;
class UndoManager;

/// Turns files into sources of the open project. Every import is a list of question and answer pairs: in a
/// project in single question mode it has one pair, with the whole text. Runs on the main thread and
/// processes events between the files of a batch; neither project nor undo manager is owned.
class SourceImport {
    Q_DECLARE_TR_FUNCTIONS(SourceImport)

public:
    SourceImport(UndoManager* undoManager, KRNFile* krnFile)
        : m_undoManager(undoManager), m_krnFile(krnFile) {}

    /// Reads a file and gives its pairs. Gives none when the project needs markers and one is empty, when the
    /// file can't be read, or when nothing is found in it. Events are handled while a PDF is converted.
    /// The texts are as they were read: who makes answers of them by another way than `save` passes them
    /// through `importedText`.
    QVariantList pairsOfFile(const QUrl& file, const QString& questionMarker, const QString& answerMarker,
                             bool noLoadedFile, const std::function<bool()>& cancelled = {}) const;
    QVariantList pairsOfText(const QString& text, const QString& questionMarker, const QString& answerMarker,
                             bool noLoadedFile) const;

    /// Makes a source of the pairs, in one undoable step. False when nothing was saved.
    bool save(const QString& sourceTitle, const QVariantList& questions) const;

    /// Makes a source of each file, all in one undoable step, under a progress dialog with which the user can
    /// stop; gives their number. Files without a text are passed over. `showInfo` tells the number in a
    /// message box.
    int importFiles(const QList<QUrl>& files, const QString& questionMarker, const QString& answerMarker,
                    bool showInfo) const;

    /// The same for the text files of a folder, by name.
    int importFolder(const QUrl& folder, const QString& questionMarker, const QString& answerMarker,
                     bool showInfo) const;

    /// Asks for a folder or for files and imports them. The project is in single question mode.
    void importChosen(bool selectWholeFolder) const;

private:
    /// Returns when all that was sent has been stored and its notifications wait in the event loop.
    void awaitNotifications() const;

    UndoManager* m_undoManager;
    KRNFile* m_krnFile;
};
