#include "exchange/QDPXDocument.h"

#include "exchange/XmlText.h"
#include "merge/IdChanges.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int flushedBytes = 1 << 20;
constexpr int blanksPerDepth = 2;
constexpr int noParent = -1;

QByteArray textOf(const QUuid& guid) {
    return guid.toString().mid(1, 36).toLatin1();
}

// Ids are never given twice in a project. In a copy of it on another computer they may be, though not at the
// same time; what has no time has a name instead.
QUuid guidOf(const QUuid& project, const char* kind, int id, const QString& mark) {
    return QUuid::createUuidV5(
        project, QStringLiteral("%1 %2 %3").arg(QLatin1String(kind), QString::number(id), mark));
}

template <typename T> QUuid guidOf(const QUuid& project, const char* kind, const T& record) {
    return guidOf(project, kind, record.id(), record.timestamp().toUTC().toString(Qt::ISODate));
}

template <typename T> QByteArray storedGuid(const QUuid& project, const char* kind, T& record) {
    if (record.uuid().isNull())
        record.setUuid(guidOf(project, kind, record));
    return textOf(record.uuid());
}

template <typename T> QHash<int, QVector<int>> rowsBySource(const QList<T>& list) {
    QHash<int, QVector<int>> rows;
    for (int row = 0; row < list.size(); ++row)
        rows[list.at(row).sourceId()].append(row);
    return rows;
}

}  // namespace

QDPXDocument::QDPXDocument(ProjectRecords& records, const Options& options)
    : m_records(records), m_options(options), m_answers(rowsBySource(records.answers)),
      m_highlights(rowsBySource(records.highlights)), m_memos(rowsBySource(records.memos)) {
    idchanges::breakKernoCircles(m_records.kernos);
    gatherGuids();
}

// References stand before what they refer to, and the users before all that they have written.
void QDPXDocument::gatherGuids() {
    const QUuid project = QUuid::createUuidV5(QUuid(), m_options.project);
    for (Kerno& kerno : m_records.kernos)
        m_kernoGuids.insert(kerno.id(), storedGuid(project, "kerno", kerno));
    for (int row = 0; row < m_records.kernos.size(); ++row) {
        const int parent = m_records.kernos.at(row).parentKernoId();
        m_children[m_kernoGuids.contains(parent) ? parent : noParent].append(row);
    }
    for (Source& source : m_records.sources) {
        m_sourceGuids.insert(source.id(), storedGuid(project, "source", source));
        user(source.author());
    }
    for (const SourceMetadataKey& key : qAsConst(m_records.metadataKeys))
        m_keyGuids.insert(key.id(), textOf(guidOf(project, "property", key.id(), key.key())));
    for (const Group& group : qAsConst(m_records.groups))
        m_groupGuids.insert(group.id(), textOf(guidOf(project, "group", group.id(), group.title())));
    for (const Memo& memo : qAsConst(m_records.memos)) {
        m_noteGuids.insert(memo.id(), textOf(guidOf(project, "memo", memo)));
        user(memo.author());
    }
    for (const Highlight& highlight : qAsConst(m_records.highlights))
        user(highlight.author());
    user(m_options.author);
}

const QByteArray& QDPXDocument::user(const QString& author) {
    QByteArray& guid = m_users[author];
    if (guid.isEmpty())
        guid = m_newGuids.next();
    return guid;
}

QByteArray QDPXDocument::text(const QString& text) const {
    return m_options.form == ExchangeForm::Own ? xmltext::own(text) : xmltext::literal(text);
}

QByteArray QDPXDocument::attribute(const char* name, const QByteArray& value) const {
    QByteArray text;
    text.reserve(static_cast<int>(qstrlen(name)) + value.size() + 4);
    return text.append(name).append("=\"").append(value).append("\" ");
}

// The standard knows no empty date.
QByteArray QDPXDocument::modified(const char* userAttribute, const QString& author, const QDateTime& time) {
    const QByteArray by = attribute(userAttribute, user(author));
    if (m_options.form == ExchangeForm::Standard && !time.isValid())
        return by;
    return by + attribute("modifiedDateTime", m_times.utc(time));
}

