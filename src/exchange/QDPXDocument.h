#pragma once

#include "exchange/CodePoints.h"
#include "exchange/ExchangeForm.h"
#include "exchange/QuickText.h"
#include "merge/ProjectRecords.h"
#include "project/Progress.h"

#include <QDir>
#include <QHash>
#include <QMap>

class QIODevice;

/// Writes a project's exchange document and the text files of its sources, section by section, in the order
/// in which they stand in the document. Any thread.
///
/// The GUID of a record is the same in each export of a project. Whatever has no record has a new one.
class QDPXDocument {
public:
    struct Options {
        ExchangeForm form = ExchangeForm::Own;
        QString project;  ///< what tells it from others
        QString projectName;
        QString author;  ///< the project's current one
    };

    /// The records aren't owned; kernos and sources without a GUID get one, and a
    /// kerno that is its own ancestor becomes one without a parent.
    QDPXDocument(ProjectRecords& records, const Options& options);

    /// Writes the document to `out`, and each text to the folder. False when something can't be written or
    /// the progress ends it.
    bool write(QIODevice& out, const QDir& textFolder, const Progress& progress = {});

    /// The names of the text files that were written.
    const QStringList& textFiles() const { return m_textFiles; }

private:
    struct TextPlace {
        int firstCodePoint = 0;
        CodePointMap map;
    };

    void gatherGuids();
    const QByteArray& user(const QString& author);
    QByteArray text(const QString& text) const;
    QByteArray attribute(const char* name, const QByteArray& value) const;
    QByteArray modified(const char* userAttribute, const QString& author, const QDateTime& time);
    QByteArray range(const Highlight& passage) const;
    QByteArray range(const Memo& passage) const;
    template <typename Passage> QByteArray rangeOf(const Passage& passage) const;
    template <typename Passage> bool hasPlace(const Passage& passage) const;

    void writeHead();
    void writeUsers();
    void writeCodeBook();
    void writeCode(const Kerno& kerno, int depth);
    void writeVariables();
    void writeCases();
    void writeSource(const Source& source);
    bool writeText(const Source& source, const QByteArray& guid);
    void writePassages(const Source& source);
    void writeNoteReferences(const Source& source);
    bool writeSources(const Progress& progress);
    void writeNotes();
    void writeSets();
    void line(int depth, const QByteArray& text);
    bool flush(bool all);

    ProjectRecords& m_records;
    Options m_options;
    QIODevice* m_out = nullptr;
    QDir m_textFolder;
    QByteArray m_buffer;
    bool m_failed = false;
    NewGuids m_newGuids;
    IsoTimes m_times;
    QStringList m_textFiles;
    QMap<QString, QByteArray> m_users;
    QHash<int, QByteArray> m_kernoGuids;
    QHash<int, QByteArray> m_sourceGuids;
    QHash<int, QByteArray> m_keyGuids;
    QHash<int, QByteArray> m_groupGuids;
    QHash<int, QByteArray> m_noteGuids;  ///< by memo
    QHash<int, QVector<int>> m_children;
    QHash<int, QVector<int>> m_answers;     ///< rows by source
    QHash<int, QVector<int>> m_highlights;  ///< rows by source
    QHash<int, QVector<int>> m_memos;       ///< rows by source
    QHash<int, TextPlace> m_places;         ///< of the source at hand, by question
};
