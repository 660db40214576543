#include "exchange/QDPXArchive.h"
#include "exchange/QDPXReader.h"
#include "import/ImportedText.h"

namespace {

constexpr int theQuestion = 1;

struct OtherSource {
    const char* element;
    SkippedElements::Kind kind;
};

constexpr OtherSource otherSources[] = {
    {"picturesource", SkippedElements::Kind::PictureSource},
    {"pdfsource", SkippedElements::Kind::PdfSource},
    {"audiosource", SkippedElements::Kind::AudioSource},
    {"videosource", SkippedElements::Kind::VideoSource},
};

SkippedElements::Kind kindOf(const QString& element) {
    for (const OtherSource& row : otherSources) {
        if (element == QLatin1String(row.element))
            return row.kind;
    }
    return SkippedElements::Kind::Other;
}

// Characters that need no entity; without them most texts need no parser.
QString withFewEntities(QString text) {
    if (!text.contains(QLatin1Char('&')))
        return text;
    return text.replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&quot;"), QLatin1String("\""));
}

}  // namespace

void QDPXReader::readSources() {
    while (m_xml.readNextStartElement()) {
        if (!goesOn(m_progress, m_document.pos(), m_document.size())) {
            m_cancelled = true;
            m_xml.raiseError(QStringLiteral("cancelled"));
            return;
        }
        const QString element = m_xml.name().toString().toLower();
        element == QLatin1String("textsource") ? readTextSource() : skipSource(kindOf(element));
    }
}

// Tells how much of a person's work is in it.
void QDPXReader::skipSource(Kind kind) {
    skipped.add(kind);
    int depth = 1;
    while (depth > 0 && m_xml.readNext() != QXmlStreamReader::Invalid) {
        if (m_xml.isStartElement()) {
            ++depth;
            if (m_xml.name() == QLatin1String("Coding"))
                skipped.add(Kind::CodingInSkippedSource);
        } else if (m_xml.isEndElement()) {
            --depth;
        }
    }
}

// In our own form entities stand for characters, and the answer's parser decodes them.
QDPXReader::Text QDPXReader::fileText(const QString& path) {
    const QByteArray bytes = m_archive.text(path);
    if (bytes.isNull())
        return {};
    if (m_form == ExchangeForm::Own)
        return {true, importedText(withFewEntities(QString::fromUtf8(bytes))), {}};
    const LiteralText literal = literalFile(bytes);
    return {true, asAnswer(literal.plain), literal.map};
}

QDPXReader::Text QDPXReader::inlineText(const QString& text) const {
    if (m_form == ExchangeForm::Own)
        return {true, importedText(text), {}};
    const LiteralText literal = literalText(text);
    return {true, asAnswer(literal.plain), literal.map};
}

void QDPXReader::readTextSource() {
    int id = 0;
    if (!define(m_sources, id)) {
        skipSource(Kind::Duplicate);
        return;
    }
    const bool unnamed = m_form == ExchangeForm::Standard && attribute("name").isEmpty();
    const Source source(id, unnamed ? QStringLiteral("Untitled") : attribute("name"), QString(),
                        authorNamed({"modifyingUser", "creatingUser"}),
                        time({"modifiedDateTime", "creationDateTime"}));
    Text text = fileText(attribute("plainTextPath"));
    QList<Selection> selections;
    QList<Remark> remarks;
    Case own{{}, {id}};
    eachChild([&](const QString& child) {
        if (child == QLatin1String("plaintextcontent")) {
            const QString content = m_xml.readElementText();
            if (!text.isThere)
                text = inlineText(content);
        } else if (child == QLatin1String("plaintextselection")) {
            selections.append(readSelection());
        } else if (child == QLatin1String("coding")) {
            Selection whole;
            whole.author = source.author();
            whole.codings.append(readCoding(whole));
            selections.append(whole);
        } else if (child == QLatin1String("noteref") || child == QLatin1String("description")) {
            readRemark(child, Remark::Source, id, remarks);
        } else if (child == QLatin1String("variablevalue")) {
            readVariableValue(own.values);
        } else {
            skip(Kind::Other);
        }
    });
    if (!text.isThere) {
        m_sources.defined.remove(id);
        skipped.add(Kind::SourceWithoutText);
        for (const Selection& selection : qAsConst(selections)) {
            if (!selection.codings.isEmpty())
                skipped.add(Kind::CodingInSkippedSource, selection.codings.size());
        }
        return;
    }
    QuestionAnswer answer(records.answers.size() + 1, theQuestion, id, source.author(), text.stored,
                          source.timestamp());
    if (m_form == ExchangeForm::Own)
        text.map = CodePointMap(answer.answerLength());
    m_lengths.insert(id, answer.answerLength());
    records.sources.append(source);
    records.answers.append(answer);
    m_remarks += remarks;
    if (!own.values.isEmpty())
        m_cases.append(own);
    for (const Selection& selection : qAsConst(selections))
        place(selection, id, text);
}

