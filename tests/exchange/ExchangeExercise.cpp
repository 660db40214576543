#include "ExchangeExercise.h"

#include "RecordFacts.h"
#include "SampleFiles.h"

#include <QFile>

QDPXImporter::Result ExchangeExercise::importBytes(const QByteArray& archive) const {
    QFile file(path("any.qdpx"));
    if (!file.open(QIODevice::WriteOnly) || file.write(archive) != archive.size())
        qFatal("cannot write");
    file.close();
    return QDPXImporter({"Importer", 800, 600}).importProject(file.fileName());
}

QDPXImporter::Result ExchangeExercise::import(const Entries& entries) const {
    return importBytes(samples::zip(entries));
}

QDPXImporter::Result ExchangeExercise::importDocument(const QByteArray& document) const {
    return import({{"project.qde", document},
                   {"Sources/a.txt", "\xEF\xBB\xBF<laughs> one &amp; two\r\nsecond \xF0\x9F\x98\x80 line"},
                   {"Sources/b.txt", "plain"}});
}

QString ExchangeExercise::faultOf(const QByteArray& bytes) const {
    const QDPXImporter::Result result = bytes.startsWith("PK") ? importBytes(bytes) : importDocument(bytes);
    if (!result.project)
        return result.error.isEmpty() ? "no error is told" : QString();
    const ProjectRecords& r = result.project->records();
    const RecordFacts facts(r);
    for (const Highlight& h : r.highlights) {
        if (!facts.kernos.contains(h.kernoId()) || h.length() <= 0 || facts.words(h).size() != h.length())
            return "a coding without a place or code";
    }
    for (const Memo& m : r.memos) {
        if (m.length() <= 0 || facts.words(m).size() != m.length())
            return "a memo without a place";
    }
    for (const Kerno& kerno : r.kernos) {
        int steps = 0;
        for (int at = kerno.id(); at != -1; at = facts.kernos.value(at).parentKernoId()) {
            if (++steps > r.kernos.size() || !facts.kernos.contains(at))
                return "a kerno that is its own ancestor, or has an unknown one";
        }
    }
    for (const SourceMetadata& m : r.metadatas) {
        if (!facts.sources.contains(m.sourceId()) || !facts.keys.contains(m.keyId()) ||
            !facts.values.contains(m.valueId()))
            return "a property of nothing";
    }
    return facts.sources.size() == r.sources.size() && facts.kernos.size() == r.kernos.size()
               ? QString()
               : "an id that is given twice";
}
