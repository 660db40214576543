#pragma once

#include "import/SourceImport.h"
#include "models/VariantListModel.h"
#include "project/Progress.h"
#include "records/QuestionAnswer.h"

#include <QClipboard>
#include <QColor>
#include <QObject>
#include <QQuickItemGrabResult>
#include <QUrl>
#include <QVariant>
#include <atomic>

class KRNFile;
class UndoManager;

namespace Search {
class SourceSearch;
}

/// What screens need beside the project itself: clipboard, captures, colours, folders, the vendor's pages,
/// the link to the service, and the entry points of imports. The context object `appHelper`. Main thread.
class AppHelper : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool clipboardContainsText READ clipboardContainsText NOTIFY clipboardContainsTextChanged)
    Q_PROPERTY(
        QString userInvokedFile READ userInvokedFile WRITE setUserInvokedFile NOTIFY userInvokedFileChanged)
    Q_PROPERTY(bool isTouchEnabledDevice READ isTouchEnabledDevice CONSTANT)
    Q_PROPERTY(QString region READ region CONSTANT)
    Q_PROPERTY(VariantListModel* searchResults READ searchResults CONSTANT)
    Q_PROPERTY(QString cloudHost READ cloudHost NOTIFY cloudHostChanged)
    Q_PROPERTY(bool cloudHostFixed READ cloudHostFixed CONSTANT)
    Q_PROPERTY(int exchangeProgress READ exchangeProgress NOTIFY exchangeProgressed)
    /// The suffixes of files that can be imported, in lower case, and the dialog's filter for them.
    Q_PROPERTY(QStringList importSuffixes READ importSuffixes CONSTANT)
    Q_PROPERTY(QString importFilter READ importFilter CONSTANT)

