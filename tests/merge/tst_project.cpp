#include "merge/Project.h"
#include "project/ProjectPassword.h"
#include "tests_support/TestMain.h"

#include <QJsonArray>
#include <QTest>

class tst_Project : public QObject {
    Q_OBJECT

private slots:
    void passwordsAreProven_data();
    void passwordsAreProven();
    void theKindIsRead_data();
    void theKindIsRead();
    void theIdentityLeavesTheContentsOut();
};

namespace {

QString proofOf(const char* password) {
    SimpleCipher cipher(cipherKeyFromHash(projectpassword::hash(QString::fromUtf8(password))));
    return projectpassword::proof(cipher);
}

Project projectWith(const QVariantMap& preferences) {
    QJsonArray list;
    for (auto it = preferences.cbegin(); it != preferences.cend(); ++it)
        list.append(
            QJsonObject{{QStringLiteral("key"), it.key()}, {QStringLiteral("value"), it->toString()}});
    return Project({{QStringLiteral("name"), QStringLiteral("a.krn")},
                    {QStringLiteral("project_json"), QJsonObject{{QStringLiteral("preferences"), list}}}});
}

}  // namespace

void tst_Project::passwordsAreProven_data() {
    QTest::addColumn<QVariant>("encrypted");
    QTest::addColumn<QVariant>("proof");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("accepted");
    const QVariant proof = proofOf("secret");
    QTest::newRow("right") << QVariant("true") << proof << "secret" << true;
    QTest::newRow("wrong") << QVariant("true") << proof << "Secret" << false;
    QTest::newRow("none given") << QVariant("true") << proof << "" << false;
    QTest::newRow("number as flag") << QVariant("1") << proof << "wrong" << false;
    QTest::newRow("not encrypted") << QVariant("false") << QVariant() << "anything" << true;
    QTest::newRow("nothing said") << QVariant() << QVariant() << "" << true;
    QTest::newRow("proof lost") << QVariant("true") << QVariant() << "secret" << false;
    QTest::newRow("proof broken") << QVariant("true") << QVariant("#!") << "secret" << false;
}

void tst_Project::passwordsAreProven() {
    QFETCH(QVariant, encrypted);
    QFETCH(QVariant, proof);
    QFETCH(QString, password);
    QVariantMap preferences;
    if (encrypted.isValid())
        preferences.insert(QStringLiteral("___db_encrypted"), encrypted);
    if (proof.isValid())
        preferences.insert(QStringLiteral("___db_hash"), proof);
    QTEST(projectWith(preferences).acceptsPassword(password), "accepted");
}

void tst_Project::theKindIsRead_data() {
    QTest::addColumn<QVariantMap>("preferences");
    QTest::addColumn<int>("kind");
    QTest::newRow("plain sources") << QVariantMap{{QStringLiteral("___single_question"), 1}} << 1;
    QTest::newRow("structured") << QVariantMap{{QStringLiteral("___single_question"), 0}} << 0;
    QTest::newRow("not said") << QVariantMap{{QStringLiteral("other"), 1}} << -1;
}

void tst_Project::theKindIsRead() {
    QFETCH(QVariantMap, preferences);
    QTEST(projectWith(preferences).singleQuestion(), "kind");
}

void tst_Project::theIdentityLeavesTheContentsOut() {
    const Project project = projectWith({});
    QCOMPARE(project.identity(), (QJsonObject{{QStringLiteral("name"), QStringLiteral("a.krn")}}));
    QCOMPARE(project.name(), QStringLiteral("a.krn"));
}

KERNOVA_TEST_MAIN(tst_Project)
#include "tst_project.moc"
