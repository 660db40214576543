#include "exchange/QDPXArchive.h"
#include "exchange/QDPXReader.h"

namespace {

constexpr int theQuestion = 1;

}  // namespace

// Takes a NoteRef or a Description, whichever the element is.
void QDPXReader::readRemark(const QString& element, Remark::About about, int id, QList<Remark>& remarks) {
    Remark remark;
    remark.about = about;
    remark.id = id;
    remark.author = m_options.author;
    if (element == QLatin1String("noteref"))
        remark.note = targetGuid();
    else
        remark.description = m_xml.readElementText();
    if (!remark.note.isNull() || !remark.description.trimmed().isEmpty())
        remarks.append(remark);
}

// A text is made of a note as of a source, and a title that other programs give it goes before the text.
void QDPXReader::readNote() {
    const QUuid own = guid("guid");
    Note note;
    note.author = authorNamed({"modifyingUser", "creatingUser"});
    note.time = time({"modifiedDateTime", "creationDateTime"});
    const QString title = attribute("name");
    const QString path = attribute("plainTextPath");
    if (!path.isEmpty())
        note.text = literalFile(m_archive.text(path)).plain;
    eachChild([&](const QString& child) {
        if (child == QLatin1String("plaintextcontent")) {
            const QString content = m_xml.readElementText();
            note.text = note.text.isEmpty() ? content : note.text;
        } else if (child == QLatin1String("plaintextselection")) {
            bool hasStart = false;
            bool hasEnd = false;
            const int start = attribute("startPosition").toInt(&hasStart);
            const int end = attribute("endPosition").toInt(&hasEnd);
            if (hasStart && hasEnd) {
                note.start = start;
                note.length = end - start;
            }
            m_form == ExchangeForm::Own ? m_xml.skipCurrentElement() : skip(Kind::SelectionWithoutCode);
        } else {
            skip(Kind::Other);
        }
    });
    if (m_notes.contains(own)) {
        skipped.add(Kind::Duplicate);
        return;
    }
    if (m_form == ExchangeForm::Standard && !title.isEmpty() && !note.text.startsWith(title))
        note.text = note.text.isEmpty() ? title : title + QLatin1String("\n\n") + note.text;
    m_notes.insert(own, note);
}

// What is about a text as a whole stands at its beginning, as a memo needs a place.
void QDPXReader::finishRemarks() {
    for (const Remark& remark : qAsConst(m_remarks)) {
        Note described;
        described.text = remark.description;
        described.author = remark.author;
        const auto found = m_notes.find(remark.note);
        if (!remark.note.isNull() && (found == m_notes.end() || remark.about == Remark::Nothing)) {
            // One that is there is counted when nothing else uses it.
            if (found == m_notes.end())
                skipped.add(Kind::Note);
            continue;
        }
        if (!remark.note.isNull())
            found->isUsed = true;
        const Note& note = remark.note.isNull() ? described : *found;
        if (remark.about == Remark::Code) {
            Kerno& kerno = records.kernos[m_kernoRows.value(remark.id)];
            kerno.setDescription(kerno.description().isEmpty()
                                     ? note.text
                                     : kerno.description() + QLatin1String("\n\n") + note.text);
        } else if (remark.about == Remark::Passage) {
            addMemo(note, remark.id, remark.start, remark.length);
        } else if (remark.about == Remark::Source) {
            const bool own = m_form == ExchangeForm::Own && !remark.note.isNull();
            addMemo(note, remark.id, own ? note.start : 0, own ? note.length : 1);
        } else if (m_cases.at(remark.id).sourceIds.isEmpty()) {
            skipped.add(Kind::Note);
        } else {
            for (int sourceId : m_cases.at(remark.id).sourceIds)
                addMemo(note, sourceId, 0, 1);
        }
    }
    for (const Note& note : qAsConst(m_notes)) {
        if (!note.isUsed)
            skipped.add(Kind::Note);
    }
}

void QDPXReader::addMemo(const Note& note, int sourceId, int start, int length) {
    if (start < 0 || length <= 0 || start > m_lengths.value(sourceId, -1) - length) {
        skipped.add(m_lengths.contains(sourceId) ? Kind::PassageOutsideText : Kind::Note);
        return;
    }
    records.memos.append(Memo(records.memos.size() + 1, sourceId, theQuestion, note.text, start, length,
                              start + length, note.author, note.time.isValid() ? note.time : m_now, 0, 0));
}