template <typename Passage> QByteArray QDPXDocument::rangeOf(const Passage& passage) const {
    int start = passage.start();
    int end = passage.end();
    if (m_options.form == ExchangeForm::Standard) {
        const TextPlace place = m_places.value(passage.questionId());
        start = place.firstCodePoint + place.map.codePointOf(start);
        end = place.firstCodePoint + place.map.codePointOf(end);
    }
    return attribute("startPosition", QByteArray::number(start)) +
           attribute("endPosition", QByteArray::number(end));
}

// A position over the whole source needs the text in which it counts.
template <typename Passage> bool QDPXDocument::hasPlace(const Passage& passage) const {
    return m_options.form == ExchangeForm::Own || m_places.contains(passage.questionId());
}

QByteArray QDPXDocument::range(const Highlight& passage) const {
    return rangeOf(passage);
}
QByteArray QDPXDocument::range(const Memo& passage) const {
    return rangeOf(passage);
}

void QDPXDocument::line(int depth, const QByteArray& text) {
    m_buffer.append(depth * blanksPerDepth, ' ');
    m_buffer.append(text);
    m_buffer.append(" \n");
    flush(false);
}

bool QDPXDocument::flush(bool all) {
    if (m_buffer.isEmpty() || (!all && m_buffer.size() < flushedBytes))
        return !m_failed;
    m_failed = m_failed || m_out->write(m_buffer) != m_buffer.size();
    m_buffer.resize(0);
    return !m_failed;
}

bool QDPXDocument::write(QIODevice& out, const QDir& textFolder, const Progress& progress) {
    m_out = &out;
    m_textFolder = textFolder;
    writeHead();
    if (m_options.form == ExchangeForm::Standard || !m_options.author.isEmpty())
        writeUsers();
    if (!m_records.kernos.isEmpty())
        writeCodeBook();
    if (!m_records.metadataKeys.isEmpty())
        writeVariables();
    if (!m_records.sources.isEmpty()) {
        writeCases();
        if (!writeSources(progress))
            return false;
    }
    if (!m_records.memos.isEmpty())
        writeNotes();
    if (!m_records.groups.isEmpty())
        writeSets();
    m_buffer += "</Project>\n";
    return flush(true);
}

void QDPXDocument::writeHead() {
    const QString name = m_options.form == ExchangeForm::Own
                             ? m_options.projectName
                             : QFileInfo(m_options.projectName).completeBaseName();
    m_buffer += "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                "<Project xmlns=\"urn:QDA-XML:project:1.0\" "
                "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
                "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                "xsi:schemaLocation=\"urn:QDA-XML:project:1.0 "
                "http://schema.qdasoftware.org/versions/Project/v1.0/Project.xsd\" ";
    m_buffer += attribute("name", text(name));
    m_buffer += attribute("origin", text(originOf(m_options.form)));
    m_buffer += attribute("creationDateTime", m_times.utc(QDateTime::currentDateTimeUtc()));
    m_buffer += "modifyingUserGUID=\"" + user(m_options.author) + "\">\n";
}

void QDPXDocument::writeUsers() {
    line(1, "<Users>");
    for (auto it = m_users.cbegin(); it != m_users.cend(); ++it)
        line(2, "<User " + attribute("guid", *it) + attribute("name", text(it.key())) + "/>");
    line(1, "</Users>");
}

void QDPXDocument::writeCodeBook() {
    line(1, "<CodeBook>");
    line(2, "<Codes>");
    const QVector<int> roots = m_children.value(noParent);
    for (int row : roots)
        writeCode(m_records.kernos.at(row), 3);
    line(2, "</Codes>");
    line(1, "</CodeBook>");
}

