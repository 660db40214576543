#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

/// Small writers of the kinds of files that are imported, so that tests know what text is in them.
namespace samples {

/// An archive of these entries, in order.
QByteArray zip(const QVector<QPair<QByteArray, QByteArray>>& entries);

/// A Word document whose main part has this body (XML inside `w:body`), or this whole XML.
QByteArray docxOfBody(const QByteArray& body);
QByteArray docxOfPart(const QByteArray& xml, const QByteArray& path = "word/document.xml");

/// RTF with this behind its header, before the closing brace.
QByteArray rtfOfBody(const QByteArray& body);

/// A PDF of these pages, of lines between line feeds; an empty page is a picture without text. `trailer` goes
/// into the trailer.
QByteArray pdf(const QStringList& pages, const QByteArray& trailer = {});

/// The text as a word processor would write it in a file of the kind: "txt", "rtf", "docx" or "pdf".
QByteArray file(const QString& suffix, const QString& text);

}  // namespace samples
