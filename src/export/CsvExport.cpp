#include "export/CsvExport.h"

#include "export/CsvFile.h"
#include "export/CsvText.h"
#include "export/QuotesBySource.h"
#include "link/DataHelper.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "project/Places.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <future>
#include <memory>
#include <numeric>
#include <vector>

namespace csv {

namespace {

constexpr int rowsBetweenProgress = 200;
constexpr int stepsOfFile = 1000;

QString tr(const char* text) {
    return QCoreApplication::translate("CsvExport", text);
}

QByteArray quotedField(const QString& text) {
    QByteArray field;
    appendQuoted(field, text);
    field += ',';
    return field;
}

class Export {
public:
    Export(KRNFile& file, const Progress& progress)
        : m_file(file), m_progress(progress), m_project(file.currentProject()) {}

    /// Reads what goes into the files; the highlights are on their way then, and other files can be written
    /// meanwhile.
    bool read();

    // Each writes one file; false when the work is to end, or what belongs into the file can't be read.
    bool memos(File& out);
    bool quotes(File& out);
    bool kernos(File& out);
    bool sources(File& out);
    bool chat(File& out);

    /// What could not be read, or empty when the user has ended the work.
    QString fault() const { return m_fault; }

private:
    template <typename T, typename Line> bool lines(const QList<T>& records, const Line& line);
    bool waitForHighlights();
    static QString unread() { return tr("The project could not be read."); }
    bool fail(const QString& fault) {
        m_fault = fault;
        return false;
    }
    void header(File& out, const char* names);
    QString text(int sourceId, int questionId);
    QVector<QByteArray> passages();
    const QByteArray& sourceTitle(int sourceId);
    const QByteArray& kernoTitle(int kernoId);
    const QByteArray& properties(int sourceId);
    QString groupsOf(int kernoId) const;