void QDPXDocument::writeCode(const Kerno& kerno, int depth) {
    const QString title = kerno.title().isEmpty() ? QStringLiteral("Untitled") : kerno.title();
    const QByteArray start = "<Code " + attribute("guid", m_kernoGuids.value(kerno.id())) +
                             attribute("name", text(title)) + "isCodable=\"true\" color=\"" +
                             kerno.color().name().toLatin1() + '"';
    const QVector<int> children = m_children.value(kerno.id());
    if (kerno.description().isEmpty() && children.isEmpty()) {
        line(depth, start + " />");
        return;
    }
    line(depth, start + '>');
    if (!kerno.description().isEmpty())
        line(depth + 1, "<Description>" + text(kerno.description()) + "</Description>");
    for (int row : children)
        writeCode(m_records.kernos.at(row), depth + 1);
    line(depth, "</Code>");
}

void QDPXDocument::writeVariables() {
    line(1, "<Variables>");
    for (const SourceMetadataKey& key : qAsConst(m_records.metadataKeys)) {
        line(2, "<Variable " + attribute("guid", m_keyGuids.value(key.id())) +
                    attribute("name", text(key.key())) + "typeOfVariable=\"Text\"/>");
    }
    line(1, "</Variables>");
}

// A case stands for the sources that have the same values of all properties.
void QDPXDocument::writeCases() {
    QHash<int, QString> values;
    for (const SourceMetadataValue& value : qAsConst(m_records.metadataValues))
        values.insert(value.id(), value.value().toString());
    using Properties = QList<QPair<int, QString>>;
    QHash<int, Properties> properties;
    for (const SourceMetadata& metadata : qAsConst(m_records.metadatas))
        properties[metadata.sourceId()].append({metadata.keyId(), values.value(metadata.valueId())});
    QList<Properties> order;
    QHash<Properties, QVector<int>> cases;
    for (const Source& source : qAsConst(m_records.sources)) {
        Properties own = properties.value(source.id());
        std::sort(own.begin(), own.end());
        if (!cases.contains(own))
            order.append(own);
        cases[own].append(source.id());
    }
    line(1, "<Cases>");
    for (const Properties& own : qAsConst(order)) {
        line(2, "<Case guid=\"" + m_newGuids.next() + "\">");
        for (const auto& property : own) {
            line(3, "<VariableValue>");
            line(4, "<VariableRef targetGUID=\"" + m_keyGuids.value(property.first) + "\"/>");
            line(4, "<TextValue>" + text(property.second) + "</TextValue>");
            line(3, "</VariableValue>");
        }
        for (int sourceId : cases.value(own))
            line(3, "<SourceRef targetGUID=\"" + m_sourceGuids.value(sourceId) + "\"/>");
        line(2, "</Case>");
    }
    line(1, "</Cases>");
}

bool QDPXDocument::writeSources(const Progress& progress) {
    line(1, "<Sources>");
    for (int row = 0; row < m_records.sources.size(); ++row) {
        if (m_failed || !goesOn(progress, row, m_records.sources.size()))
            return false;
        writeSource(m_records.sources.at(row));
    }
    line(1, "</Sources>");
    return true;
}

void QDPXDocument::writeSource(const Source& source) {
    const QByteArray guid = m_sourceGuids.value(source.id());
    m_failed = !writeText(source, guid) || m_failed;
    const bool own = m_options.form == ExchangeForm::Own;
    line(2, "<TextSource ");
    line(3, attribute("guid", guid).trimmed());
    line(3, attribute("name", text(source.title())).trimmed());
    line(3, modified("modifyingUser", source.author(), source.timestamp()).trimmed());
    line(3, "plainTextPath=\"internal://" + guid + (own ? ".txt\"" : ".txt\">"));
    if (own)
        line(3, "richTextPath=\"internal://" + guid + ".docx\">");
    writePassages(source);
    writeNoteReferences(source);
    line(2, "</TextSource>");
}

