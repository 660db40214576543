#pragma once

#include "exchange/ExchangeForm.h"
#include "merge/Project.h"

/// Writes a project as a QDPX archive of the REFI-QDA exchange standard 1.0: a zip archive with "project.qde"
/// and a folder "sources" with the text of each source.
class QDPXExporter {
public:
    /// `author`: the current one.
    QDPXExporter(ExchangeForm form, const QString& author) : m_form(form), m_author(author) {}

    /// Writes by way of a temporary folder that is gone at the end. A file that is there is replaced when the
    /// archive is complete. False when something can't be written or the progress ends it. Any thread.
    bool exportProject(Project& project, const QString& outputFile, const Progress& progress = {}) const;

    /// The name with the suffix ".qdpx", unless it has it in some spelling.
    static QString withSuffix(const QString& path);

private:
    ExchangeForm m_form;
    QString m_author;
};
