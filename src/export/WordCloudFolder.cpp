#include "export/PageFolder.h"
#include "export/ReportData.h"
#include "export/ReportFolder.h"
#include "export/ScriptFile.h"
#include "export/WordCounts.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "records/AnswerText.h"

#include <QDebug>
#include <QFileInfo>

using report::Written;

namespace {

// A word holds no quote: that separates words.
void appendJson(QByteArray& json, QStringView word) {
    json += '"';
    int done = 0;
    for (int at = 0; at <= word.size(); ++at) {
        const ushort unit = at < word.size() ? word.at(at).unicode() : 0;
        if (at < word.size() && unit >= ' ' && unit != '\\')
            continue;
        json += word.mid(done, at - done).toUtf8();
        done = at + 1;
        if (at < word.size())
            json += "\\u" + QByteArray::number(unit, 16).rightJustified(4, '0');
    }
    json += '"';
}

// Written without values in between: a large project has millions of words.
QByteArray json(int sourceId, const QVector<WordCounts::Count>& words) {
    QByteArray json = "{\n    \"sourceId\": " + QByteArray::number(sourceId) + ",\n    \"wordCount\": [";
    for (int i = 0; i < words.size(); ++i) {
        json += i == 0 ? "\n" : ",\n";
        json += "        {\n            \"count\": ";
        json += QByteArray::number(words.at(i).count);
        json += ",\n            \"word\": ";
        appendJson(json, words.at(i).word);
        json += "\n        }";
    }
    return json + "\n    ]\n}";
}

QByteArray wordsOf(const KRNFile& file, int sourceId) {
    qDebug("Trying %i", sourceId);
    QVector<QString> texts;
    for (const QVariant& map : file.answers(sourceId)) {
        const QString stored = map.toMap().value(QStringLiteral("answer")).toString();
        texts.append(AnswerText::prepare(normalizedFromService(stored)).plain());
    }
    WordCounts words;
    for (const QString& text : qAsConst(texts)) {
        if (text.isEmpty())
            continue;
        qDebug("Processing %i", sourceId);
        words.add(text);
    }
    return json(sourceId, words.sorted());
}

}  // namespace

Written wordcloud::writeFolder(const KRNFile& file, const QString& folder, const Progress& progress) {
    if (!file.isOpened() || !pagefolder::makeFolders(folder))
        return Written::Failed;
    ScriptFile script(pagefolder::dataFile(folder));
    if (!script.open()) {
        qWarning() << "Failed to open file for writing word cloud data:" << pagefolder::dataFile(folder);
        return Written::Failed;
    }
    QJsonArray sources;
    for (const QVariant& map : file.sources())
        sources.append(report::json(map.toMap()));
    script.array("sources", sources);
    script.beginArray("wordCountBySource");
    for (int i = 0; i < sources.size(); ++i) {
        const int id = sources.at(i)[QStringLiteral("sourceId")].toInt();
        if (id > 0)
            script.element(wordsOf(file, id));
        else
            qWarning("getWordCountBySourceJSON(): NULL Source at index %d", i);
        if (!goesOn(progress, i + 1, sources.size()))
            return Written::Ended;
    }
    script.endArray();
    script.timestamp("wordCloudTimestamp");
    script.text("wordCloudAuthor", file.getCurrentAuthor());
    script.text("wordCloudFile",
                QFileInfo(file.currentProject().value(QStringLiteral("name")).toString()).fileName());
    return script.close() && file.dataHelper()->isConnected() &&
                   pagefolder::copyFiles(folder, pagefolder::wordCloudFiles())
               ? Written::Done
               : Written::Failed;
}
