#include "records/SimpleCipher.h"
#include "tests_support/TestMain.h"

namespace {

quint64 keyOf(const char* password) {
    return cipherKeyFromHash(QCryptographicHash::hash(password, QCryptographicHash::Md5).toHex());
}

}  // namespace

class SimpleCipherTest : public QObject {
    Q_OBJECT

private slots:
    void derivesKeysFromPasswords() {
        QCOMPARE(keyOf("garden"), 0xb634bb402377124ULL);
        QCOMPARE(keyOf(""), 0xed95ea40aa137d5ULL);
    }

    // Made by a separate program from the description of the format.
    void readsKnownCipherTexts_data() {
        columns<QString, QString>({"cipher", "plain"});
        addRow("text", "AwJ+CUcCxEyT9vJz21VQO3oJDw==", "Gr\u00fcn \U0001F331 \"x\""_s);
        addRow("compressed", "AwMl6OHjVxzLuEZ8B0+14uvozOB/OWQ=", "abcabcabc"_s.repeated(20));
        addRow("marker", "AwIjc6H8OAENbC0/fA34wceEwcOc+ys3PUIOK3Qf2MXHoPHljdA7",
               "_projectsAreHashedWithThisValue___");
    }

    void readsKnownCipherTexts() {
        QFETCH(QString, cipher);
        SimpleCipher reader(keyOf("garden"));
        QTEST(reader.decryptToString(cipher), "plain");
        QCOMPARE(reader.lastError(), SimpleCipher::ErrorNone);
        QTEST(reader.decryptToString(QByteArray::fromBase64(cipher.toLatin1())), "plain");

        // Enciphering the same text differs only by the random byte, which shifts every byte after it alike.
        const QByteArray known = QByteArray::fromBase64(cipher.toLatin1());
        const QByteArray own = reader.encrypt(reader.decrypt(known));
        QCOMPARE(own.size(), known.size());
        QCOMPARE(own.left(2), known.left(2));
        const char shift = static_cast<char>(own.at(2) ^ known.at(2));
        for (int i = 2; i < own.size(); ++i)
            QCOMPARE(static_cast<char>(own.at(i) ^ known.at(i)), shift);
    }

    void readsBackItsOwnTexts() {
        for (int mode = 0; mode < 9; ++mode) {
            SimpleCipher cipher(0xffeeddccbbaa9988ULL);
            cipher.setCompressionMode(static_cast<SimpleCipher::CompressionMode>(mode % 3));
            cipher.setProtectionMode(static_cast<SimpleCipher::ProtectionMode>(mode / 3));
            for (const QString& text : {"a"_s, "interview "_s.repeated(1000), "\U0001F331\n x"_s})
                QCOMPARE(SimpleCipher(0xffeeddccbbaa9988ULL).decryptToString(cipher.encryptToString(text)),
                         text);
        }
    }

    void reportsWhatIsWrong() {
        SimpleCipher none;
        QTest::ignoreMessage(QtWarningMsg, "No key set.");
        QVERIFY(none.encrypt("x").isEmpty());
        QCOMPARE(none.lastError(), SimpleCipher::ErrorNoKeySet);

        SimpleCipher cipher(5);
        QVERIFY(cipher.decrypt("ab").isEmpty());
        QTest::ignoreMessage(QtWarningMsg, "Invalid version or not a cyphertext.");
        QVERIFY(cipher.decrypt("plain text").isEmpty());
        QCOMPARE(cipher.lastError(), SimpleCipher::ErrorUnknownVersion);

        QByteArray tampered = cipher.encrypt("some text");
        tampered[8] = static_cast<char>(tampered.at(8) ^ 1);
        QVERIFY(cipher.decrypt(tampered).isEmpty());
        QCOMPARE(cipher.lastError(), SimpleCipher::ErrorIntegrityFailed);
        QVERIFY(SimpleCipher(6).decrypt(cipher.encrypt("some text")).isEmpty());
    }
};

KERNOVA_TEST_MAIN(SimpleCipherTest)
#include "tst_simplecipher.moc"
