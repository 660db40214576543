#include "app/ReportViewer.h"

#include "app/AppLog.h"
#include "app/FolderCopy.h"
#include "app/PageView.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPageLayout>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QWebEngineDownloadItem>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <memory>

namespace {

// Left, top, right and bottom in millimetres.
constexpr QMarginsF pageMargins(10, 15, 10, 15);
constexpr QSize usualSize(1280, 860);
constexpr int buttonColumns = 8;
// A picture stands whole in its address.
constexpr int loggedUrl = 200;

// A file dialog takes a folder that isn't there for the name of a file.
QString documentsFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

QString withSuffix(const QString& path, const QString& suffix) {
    return path.isEmpty() || path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

}  // namespace

ReportViewer::ReportViewer(const QString& htmlFile, const QString& folder, int mode, QWidget* parent)
    : QDialog(parent, Qt::Window), m_mode(mode), m_url(QUrl::fromLocalFile(htmlFile)), m_folder(folder) {
    setWindowTitle(tr("Kernova Report"));
    setWindowModality(Qt::ApplicationModal);
    auto* const layout = new QGridLayout(this);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(buttonColumns - 1, 1);
    addView();
    QPushButton* const savePDF = addButton(QStringLiteral("savePDF"), tr("&Save PDF"), 1);
    addButton(QStringLiteral("fullscreen"), tr("Toggle Fullscreen"), 2);
    QPushButton* const print = addButton(QStringLiteral("print"), tr("&Print"), 3);
    addButton(QStringLiteral("openInBrowser"), tr("&Open in Web Browser"), 4);
    addButton(QStringLiteral("saveHTML"), tr("Save HTML"), 5);
    QPushButton* const saveDOCX = addButton(QStringLiteral("saveDOCX"), tr("&Save Word"), 6);
    if (m_mode == WordCloud) {
        savePDF->setText(tr("Save PNG"));
        print->hide();
        saveDOCX->hide();
    }
    for (QPushButton* button : {savePDF, print, saveDOCX})
        button->setEnabled(m_view != nullptr);
    QMetaObject::connectSlotsByName(this);
    // The page, which has the keys, would keep this one.
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this, &QDialog::reject);
    resize(usualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.92));
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::addView() {
    auto* const layout = static_cast<QGridLayout*>(this->layout());
    if (!pageview::canRun()) {
        auto* const note =
            new QLabel(tr("The preview can't run here, because the program was started by the "
                          "system's administrator (root).\nThe page is ready: open it in a web "
                          "browser, or save it as HTML."));
        note->setAlignment(Qt::AlignCenter);
        layout->addWidget(note, 0, 0, 1, buttonColumns);
        return;
    }
    m_view = pageview::make(m_url, this);
    layout->addWidget(m_view, 0, 0, 1, buttonColumns);
    connect(QWebEngineProfile::defaultProfile(), &QWebEngineProfile::downloadRequested, this,
            &ReportViewer::onDownloadRequested);
}

QPushButton* ReportViewer::addButton(const QString& name, const QString& text, int column) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    // Return belongs to the page.
    button->setAutoDefault(false);
    static_cast<QGridLayout*>(layout())->addWidget(button, 1, column);
    return button;
}

void ReportViewer::on_savePDF_clicked() {
    if (m_mode == WordCloud) {
        saveImage();
        return;
    }
    const QString path = withSuffix(QFileDialog::getSaveFileName(this, tr("Save Report as PDF"),
                                                                 documentsFolder(), QStringLiteral("*.pdf")),
                                    QStringLiteral(".pdf"));
    if (path.isEmpty())
        return;
    const QPointer<ReportViewer> self(this);
    setPrinting(true);
    m_view->page()->printToPdf(
        [self, path](const QByteArray& pdf) {
            if (!self)
                return;
            self->setPrinting(false);
            self->savePdf(path, pdf);
        },
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, pageMargins, QPageLayout::Millimeter));
}

// Of a long report that takes a while, and the page can do one at a time.
void ReportViewer::setPrinting(bool isPrinting) {
    auto* const savePDF = findChild<QPushButton*>(QStringLiteral("savePDF"));
    savePDF->setText(isPrinting ? tr("Making the pages...") : tr("&Save PDF"));
    savePDF->setEnabled(!isPrinting);
    findChild<QPushButton*>(QStringLiteral("print"))->setEnabled(!isPrinting);
}

