#pragma once

#include "exchange/QDPXReader.h"
#include "merge/Project.h"

#include <memory>

/// Makes a project of a QDPX archive of the REFI-QDA exchange standard 1.0. Archives in our own form, known
/// by their `origin`, are read as we write them; all others keep to the standard.
class QDPXImporter {
public:
    struct Result {
        std::unique_ptr<Project> project;  ///< null on failure
        SkippedElements skipped = {};
        QString error = {};  ///< a sentence; empty when it was cancelled
    };

    explicit QDPXImporter(const QDPXImportOptions& options) : m_options(options) {}

    /// Reads the whole archive; nothing is stored. Archives are not trusted: no entry becomes a path, sizes
    /// and depth are bounded, and nothing outside is fetched. Any thread.
    Result importProject(const QString& archive, const Progress& progress = {}) const;

private:
    QDPXImportOptions m_options;
};
