#pragma once

#include "export/MarkedText.h"
#include "export/ZipWriter.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVector>

/// A comment on a stretch of an answer.
struct DocxComment {
    int start = 0;
    int length = 0;
    QString title;
    QString author;
    QDateTime time;
};

/// A Word document in the making (ECMA-376, WordprocessingML): headings, texts, and comments on stretches of
/// them, which may overlap. A character that XML can't hold is left out. Positions count UTF-16 units of the
/// plain text.
class DocxDocument {
public:
    DocxDocument();

    void addSourceHeading(const QString& title);
    void addQuestionHeading(const QString& question);
    /// One paragraph. Of a comment, what lies outside the text is cut off.
    void addText(const MarkedText& text, const QVector<DocxComment>& comments);

    /// The parts of the file, in their order. The document must not be used any more.
    QVector<ZipEntry> finish();

private:
    void addHeading(const char* style, const QString& text);
    void addRuns(const MarkedText& text, const QVector<DocxComment>& comments);
    void addComment(int id, const DocxComment& comment);

    QByteArray m_document;
    QByteArray m_comments;
    int m_nextId = 0;
};