void ReportViewer::savePdf(const QString& path, const QByteArray& pdf) {
    if (pdf.isEmpty())
        qCDebug(logAppHelper) << "no data to write into the pdf file";
    QSaveFile file(path);
    if (!pdf.isEmpty() && !file.open(QIODevice::WriteOnly)) {
        QMessageBox::critical(
            this, tr("Error"),
            tr("Failed to save the output PDF. Make sure you have sufficient permissions to "
               "write in the directory."));
        return;
    }
    if (pdf.isEmpty() || file.write(pdf) != pdf.size() || !file.commit()) {
        QMessageBox::critical(this, tr("Error"), tr("Failed to save the output PDF."));
        return;
    }
    openOrShow(path);
}

void ReportViewer::openOrShow(const QString& path) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).path()));
}

void ReportViewer::saveImage() {
    m_view->page()->runJavaScript(QStringLiteral("var d = document.getElementById('downloader');"
                                                 "d.href = document.getElementById('canvas').toDataURL();"
                                                 "d.download = 'image.png';d.click();"));
}

void ReportViewer::on_saveDOCX_clicked() {
    const QPointer<ReportViewer> self(this);
    const auto sentence = [self] {
        QMessageBox::warning(
            self, tr("Error"),
            tr("The Word document could not be made, and nothing was saved.\n\nMemos tables need "
               "the Kernos Summary: please turn that on, or the memos tables off."));
    };
    m_view->page()->runJavaScript(
        QStringLiteral("(function() { try { generateDocx(); return true; } catch (e) { return false; } })()"),
        [self, sentence](const QVariant& made) {
            if (self && !made.toBool())
                sentence();
        });
}

void ReportViewer::onDownloadRequested(QWebEngineDownloadItem* item) {
    qCDebug(logAppHelper) << "download requested" << item->url().toString().left(loggedUrl);
    const bool png = m_mode != Report || item->url().toString().toLower().endsWith(QLatin1String("png"));
    const QString title = m_mode != Report ? tr("Save WordCloud as PNG")
                          : png            ? tr("Save image as PNG")
                                           : tr("Save Report as docx");
    const QString suffix = png ? QStringLiteral(".png") : QStringLiteral(".docx");
    const QString chosen = QFileDialog::getSaveFileName(
        this, title, documentsFolder() + QLatin1Char('/') + item->suggestedFileName(),
        QLatin1Char('*') + suffix);
    if (chosen.isEmpty())
        return;
    const QFileInfo target(withSuffix(chosen, suffix));
    item->setDownloadDirectory(target.path());
    item->setDownloadFileName(target.fileName());
    connect(item, &QWebEngineDownloadItem::finished, this, &ReportViewer::onDownloadFinished);
    m_download = item;
    item->accept();
}

void ReportViewer::onDownloadFinished() {
    auto* const item = qobject_cast<QWebEngineDownloadItem*>(sender());
    if (!item || item->state() != QWebEngineDownloadItem::DownloadCompleted) {
        QMessageBox::warning(this, tr("Error"), tr("Failed to save file."));
        return;
    }
    QDesktopServices::openUrl(
        QUrl::fromLocalFile(item->downloadDirectory() + QLatin1Char('/') + item->downloadFileName()));
}

void ReportViewer::on_print_clicked() {
    const auto printer = std::make_shared<QPrinter>();
    QPrintDialog dialog(printer.get(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    printer->setPageMargins(pageMargins, QPageLayout::Millimeter);
    const QPointer<ReportViewer> self(this);
    setPrinting(true);
    m_view->page()->print(printer.get(), [self, printer](bool) {
        if (self)
            self->setPrinting(false);
    });
}

void ReportViewer::on_saveHTML_clicked() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Select HTML Report Folder"),
                                                             documentsFolder(), QFileDialog::ShowDirsOnly);
    if (folder.isEmpty())
        return;
    if (copyRecursively(m_folder, folder))
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
    else
        QMessageBox::warning(this, tr("Error"),
                             tr("It was not possible to save the HTML report in the selected folder."));
}

void ReportViewer::on_fullscreen_clicked() {
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void ReportViewer::on_openInBrowser_clicked() {
    if (!QDesktopServices::openUrl(m_url))
        QMessageBox::warning(this, tr("Error"), tr("No web browser could be started."));
}
