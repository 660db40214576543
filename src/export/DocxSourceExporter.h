#pragma once

#include "project/Places.h"
#include "project/Progress.h"
#include "records/Source.h"

#include <QHash>
#include <QObject>

class DocxDocument;
class KRNFile;

/// Writes the sources of the open project as Word documents, with the highlights as comments. Waits for texts
/// that are still on their way. Runs on the main thread; a progress may handle events.
class DocxSourceExporter : public QObject {
    Q_OBJECT

public:
    struct Result {
        int written = 0;  ///< files
        bool cancelled = false;
        QString sentence = {};  ///< what could not be written, and why; empty when everything was
    };
    struct Options {
        bool useGuid = false;  ///< names of separate files are uuids
        bool includeTitle = true;
    };

    explicit DocxSourceExporter(KRNFile* file, QObject* parent = nullptr);

    /// All sources in one file, over a file that is there.
    Result exportAll(const QString& path, const Progress& progress = {});
    /// Each source in a file of its own, over files that are there, in a folder that is made when it is
    /// missing. One that can't be written keeps no other from it. What was written before a cancellation
    /// stays.
    Result exportSeparately(const QString& folder, const Options& options, const Progress& progress = {});

    /// The name of a source's file, "12_Title.docx"; `number` counts from 1. No title leads out of a folder,
    /// or makes a name that a system won't take.
    static QString fileName(int number, const QString& title);

private:
    /// False with a sentence when the project can't be read.
    bool read(Result& result);
    void addSource(DocxDocument& document, const Source& source, bool includeTitle);

    KRNFile* m_file;
    QList<Source> m_sources;
    QHash<Place, QList<Highlight>> m_highlights;
};
