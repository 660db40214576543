#include "FrameExercise.h"
#include "tests_support/TestMain.h"

/// Replays the fuzzer's texts, and texts that are close to them.
class TestCorpus : public QObject {
    Q_OBJECT
private slots:
    void survives_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QDir folder(QStringLiteral(KERNOVA_FRAME_CORPUS));
        const QStringList names = folder.entryList(QDir::Files);
        QVERIFY(names.size() > 10);
        for (const QString& name : names) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            addRow(qPrintable(name), file.readAll());
        }
    }

    void survives() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(exerciseFrame(bytes), QString());
        QRandomGenerator random(static_cast<quint32>(bytes.size()));
        const QByteArray alphabet("{}[](),:\"\\ \n-0123456789.ei\xF0\x9F\x98\x80");
        for (int round = 0; round < 150 && !bytes.isEmpty(); ++round) {
            QByteArray changed = bytes;
            for (int change = random.bounded(1, 4); change > 0; --change) {
                const int at = random.bounded(changed.size());
                const char letter = alphabet[random.bounded(alphabet.size())];
                switch (random.bounded(3)) {
                case 0:
                    changed[at] = letter;
                    break;
                case 1:
                    changed.insert(at, letter);
                    break;
                default:
                    changed.remove(at, changed.size() > 1 ? 1 : 0);
                    break;
                }
            }
            const QString fault = exerciseFrame(changed);
            QVERIFY2(fault.isEmpty(), qPrintable(fault + QLatin1Char('\n') + QString::fromUtf8(changed)));
        }
    }
};

KERNOVA_TEST_MAIN(TestCorpus)
#include "tst_corpus.moc"