    KRNFile& m_file;
    const Progress& m_progress;
    const QJsonObject m_project;
    QList<SourceMetadataKey> m_keys;
    QList<Memo> m_memos;
    QList<Source> m_sources;
    QList<Kerno> m_kernos;
    QList<ChatMessage> m_messages;
    QList<Highlight> m_highlights;
    // Fields that many lines have, by the id of the source or kerno.
    QHash<int, QByteArray> m_sourceTitles;
    QHash<int, QByteArray> m_kernoTitles;
    QHash<int, QByteArray> m_properties;
    Place m_place;   ///< of the text that was asked for last...
    QString m_text;  ///< ... and the text: each asking unpacks all of it
    int m_filesDone = 0;
    QString m_fault;
    /// Last, so that it goes first: the end of the reading is waited for before what it fills goes.
    std::future<bool> m_readingHighlights;
};

// Calls `line` for each record, and the progress now and then.
template <typename T, typename Line> bool Export::lines(const QList<T>& records, const Line& line) {
    int row = 0;
    for (const T& record : records) {
        if (row % rowsBetweenProgress == 0) {
            const qint64 step = stepsOfFile * qint64(row) / records.size();
            if (!goesOn(m_progress, m_filesDone * stepsOfFile + step, stepsOfFile * fileNames().size()))
                return false;
            if (m_file.currentProject() != m_project)
                return fail(tr("The project was closed meanwhile."));
        }
        line(record);
        ++row;
    }
    ++m_filesDone;
    return true;
}

bool Export::read() {
    DataHelper* const helper = m_file.dataHelper();
    if (!helper->findAll(m_keys) || !helper->findAll(m_memos) || !helper->findAll(m_sources) ||
        !helper->findAll(m_kernos) || !helper->findAll(m_messages))
        return fail(unread());
    // Half the time of an export goes by until they are here.
    m_readingHighlights =
        std::async(std::launch::async, [this, helper] { return helper->findAll(m_highlights); });
    return true;
}

bool Export::waitForHighlights() {
    return !m_readingHighlights.valid() || m_readingHighlights.get() || fail(unread());
}

// The fixed names, and one more for each property.
void Export::header(File& out, const char* names) {
    out.raw(names);
    for (const SourceMetadataKey& key : qAsConst(m_keys))
        out.quoted(key.key());
    out.endLine();
}

// The texts of passages come in runs of one answer.
QString Export::text(int sourceId, int questionId) {
    if (m_place != Place(sourceId, questionId)) {
        m_place = {sourceId, questionId};
        m_text = m_file.answerModel()->answer(sourceId, questionId).plainAnswer();
    }
    return m_text;
}

const QByteArray& Export::sourceTitle(int sourceId) {
    QByteArray& field = m_sourceTitles[sourceId];
    if (field.isEmpty())
        field = quotedField(m_file.sourceTitle(sourceId));
    return field;
}

const QByteArray& Export::kernoTitle(int kernoId) {
    QByteArray& field = m_kernoTitles[kernoId];
    if (field.isEmpty())
        field = quotedField(m_file.kerno(kernoId).title());
    return field;
}

const QByteArray& Export::properties(int sourceId) {
    const auto known = m_properties.constFind(sourceId);
    if (known != m_properties.cend())
        return *known;
    QByteArray fields;
    for (const SourceMetadataKey& key : qAsConst(m_keys)) {
        QStringList values;
        for (const SourceMetadataValue& value : m_file.metadataModel()->valuesOf(sourceId, key.id()))
            values << value.value().toString();
        fields += quotedField(values.join(QLatin1Char(',')));
    }
    return *m_properties.insert(sourceId, fields);
}

bool Export::memos(File& out) {
    header(out, "memoID, author, sourceID, sourceTitle, questionID, memo, quote,");
    return lines(m_memos, [&](const Memo& memo) {
        out.field(memo.memoId());
        out.quoted(memo.author());
        out.field(memo.sourceId());
        out.raw(sourceTitle(memo.sourceId()));
        out.field(memo.questionId());
        out.quoted(memo.content());
        out.quoted(text(memo.sourceId(), memo.questionId()), memo.start(), memo.length());
        out.raw(properties(memo.sourceId()));
        out.endLine();
    });
}

// The order of the highlights isn't that of the texts: each text is unpacked once.
QVector<QByteArray> Export::passages() {
    QVector<int> order(m_highlights.size());
    std::iota(order.begin(), order.end(), 0);
    const auto placeOf = [&](int i) {
        return Place(m_highlights.at(i).sourceId(), m_highlights.at(i).questionId());
    };
    std::sort(order.begin(), order.end(), [&](int a, int b) { return placeOf(a) < placeOf(b); });
    QVector<QByteArray> passages(m_highlights.size());
    QByteArray field;
    for (const int i : qAsConst(order)) {
        const Place place = placeOf(i);
        field.resize(0);
        appendQuoted(field, text(place.first, place.second), m_highlights.at(i).start(),
                     m_highlights.at(i).length());
        // A copy has no more than its bytes.
        passages[i] = QByteArray(field.constData(), field.size());
    }
    return passages;
}

bool Export::quotes(File& out) {
    if (!waitForHighlights())
        return false;
    header(out, "highlightID, color, start, length, end, author, kernoID, kernoTitle, sourceID, sourceTitle, "
                "questionID, quote,");
    const QVector<QByteArray> passages = this->passages();
    int row = 0;
    return lines(m_highlights, [&](const Highlight& highlight) {
        out.field(highlight.highlightId());
        out.field(highlight.color().name());
        out.field(highlight.start());
        out.field(highlight.length());
        out.field(highlight.end());
        out.quoted(highlight.author());
        out.field(highlight.kernoId());
        out.raw(kernoTitle(highlight.kernoId()));
        out.field(highlight.sourceId());
        out.raw(sourceTitle(highlight.sourceId()));
        out.field(highlight.questionId());
        out.raw(passages.at(row++));
        out.raw(",");
        out.raw(properties(highlight.sourceId()));
        out.endLine();
    });
}

QString Export::groupsOf(int kernoId) const {
    QStringList titles;
    for (const KernoGroup& link : m_file.kernoGroupModel()->linksOfKerno(kernoId))
        titles << m_file.groupModel()->record(link.groupId()).title();
    return titles.join(QLatin1Char(','));
}

bool Export::kernos(File& out) {
    if (!waitForHighlights())
        return false;
    QuotesBySource counts(m_highlights);
    counts.setSources(m_sources);
    out.raw("kernoID, parentKernoID, color, title, description, timestamp, author, groups, x, y, quotes,");
    for (const Source& source : qAsConst(m_sources))
        out.quoted(source.title());
    out.endLine();
    return lines(m_kernos, [&](const Kerno& kerno) {
        out.field(kerno.kernoId());
        out.field(kerno.parentKernoId());
        out.field(kerno.color().name());
        out.quoted(kerno.title());
        out.quoted(kerno.description());
        out.field(kerno.timestamp().toString());
        out.quoted(kerno.author());
        out.quoted(groupsOf(kerno.kernoId()));
        out.field(kerno.x());
        out.field(kerno.y());
        out.field(counts.ofKerno(kerno.kernoId()));
        for (const QuotesBySource::Share& share : counts.sharesOfKerno(kerno.kernoId()))
            out.field(QStringLiteral("%1 of %2").arg(share.ofKerno).arg(share.all));
        out.endLine();
    });
}

bool Export::sources(File& out) {
    header(out, "sourceID, title, author, timestamp, answer,");
    return lines(m_sources, [&](const Source& source) {
        QString text;
        for (const QuestionAnswer& answer : m_file.answerModel()->answers(source.sourceId()))
            text = text.isEmpty() ? answer.plainAnswer() : text + answer.plainAnswer();
        out.field(source.sourceId());
        out.quoted(source.title());
        out.quoted(source.author());
        out.field(source.timestamp().toString());
        out.quoted(text);
        out.raw(properties(source.sourceId()));
        out.endLine();
    });
}

bool Export::chat(File& out) {
    out.raw("author, message, timestamp,");
    out.endLine();
    return lines(m_messages, [&](const ChatMessage& message) {
        out.quoted(message.author());
        out.quoted(message.message());
        out.field(message.timestamp().toString(Qt::ISODate));
        out.endLine();
    });
}

struct FileRow {
    const char* name;
    bool (Export::*write)(File& out);
    bool needsHighlights;
};

const std::array<FileRow, 5> fileRows{{{"Memos", &Export::memos, false},
                                       {"Quotes", &Export::quotes, true},
                                       {"Kernos", &Export::kernos, true},
                                       {"Sources", &Export::sources, false},
                                       {"Chat", &Export::chat, false}}};

QString cannotWrite(const File& file, const QString& why) {
    qDebug() << "Cannot write to" << file.path();
    return tr("%1 can't be written: %2.").arg(QDir::toNativeSeparators(file.path()), why);
}

}  // namespace

QStringList fileNames() {
    QStringList names;
    for (const FileRow& row : fileRows)
        names << QString::fromLatin1(row.name) + QLatin1String(".csv");
    return names;
}

Result exportProject(KRNFile& file, const QString& folder, const Progress& progress) {
    const QFileInfo info(folder);
    if (!info.isDir()) {
        qDebug() << "Output folder does not exist!";
        return {0, false, tr("The folder %1 does not exist.").arg(QDir::toNativeSeparators(folder))};
    }
    if (!info.isWritable()) {
        qDebug() << "Output folder is not writable!";
        return {0, false, tr("The folder %1 can't be written to.").arg(QDir::toNativeSeparators(folder))};
    }
    if (!file.waitForTexts())
        return {0, false, tr("Not all texts of the project could be read.")};
    Result result;
    const auto note = [&](const QString& fault) {
        if (result.sentence.isEmpty())
            result.sentence = fault;
    };
    Export project(file, progress);
    std::vector<std::pair<FileRow, std::unique_ptr<File>>> files;
    for (const FileRow& row : fileRows) {
        auto out = std::make_unique<File>(folder, QString::fromLatin1(row.name));
        if (out->open())
            files.emplace_back(row, std::move(out));
        else
            note(cannotWrite(*out, out->openError()));
    }
    bool goesOn = project.read();
    for (const bool needsHighlights : {false, true}) {
        for (const auto& [row, out] : files)
            goesOn = goesOn && (row.needsHighlights != needsHighlights || (project.*row.write)(*out));
    }
    if (!goesOn)
        return {0, project.fault().isEmpty(), project.fault()};
    for (const auto& [row, out] : files) {
        const QString error = out->commit();
        if (error.isEmpty())
            ++result.written;
        else
            note(cannotWrite(*out, error));
    }
    return result;
}

}  // namespace csv
