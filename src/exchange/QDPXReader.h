#pragma once

#include "exchange/CodePoints.h"
#include "exchange/ExchangeForm.h"
#include "exchange/SkippedElements.h"
#include "import/archive/SafeXmlReader.h"
#include "merge/ProjectRecords.h"
#include "project/Progress.h"

#include <QHash>
#include <QSet>
#include <QUuid>

class QDPXArchive;

/// What an import needs to know of the project that it makes.
struct QDPXImportOptions {
    QString author;  ///< of what the archive doesn't name one for
    int canvasWidth = 1000;
    int canvasHeight = 1000;
};

/// Streams through the document of an archive and makes records of it. What can't be taken over is counted.
class QDPXReader {
public:
    enum class Result { Read, NoProject, Malformed, Cancelled };

    /// Takes texts from the archive, which isn't owned.
    QDPXReader(QDPXArchive& archive, QIODevice& document, const QDPXImportOptions& options);

    Result read(const Progress& progress);

    ProjectRecords records;
    SkippedElements skipped;

private:
    using Kind = SkippedElements::Kind;

    /// Numbers the GUIDs of a kind as they are first seen, in a definition or in a reference.
    struct Guids {
        QHash<QUuid, int> ids;
        QSet<int> defined;
        int idOf(const QUuid& guid);
    };
    struct Value {
        int keyId;
        QString text;
    };
    /// Sources with the values that they have in common.
    struct Case {
        QList<Value> values;
        QVector<int> sourceIds;
    };
    /// A note or a description, and what it is about.
    struct Remark {
        enum About { Source, Passage, Code, Case, Nothing } about = Nothing;
        int id = 0;  ///< of the source or kerno, or the row of the case
        int start = 0;
        int length = 0;
        QUuid note = {};  ///< null for a description
        QString description = {};
        QString author = {};
    };
    struct Note {
        QString text;
        QString author;
        QDateTime time;
        int start = -1;
        int length = -1;
        bool isUsed = false;
    };
    struct Coding {
        QUuid code;
        QString author;
        QDateTime time;
    };
    struct Selection {
        int start = 0;
        int end = -1;  ///< -1 with a start of 0 for the whole text
        QString author;
        QDateTime time;
        QList<Coding> codings;
        QList<Remark> remarks;
    };
    /// The text of a source, and where its positions lie in it.
    struct Text {
        bool isThere = false;
        QString stored;
        CodePointMap map;
    };

    template <typename Read> void eachChild(Read read) {
        while (m_xml.readNextStartElement())
            read(m_xml.name().toString().toLower());
    }
    QString attribute(const char* name) const;
    QUuid guid(const char* name) const;
    QUuid targetGuid();
    QString authorNamed(std::initializer_list<const char*> attributes) const;
    QDateTime time(std::initializer_list<const char*> attributes) const;
    void skip(Kind kind);
    bool define(Guids& guids, int& id);

    void readSection(const QString& name);
    void readUsers();
    void readCode(int parentId);
    void readVariables();
    void readCase();
    void readVariableValue(QList<Value>& values);
    void readSet();
    void countChildren(const QString& name, Kind kind);

    void readSources();
    void readTextSource();
    Selection readSelection();
    Coding readCoding(Selection& selection);
    Text fileText(const QString& path);
    Text inlineText(const QString& text) const;
    void skipSource(Kind kind);
    void place(const Selection& selection, int sourceId, const Text& text);

    void readNote();
    void readRemark(const QString& element, Remark::About about, int id, QList<Remark>& remarks);

    void finishKernos();
    void finishCases();
    void finishRemarks();
    void addMemo(const Note& note, int sourceId, int start, int length);

    QDPXArchive& m_archive;
    QIODevice& m_document;
    QDPXImportOptions m_options;
    SafeXmlReader m_xml;
    Progress m_progress;
    ExchangeForm m_form = ExchangeForm::Standard;
    bool m_cancelled = false;
    QDateTime m_now;
    int m_x = 0;
    int m_y = 50;
    QHash<QUuid, QString> m_users;
    Guids m_kernos;
    Guids m_keys;
    Guids m_sources;
    Guids m_groups;
    QHash<int, int> m_kernoRows;
    QHash<int, int> m_lengths;  ///< of the texts, by source
    QList<Case> m_cases;
    QList<Remark> m_remarks;
    QHash<QUuid, Note> m_notes;
    QSet<QPair<int, int>> m_members;
};