public:
    /// Neither pointer is owned; both outlive the object. Takes a project file from the command line.
    AppHelper(UndoManager* undoManager, KRNFile* krnFile);
    ~AppHelper() override;

    bool clipboardContainsText() const { return m_clipboardHasText; }

    /// Path of the project file that the user started the program with; empty for none.
    QString userInvokedFile() const { return m_userInvokedFile; }
    void setUserInvokedFile(const QString& file);
    Q_INVOKABLE void clearUserInvokedFile();

    bool isTouchEnabledDevice() const;
    /// The cloud region in use.
    QString region() const;
    QStringList importSuffixes() const;
    QString importFilter() const;

    /// Black or white, for text on the colour.
    Q_INVOKABLE QColor contrastFontColor(const QColor& background) const;
    Q_INVOKABLE QColor memoColor() const;
    /// A random point on a canvas of that size, as a point; both lengths are at least 2.
    Q_INVOKABLE QVariant calculateNewKernoPosition(int canvasWidth, int canvasHeight) const;

    Q_INVOKABLE void setClipboardText(const QString& text);

    /// Writes a picture of a window, without its white margins, as a PNG file.
    Q_INVOKABLE void grab(QObject* window, const QString& outputFile);
    /// Writes what an item's grab gave, without its transparent margins, as a PNG file.
    Q_INVOKABLE bool saveGrabbedItem(QQuickItemGrabResult* grabResult, const QString& outputFile);

    /// Makes the directory where it is missing.
    Q_INVOKABLE bool createPath(const QString& path) const;
    Q_INVOKABLE bool isDirectoryWritable(const QString& path) const;
    /// Removes a folder, given as a path or file URL, with all that is in it.
    Q_INVOKABLE bool deleteFolder(const QString& path) const;
    /// A new folder under the temporary one, which stays; empty on failure.
    Q_INVOKABLE QString createReportFolder() const;
    Q_INVOKABLE QString createWordCloudFolder() const;

    /// Writes a report into its folder, shows it, and comes back when the viewer is closed: whether all of it
    /// was written. `criteria` choose the highlights; an empty list takes all.
    Q_INVOKABLE bool writeReportData(const QString& reportFolder, const QVariantList& criteria,
                                     bool generateHierarchyViews, bool generateOverlapViews);
    /// The same for a word cloud.
    Q_INVOKABLE bool writeWordCloudData(const QString& reportFolder);
    /// Ends the writing of either, which then gives false.
    Q_INVOKABLE void cancelPages();

    Q_INVOKABLE void processEvents();
    Q_INVOKABLE QString applicationVersion() const;
    Q_INVOKABLE QString aboutDialogContent() const;
    Q_INVOKABLE QString hostNotFoundErrorTr(const QString& host) const;
    Q_INVOKABLE void setCurrentAuthor(const QString& author);
    Q_INVOKABLE void dumpObject(const QVariant& o) const;

    // Pages in the system's browser; false when none could be started.

    Q_INVOKABLE bool openUrl(const QUrl& url) const;
    /// The vendor's manual, in whatever opens web pages.
    Q_INVOKABLE bool openManual() const;
    Q_INVOKABLE bool passwordReset() const;
    Q_INVOKABLE bool manageAccount() const;
    Q_INVOKABLE bool manageProjects() const;
    Q_INVOKABLE bool signUp() const;
    Q_INVOKABLE bool goToWebsite() const;

    /// Opens the link to the local service or to the cloud. Blocks in an event loop.
    Q_INVOKABLE bool connectToServer(bool remote);

    // The cloud: see DataHelper. The maps are those of `Message`; the calls wait in a local event loop.

    Q_INVOKABLE QVariantMap login(const QString& email, const QString& password);
    Q_INVOKABLE QVariantMap projects();
    Q_INVOKABLE QVariantMap projectsShared();
    Q_INVOKABLE QVariantMap createNewProject(const QString& title);
    Q_INVOKABLE QVariantMap removeProject(const QString& uuid);
    Q_INVOKABLE QVariantMap uploadProject(const QString& path);
    Q_INVOKABLE bool downloadProject(const QString& uuid, const QUrl& file);

    /// The server in use; empty when none is known.
    QString cloudHost() const;
    /// Whether the environment names the server, so that it can't be changed.
    bool cloudHostFixed() const;
    /// Stores a server for this machine; an empty text takes it away. Gives a sentence when it is none.
    Q_INVOKABLE QString setCloudHost(const QString& host);
    /// Tries a server: `passed`, and the `sentence` to say so.
    Q_INVOKABLE QVariantMap testCloudHost(const QString& host) const;

    /// Milliseconds of an outage after which a shared project is opened anew.
    Q_INVOKABLE int wsTimeout() const { return 60000; }
    Q_INVOKABLE bool isTestMode() const { return false; }

    // Imports: see SourceImport.

    Q_INVOKABLE QVariantList importQuestions(const QUrl& file, const QString& questionMarker,
                                             const QString& answerMarker, bool noLoadedFile = false);
    /// Ends the reading of `importQuestions`, which then gives what it has, or nothing.
    Q_INVOKABLE void cancelReading();
    /// How a text that was read will be shown once it is imported: as plain text, and at most as much of it
    /// as `length` says, with " [...]" where it is cut.
    Q_INVOKABLE QString importPreview(const QString& text, int length) const;
    Q_INVOKABLE QVariantList importQuestionsFromClipboard(const QString& questionMarker,
                                                          const QString& answerMarker);
    Q_INVOKABLE bool saveImportedQuestions(const QString& sourceTitle, const QVariantList& questions);
    /// Asks for a folder or for files.
    Q_INVOKABLE void batchImportQuestions(bool selectWholeFolder);
    /// Imports the text files of a folder; gives the number of sources that were made.
    Q_INVOKABLE int batchImportQuestions(const QUrl& folder, const QString& questionMarker,
                                         const QString& answerMarker, bool showInfo = false);
    Q_INVOKABLE int batchImportQuestions(const QList<QUrl>& files, const QString& questionMarker,
                                         const QString& answerMarker, bool showInfo = false);

    /// What the header of a CSV file says of its columns: maps with "cellValue", the name, and "cellType", 1
    /// for a property and 0 for a question.
    Q_INVOKABLE QVariantList importCSVHeader(const QUrl& file);
    /// Imports a CSV file with its columns as that list tells, in one undoable step; `csvImportProgress`
    /// tells of the begin and the end.
    Q_INVOKABLE void importCSV(const QUrl& file, const QVariantList& headersModel);

    // Exports. They show a progress of their own, which the user can cancel; that is no failure.

    /// Writes all sources into one Word document; ".docx" is added to a name without it.
    Q_INVOKABLE bool exportDocx(const QUrl& docxURL);
    /// Writes each source into a document of its own; `open` shows the folder afterwards, `useGUID` names the
    /// files by uuids.
    Q_INVOKABLE bool exportDocxWithSeparateSources(const QUrl& outFolder, bool open = false,
                                                   bool useGUID = false, bool includeTitle = true);
    /// Why the last export failed, also that of tables; empty when it didn't.
    Q_INVOKABLE QString lastExportError() const { return m_exportError; }

    // The exchange with other programs: see archive::import and archive::exportOpen. Both wait in a local
    // event loop.

    /// `resultProj` names the project to be made; the map is that of `Message`.
    Q_INVOKABLE QVariantMap importQDPX(const QString& inputFile, const QJsonObject& resultProj,
                                       const QString& author, int canvasWidth, int canvasHeight,
                                       const QString& password = QString());
    /// `toTheLetter`: texts and positions exactly as the standard says.
    Q_INVOKABLE bool exportQDPX(const QString& outputFile, bool toTheLetter = false);
    /// The name that a file gets whose suffix a person has left out.
    Q_INVOKABLE QString withArchiveSuffix(const QString& path) const;
    /// Ends either, which then fails and leaves nothing behind.
    Q_INVOKABLE void cancelExchange() { m_exchangeCancelled = true; }
    Q_INVOKABLE bool exchangeWasCancelled() const { return m_exchangeCancelled; }
    /// How far it has come, in percent.
    int exchangeProgress() const { return m_exchangeProgress; }

    // Search: see Search::SourceSearch, whose signals come through as those of the search below.

    /// `sourceId` 0 stands for all sources. The results come by signal, within the call.
    Q_INVOKABLE void search(const QString& term, int sourceId, bool wholeWords, bool alternativeEndings,
                            bool searchCodedTextOnly, const QStringList& synonyms,
                            const QVariantList& queryCriteria, bool isAndOperator);
    /// What the last search has found, without a way through scripts. Owned here.
    VariantListModel* searchResults() const { return m_searchResults; }
    /// The plain text of an answer's or an excerpt's HTML.
    Q_INVOKABLE QString plainText(const QString& answer) const;
    /// The excerpt [start, start + length) of an answer, marked as in the last search.
    Q_INVOKABLE QuestionAnswer extendedSearchResult(int sourceId, int questionId, int start,
                                                    int length) const;
    /// Maps with "category" and "synonym", none for a word that isn't known.
    Q_INVOKABLE QVariantList synonyms(const QString& word) const;