bool QDPXDocument::writeText(const Source& source, const QByteArray& guid) {
    const QString name = QString::fromLatin1(guid) + QStringLiteral(".txt");
    QFile file(m_textFolder.filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    m_textFiles << name;
    m_places.clear();
    int codePoints = 0;
    // On a full disk a write stops short without an error.
    bool written = true;
    const auto write = [&](const QByteArray& bytes) {
        written = file.write(bytes) == bytes.size() && written;
    };
    for (int row : m_answers.value(source.id())) {
        const QuestionAnswer& answer = m_records.answers.at(row);
        const QString plain = answer.plainAnswer();
        if (m_options.form == ExchangeForm::Own) {
            write(xmltext::ownForFile(plain));
            continue;
        }
        write(plain.toUtf8());
        const CodePointMap map = codePointsOf(plain);
        if (!m_places.contains(answer.questionId()))
            m_places.insert(answer.questionId(), {codePoints, map});
        codePoints += map.count();
    }
    return file.flush() && written;
}

// Most of a document is this, so it goes straight into the buffer.
void QDPXDocument::writePassages(const Source& source) {
    for (int row : m_highlights.value(source.id())) {
        const Highlight& highlight = m_records.highlights.at(row);
        const auto kerno = m_kernoGuids.constFind(highlight.kernoId());
        if (kerno == m_kernoGuids.cend() || !hasPlace(highlight))
            continue;
        m_buffer.append("      <PlainTextSelection guid=\"").append(m_newGuids.next()).append("\" ");
        m_buffer.append(modified("modifyingUser", highlight.author(), highlight.timestamp()));
        m_buffer.append(range(highlight)).append("> \n        <Coding guid=\"").append(m_newGuids.next());
        m_buffer.append("\"> \n          <CodeRef targetGUID=\"").append(*kerno);
        m_buffer.append("\"/> \n        </Coding> \n      </PlainTextSelection> \n");
        flush(false);
    }
}

// By the standard a note stands on a passage through a selection of the source, and positions in the note
// itself count in the note's own text.
void QDPXDocument::writeNoteReferences(const Source& source) {
    for (int row : m_memos.value(source.id())) {
        const Memo& memo = m_records.memos.at(row);
        if (!hasPlace(memo))
            continue;
        const QByteArray reference = "<NoteRef targetGUID=\"" + m_noteGuids.value(memo.id()) + "\"/>";
        if (m_options.form == ExchangeForm::Own) {
            line(3, reference);
            continue;
        }
        line(3, "<PlainTextSelection " + attribute("guid", m_newGuids.next()) + range(memo) + '>');
        line(4, reference);
        line(3, "</PlainTextSelection>");
    }
}

void QDPXDocument::writeNotes() {
    line(1, "<Notes>");
    for (const Memo& memo : qAsConst(m_records.memos)) {
        line(2, "<Note " + attribute("guid", m_noteGuids.value(memo.id())) +
                    modified("modifyingUser", memo.author(), memo.timestamp()) + '>');
        line(3, "<PlainTextContent>" + text(memo.content()) + "</PlainTextContent>");
        if (m_options.form == ExchangeForm::Own)
            line(3, "<PlainTextSelection " + attribute("guid", m_newGuids.next()) + range(memo) + "/>");
        line(2, "</Note>");
    }
    line(1, "</Notes>");
}

void QDPXDocument::writeSets() {
    QHash<int, QVector<int>> members;
    for (const KernoGroup& link : qAsConst(m_records.groupKernos)) {
        if (m_kernoGuids.contains(link.kernoId()))
            members[link.groupId()].append(link.kernoId());
    }
    line(1, "<Sets>");
    for (const Group& group : qAsConst(m_records.groups)) {
        line(2, "<Set " + attribute("guid", m_groupGuids.value(group.id())) +
                    attribute("name", text(group.title())).trimmed() + '>');
        line(3, "<Description></Description>");
        for (int kernoId : members.value(group.id()))
            line(3, "<MemberCode targetGUID=\"" + m_kernoGuids.value(kernoId) + "\" />");
        line(2, "</Set>");
    }
    line(1, "</Sets>");
}
