#include "ImportExercise.h"
#include "SampleFiles.h"
#include "import/QuestionParser.h"
#include "import/TextFile.h"
#include "tests_support/TestMain.h"

#include <sys/resource.h>

// What the sanitizer keeps of freed memory isn't the importers'.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "quarantine_size_mb=4";
}

namespace {

constexpr int rounds = 200;
constexpr qint64 longestMs = 5000;
constexpr long mostKilobytes = 300 * 1024;

const QString text = "Question: Wie geht’s?\tGut.\n<b>Привет</b> <laughs> 中文 😀\n\n"_s.repeated(20);

// Overwrites, drops, doubles or inserts, once to a few times.
QByteArray mutated(QByteArray bytes, QRandomGenerator& random) {
    const QVector<QByteArray> pieces{"{",
                                     "}",
                                     "\\bin999999999 ",
                                     "\\u-1?",
                                     "\\uc9999 ",
                                     "\\'",
                                     "<!DOCTYPE d [<!ENTITY a \"b\">]>",
                                     "<b>",
                                     "</w:t>",
                                     "&a;",
                                     "PK\5\6",
                                     QByteArray(4, '\xFF'),
                                     QByteArray(4, '\0'),
                                     "endstream",
                                     "/Length 99999999"};
    for (int change = random.bounded(1, 8); change > 0 && !bytes.isEmpty(); --change) {
        const int at = random.bounded(bytes.size());
        const int length = random.bounded(1, 40);
        switch (random.bounded(6)) {
        case 0:
            bytes[at] = static_cast<char>(random.bounded(256));
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, bytes.mid(random.bounded(bytes.size()), length * 10));
            break;
        case 3:
            bytes.insert(at, pieces.at(random.bounded(pieces.size())));
            break;
        case 4:
            bytes.insert(at, pieces.at(random.bounded(pieces.size())).repeated(random.bounded(1, 2000)));
            break;
        default:
            bytes.truncate(at);
        }
    }
    return bytes;
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace

/// Damaged files of each kind: whatever they hold, their import ends soon, and takes little memory.
class tst_Mutations : public QObject {
    Q_OBJECT

private slots:
    void damagedFilesDoNoHarm_data() {
        columns<QByteArray, bool>({"bytes", "inside"});
        for (const QString& suffix : textfile::suffixes())
            addRow(qPrintable(suffix), samples::file(suffix, text), false);
        // Damage to what is packed, which the archive's checksums would hide.
        addRow("docx inside",
               QByteArray("<d xmlns='x'><p><r><b/><t>") + text.toHtmlEscaped().toUtf8() +
                   "</t><tab/><br/></r></p></d>",
               true);
    }

    void damagedFilesDoNoHarm() {
        FETCH(QByteArray, bytes, bool, inside);
        const QString suffix = QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(' '), 0, 0);
        const ImportExercise exercise;
        for (int round = 0; round < rounds; ++round) {
            QRandomGenerator random(static_cast<quint32>(round));
            const QByteArray damaged = mutated(bytes, random);
            QElapsedTimer timer;
            timer.start();
            exercise.import(suffix, inside ? samples::docxOfPart(damaged) : damaged);
            QVERIFY2(timer.elapsed() < longestMs, qPrintable("round %1 takes too long"_s.arg(round)));
        }
        QVERIFY2(peakKilobytes() < mostKilobytes, qPrintable(QString::number(peakKilobytes())));
    }

    void damagedTextsAreCut() {
        for (int round = 0; round < rounds; ++round) {
            QRandomGenerator random(static_cast<quint32>(round));
            const QString damaged = QString::fromUtf8(mutated(text.toUtf8(), random));
            const QVariantList pairs = parseQuestions(damaged, "Q"_s, "?"_s, false);
            int length = 0;
            for (const QVariant& pair : pairs) {
                const QVariantMap map = pair.toMap();
                length += map.value("question"_s).toString().size() + map.value("answer"_s).toString().size();
            }
            QVERIFY(length <= damaged.size());
        }
    }
};

KERNOVA_GUI_TEST_MAIN(tst_Mutations)
#include "tst_mutations.moc"
