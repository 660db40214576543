#include "export/PageFolder.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace {

using pagefolder::PageFile;

const QString scriptFolder = QStringLiteral("/data/js");
const QString styleFolder = QStringLiteral("/data/css");

std::vector<PageFile> filesOf(const QString& prefix, std::initializer_list<const char*> paths) {
    std::vector<PageFile> files;
    for (const char* name : paths) {
        const QString path = QString::fromLatin1(name);
        files.push_back({path, prefix + path.mid(path.lastIndexOf(QLatin1Char('/')) + 1)});
    }
    return files;
}

}  // namespace

const std::vector<PageFile>& pagefolder::reportFiles() {
    static const std::vector<PageFile> files =
        filesOf(QStringLiteral(":/report/"),
                {"data/js/angular.min.js", "data/js/angular-sanitize.min.js", "data/js/jquery.js",
                 "data/js/app.js", "data/js/docx-bundle.js", "data/js/bootstrap.min.js",
                 "data/css/bootstrap.min.css", "data/css/report.css", "report.html", "kernova_logo.png",
                 "data/kernova_logo.png", "data/js/kernova_logo.png"});
    return files;
}

const std::vector<PageFile>& pagefolder::wordCloudFiles() {
    static const std::vector<PageFile> files =
        filesOf(QStringLiteral(":/wordcloud/"),
                {"data/js/angular.min.js", "data/js/jquery.js", "data/js/app.js", "data/js/bootstrap.min.js",
                 "data/js/wordcloud2.js", "data/js/stopwords.js", "data/css/bootstrap.min.css",
                 "data/css/wordcloud.css", "wordcloud.html", "data/kernova_logo.png"});
    return files;
}

bool pagefolder::makeFolders(const QString& folder) {
    for (const QString& name : {scriptFolder, styleFolder}) {
        const QString path = folder + name;
        if (!QDir().mkpath(path)) {
            qWarning() << "Failed to create folder:" << path;
            return false;
        }
    }
    return true;
}

QString pagefolder::dataFile(const QString& folder) {
    return folder + scriptFolder + QStringLiteral("/data.js");
}

bool pagefolder::copyFiles(const QString& folder, const std::vector<PageFile>& files) {
    // A copy of a resource is read-only: an earlier one would stand in the way.
    for (const PageFile& file : files)
        QFile::remove(folder + QLatin1Char('/') + file.path);
    for (const PageFile& file : files) {
        if (!QFile::copy(file.resource, folder + QLatin1Char('/') + file.path))
            return false;
    }
    return true;
}