QDPXReader::Selection QDPXReader::readSelection() {
    Selection selection;
    bool hasStart = false;
    bool hasEnd = false;
    selection.start = attribute("startPosition").toInt(&hasStart);
    selection.end = attribute("endPosition").toInt(&hasEnd);
    if (!hasStart || !hasEnd || selection.end < 0)
        selection.start = selection.end = 0;
    selection.author = authorNamed({"modifyingUser", "creatingUser"});
    selection.time = time({"modifiedDateTime", "creationDateTime"});
    eachChild([&](const QString& child) {
        if (child == QLatin1String("coding")) {
            const Coding coding = readCoding(selection);
            if (!coding.code.isNull())
                selection.codings.append(coding);
        } else if (child == QLatin1String("noteref") || child == QLatin1String("description")) {
            readRemark(child, Remark::Passage, 0, selection.remarks);
        } else {
            skip(Kind::Other);
        }
    });
    return selection;
}

QDPXReader::Coding QDPXReader::readCoding(Selection& selection) {
    Coding coding{{}, selection.author, selection.time};
    if (m_users.contains(guid("creatingUser")))
        coding.author = authorNamed({"creatingUser"});
    const QDateTime created = time({"creationDateTime"});
    if (created.isValid())
        coding.time = created;
    eachChild([&](const QString& child) {
        if (child == QLatin1String("coderef"))
            coding.code = targetGuid();
        else if (child == QLatin1String("noteref"))
            readRemark(child, Remark::Passage, 0, selection.remarks);
        else
            skip(Kind::Other);
    });
    if (coding.code.isNull())
        skipped.add(Kind::CodingWithoutCode);
    return coding;
}

void QDPXReader::place(const Selection& selection, int sourceId, const Text& text) {
    const bool isWhole = selection.start == 0 && selection.end == -1;
    const int end = isWhole ? text.map.count() : selection.end;
    const int things = selection.codings.size() + selection.remarks.size();
    if (things == 0) {
        skipped.add(Kind::SelectionWithoutCode);
        return;
    }
    if (selection.start < 0 || selection.start >= end || end > text.map.count()) {
        skipped.add(Kind::PassageOutsideText, things);
        return;
    }
    const int start = text.map.unitOf(selection.start);
    const int length = text.map.unitOf(end) - start;
    if (length <= 0) {
        skipped.add(Kind::PassageOutsideText, things);
        return;
    }
    for (const Coding& coding : selection.codings) {
        records.highlights.append(Highlight(records.highlights.size() + 1, m_kernos.idOf(coding.code),
                                            sourceId, theQuestion, QColor(), start, length, start + length,
                                            coding.author, coding.time.isValid() ? coding.time : m_now, 0, 0,
                                            0, false));
    }
    for (Remark remark : selection.remarks) {
        remark.id = sourceId;
        remark.start = start;
        remark.length = length;
        m_remarks.append(remark);
    }
}