signals:
    void searchResultsAvailable(QVariantList results);
    void searchStarted();
    void searchFinished();
    void clipboardContainsTextChanged();
    void userInvokedFileChanged();
    void cloudHostChanged();
    void exchangeProgressed();
    void dummySignal();
    void csvImportProgress(int record, int of, int progress, bool finished);
    /// How many sources a report or word cloud has gone over.
    void pagesProgress(int sources, int of);

private slots:
    void clipboardDataChanged();

private:
    void initSearch();
    void initExports();
    Progress beginExchange();
    void openSynonyms() const;
    void closeSynonyms() const;
    bool goOnWithPages(qint64 sources, qint64 of);
    SourceImport sourceImport() const { return {m_undoManager, m_krnFile}; }

    UndoManager* m_undoManager;
    KRNFile* m_krnFile;
    Search::SourceSearch* m_search = nullptr;     ///< a child
    VariantListModel* m_searchResults = nullptr;  ///< a child
    QClipboard* m_clipboard = nullptr;
    bool m_clipboardHasText = false;
    QString m_userInvokedFile;
    bool m_readingCancelled = false;
    QString m_exportError;
    int m_exchangeProgress = 0;
    std::atomic<bool> m_exchangeCancelled{false};  ///< read on the thread of the work
    bool m_pagesCancelled = false;
};
