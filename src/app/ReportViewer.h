#pragma once

#include <QDialog>
#include <QUrl>

class QPushButton;
class QWebEngineDownloadItem;
class QWebEngineView;

/// Shows a report or a word cloud that was written into a folder, and saves or prints it. Where the web
/// engine can't run, the page can still be saved, and opened in a browser.
class ReportViewer : public QDialog {
    Q_OBJECT

public:
    enum Mode { Report = 1, WordCloud = 2 };

    /// `folder` holds the page `htmlFile` and its data. It is the caller's, and outlives the dialog.
    ReportViewer(const QString& htmlFile, const QString& folder, int mode, QWidget* parent = nullptr);
    ~ReportViewer() override;

    /// Null where the web engine can't run.
    QWebEngineView* view() const { return m_view; }

private slots:
    void on_savePDF_clicked();
    void on_fullscreen_clicked();
    void on_print_clicked();
    void on_openInBrowser_clicked();
    void on_saveHTML_clicked();
    void on_saveDOCX_clicked();
    void saveImage();
    void onDownloadRequested(QWebEngineDownloadItem* item);
    void onDownloadFinished();

private:
    QPushButton* addButton(const QString& name, const QString& text, int column);
    void addView();
    void setPrinting(bool isPrinting);
    void savePdf(const QString& path, const QByteArray& pdf);
    void openOrShow(const QString& path);

    QWebEngineView* m_view = nullptr;  ///< a child
    const int m_mode;
    const QUrl m_url;
    const QString m_folder;
    QWebEngineDownloadItem* m_download = nullptr;  ///< of the profile; the last that was accepted
};
