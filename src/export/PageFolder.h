#pragma once

#include <QString>
#include <vector>

/// A folder that holds a page of ours with its data, and shows it in any browser.
namespace pagefolder {

/// A file of the folder, and the resource that it is a copy of.
struct PageFile {
    QString path;
    QString resource;
};

/// Of the report and of the word cloud, in the order in which they are copied.
const std::vector<PageFile>& reportFiles();
const std::vector<PageFile>& wordCloudFiles();

/// Makes the folders for data and scripts.
bool makeFolders(const QString& folder);
QString dataFile(const QString& folder);
/// Copies the files over those that are there, up to the first that fails.
bool copyFiles(const QString& folder, const std::vector<PageFile>& files);

}  // namespace pagefolder
