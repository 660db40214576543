#include "app/AppHelper.h"

#include "app/AppLog.h"
#include "app/CommandLine.h"
#include "import/ImportedText.h"
#include "import/TextFile.h"
#include "link/ServiceConfig.h"
#include "project/KRNFile.h"
#include "records/AnswerText.h"
#include "records/ContrastColor.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QPoint>
#include <QRandomGenerator>
#include <QTouchDevice>
#include <algorithm>

AppHelper::AppHelper(UndoManager* undoManager, KRNFile* krnFile)
    : m_undoManager(undoManager), m_krnFile(krnFile) {
    openSynonyms();
    initSearch();
    initExports();
    m_clipboard = QGuiApplication::clipboard();
    connect(m_clipboard, &QClipboard::changed, this, &AppHelper::clipboardDataChanged);
    m_clipboardHasText = !m_clipboard->text().isEmpty();
    m_userInvokedFile = projectFileOf(QCoreApplication::arguments());
}

AppHelper::~AppHelper() {
    closeSynonyms();
}

void AppHelper::setUserInvokedFile(const QString& file) {
    if (m_userInvokedFile == file)
        return;
    m_userInvokedFile = file;
    emit userInvokedFileChanged();
}

void AppHelper::clearUserInvokedFile() {
    setUserInvokedFile(QString());
}

bool AppHelper::isTouchEnabledDevice() const {
    const QList<const QTouchDevice*> devices = QTouchDevice::devices();
    return std::any_of(devices.cbegin(), devices.cend(), [](const QTouchDevice* device) {
        return device->type() == QTouchDevice::TouchScreen;
    });
}

QString AppHelper::region() const {
    return ServiceConfig::instance().region();
}

QColor AppHelper::contrastFontColor(const QColor& background) const {
    return ::contrastFontColor(background);
}

QColor AppHelper::memoColor() const {
    return QColor(255, 196, 67);
}

QVariant AppHelper::calculateNewKernoPosition(int canvasWidth, int canvasHeight) const {
    const int w = std::max(canvasWidth / 5, 1);
    const int h = std::max(canvasHeight / 8, 1);
    QRandomGenerator* const random = QRandomGenerator::global();
    return QPoint(random->bounded(canvasWidth - w), random->bounded(canvasHeight - h));
}

void AppHelper::setClipboardText(const QString& text) {
    m_clipboard->setText(text);
}

void AppHelper::clipboardDataChanged() {
    const bool hasText = !m_clipboard->text().isEmpty();
    if (hasText == m_clipboardHasText)
        return;
    m_clipboardHasText = hasText;
    emit clipboardContainsTextChanged();
}

void AppHelper::processEvents() {
    QCoreApplication::processEvents();
}

QString AppHelper::applicationVersion() const {
    return QCoreApplication::applicationVersion();
}

QString AppHelper::aboutDialogContent() const {
    QFile file(QStringLiteral(":/other/licences.txt"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString AppHelper::hostNotFoundErrorTr(const QString& host) const {
    return QCoreApplication::translate("QHttp", "Host %1 not found").arg(host);
}

void AppHelper::setCurrentAuthor(const QString& author) {
    m_krnFile->setCurrentAuthor(author);
}

void AppHelper::dumpObject(const QVariant& o) const {
    qCDebug(logAppHelper) << "dumpObject:" << o;
}

QStringList AppHelper::importSuffixes() const {
    return textfile::suffixes();
}

QString AppHelper::importFilter() const {
    return textfile::singleFileFilter();
}

QVariantList AppHelper::importQuestions(const QUrl& file, const QString& questionMarker,
                                        const QString& answerMarker, bool noLoadedFile) {
    m_readingCancelled = false;
    return sourceImport().pairsOfFile(file, questionMarker, answerMarker, noLoadedFile,
                                      [this] { return m_readingCancelled; });
}

void AppHelper::cancelReading() {
    m_readingCancelled = true;
}

QString AppHelper::importPreview(const QString& text, int length) const {
    const QString plain = AnswerText::prepare(normalizedForStorage(importedText(text))).plain();
    return plain.size() > length ? plain.left(length) + QLatin1String(" [...]") : plain;
}

QVariantList AppHelper::importQuestionsFromClipboard(const QString& questionMarker,
                                                     const QString& answerMarker) {
    return sourceImport().pairsOfText(m_clipboard->text(), questionMarker, answerMarker, false);
}

bool AppHelper::saveImportedQuestions(const QString& sourceTitle, const QVariantList& questions) {
    return sourceImport().save(sourceTitle, questions);
}

void AppHelper::batchImportQuestions(bool selectWholeFolder) {
    sourceImport().importChosen(selectWholeFolder);
}

int AppHelper::batchImportQuestions(const QUrl& folder, const QString& questionMarker,
                                    const QString& answerMarker, bool showInfo) {
    return sourceImport().importFolder(folder, questionMarker, answerMarker, showInfo);
}

int AppHelper::batchImportQuestions(const QList<QUrl>& files, const QString& questionMarker,
                                    const QString& answerMarker, bool showInfo) {
    return sourceImport().importFiles(files, questionMarker, answerMarker, showInfo);
}
