#include "export/DocxSourceExporter.h"

#include "export/DocxDocument.h"
#include "link/DataHelper.h"
#include "models/KernoModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QRegularExpression>

namespace {

constexpr int longestName = 60;   // so that its bytes fit, with what a writer puts behind it meanwhile
constexpr int packingShare = 50;  // percent of the work

QString cannotWrite(const QString& path, const QString& why) {
    return DocxSourceExporter::tr("%1 can't be written: %2.").arg(QDir::toNativeSeparators(path), why);
}

}  // namespace

DocxSourceExporter::DocxSourceExporter(KRNFile* file, QObject* parent) : QObject(parent), m_file(file) {}

QString DocxSourceExporter::fileName(int number, const QString& title) {
    static const QRegularExpression unusable(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|\\x7f]"));
    QString name = title.isEmpty() ? QCoreApplication::translate("Source title", "Untitled") : title;
    name.replace(unusable, QStringLiteral("_")).truncate(longestName);
    if (name.at(name.size() - 1).isHighSurrogate())
        name.chop(1);
    return QStringLiteral("%1_").arg(number) + name + QLatin1String(".docx");
}

bool DocxSourceExporter::read(Result& result) {
    QList<Highlight> highlights;
    if (!m_file->waitForTexts())
        result.sentence = tr("Not all texts of the project could be read.");
    else if (!m_file->dataHelper()->findAll(m_sources) || !m_file->dataHelper()->findAll(highlights))
        result.sentence = tr("The project could not be read.");
    else
        m_highlights = byPlace(highlights);
    return result.sentence.isEmpty();
}

void DocxSourceExporter::addSource(DocxDocument& document, const Source& source, bool includeTitle) {
    if (includeTitle)
        document.addSourceHeading(source.title());
    for (const QuestionAnswer& answer : m_file->answerModel()->answers(source.sourceId())) {
        QVector<DocxComment> comments;
        for (const Highlight& highlight : m_highlights.value({source.sourceId(), answer.questionId()})) {
            comments << DocxComment{highlight.start(), highlight.length(),
                                    m_file->kerno(highlight.kernoId()).title(), highlight.author(),
                                    highlight.timestamp()};
        }
        const QString question = m_file->questionText(answer.questionId());
        if (!question.isEmpty())
            document.addQuestionHeading(question);
        document.addText(MarkedText::of(answer.text()), comments);
    }
}

DocxSourceExporter::Result DocxSourceExporter::exportAll(const QString& path, const Progress& progress) {
    Result result;
    if (!read(result))
        return result;
    const QJsonObject project = m_file->currentProject();
    const auto endsAt = [&](int percent) {
        result.cancelled = !goesOn(progress, percent, 100);
        if (!result.cancelled && m_file->currentProject() != project)
            result.sentence = tr("The project was closed meanwhile.");
        return result.cancelled || !result.sentence.isEmpty();
    };
    DocxDocument document;
    for (int i = 0; i < m_sources.size(); ++i) {
        if (endsAt((100 - packingShare) * i / m_sources.size()))
            return result;
        addSource(document, m_sources.at(i), true);
    }
    const QString error = writeZip(path, document.finish(), [&](qint64 done, qint64 of) {
        return !endsAt(100 - packingShare + static_cast<int>(packingShare * done / of));
    });
    if (error.isEmpty())
        result.written = 1;
    else if (!result.cancelled && result.sentence.isEmpty())
        result.sentence = cannotWrite(path, error);
    return result;
}

DocxSourceExporter::Result DocxSourceExporter::exportSeparately(const QString& folder, const Options& options,
                                                                const Progress& progress) {
    Result result;
    if (!QDir().mkpath(folder)) {
        qDebug() << "DocxSourceExporter::doExportSeparateSources: Cannot create output folder...";
        result.sentence = tr("The folder %1 can't be made.").arg(QDir::toNativeSeparators(folder));
    }
    if (!result.sentence.isEmpty() || !read(result))
        return result;
    const QJsonObject project = m_file->currentProject();
    for (int i = 0; i < m_sources.size(); ++i) {
        if (!goesOn(progress, i, m_sources.size())) {
            result.cancelled = true;
            return result;
        }
        if (m_file->currentProject() != project) {
            result.sentence = tr("The project was closed meanwhile.");
            return result;
        }
        const Source source = m_sources.at(i);
        const QUuid uuid = source.uuid().isNull() ? QUuid::createUuid() : source.uuid();
        const QString name = options.useGuid ? uuid.toString(QUuid::WithoutBraces) + QLatin1String(".docx")
                                             : fileName(i + 1, source.title());
        DocxDocument document;
        addSource(document, source, options.includeTitle);
        const QString path = QDir(folder).filePath(name);
        const QString error = writeZip(path, document.finish());
        if (error.isEmpty()) {
            ++result.written;
        } else {
            qDebug() << "Failed to export Source:" << source.title();
            if (result.sentence.isEmpty())
                result.sentence = cannotWrite(path, error);
        }
    }
    return result;
}
