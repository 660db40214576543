#include "RandomRecords.h"
#include "RecordFacts.h"
#include "merge/ProjectMerger.h"
#include "tests_support/TestProject.h"

/// Looks into project files through the real service.
class tst_ProjectMerger : public QObject {
    Q_OBJECT

private slots:
    void aPasswordIsTriedOnAClosedProject();
    void aReplacedFileIsReadAgain();
    void aMissingOrBrokenFileIsToldApart();
    void filesAreMergedIntoANewOne();

private:
    QByteArray contentOf(const QJsonObject& project) const {
        return bytesOf(project.value("name"_s).toString());
    }
    QJsonObject store(const QString& name, const QString& password, quint32 seed);
    RecordFacts facts(const QJsonObject& project, const QString& password, Project& loaded);

    QJsonObject make(const QString& name, const QString& password, bool singleQuestion);

    TestProject m_project;
    KRNFile* const m_file = &m_project.file;
    const std::unique_ptr<ProjectMerger> m_merger = std::make_unique<ProjectMerger>(m_file->dataHelper());
};

QJsonObject tst_ProjectMerger::make(const QString& name, const QString& password, bool singleQuestion) {
    const QString failure = m_project.open(name, true, singleQuestion, password);
    if (!failure.isEmpty())
        qFatal("%s", qPrintable(failure));
    m_file->close();
    return m_project.project(name);
}

void tst_ProjectMerger::aPasswordIsTriedOnAClosedProject() {
    const QJsonObject open = make("open.krn"_s, QString(), true);
    const QJsonObject secret = make("secret ä&b.krn"_s, "s3cret"_s, true);
    QVERIFY(m_merger->tryProjectPassword(open, QString()));
    QVERIFY(m_merger->tryProjectPassword(open, "anything"_s));
    QVERIFY(!m_merger->tryProjectPassword(secret, QString()));
    QVERIFY(!m_merger->tryProjectPassword(secret, "wrong"_s));
    QVERIFY(m_merger->tryProjectPassword(secret, "s3cret"_s));
    QCOMPARE(m_merger->lastError(), QString());
    QVERIFY(m_file->openProject(secret, false, "s3cret"_s, true));
    m_file->close();
}

void tst_ProjectMerger::aReplacedFileIsReadAgain() {
    const QJsonObject project = make("twice.krn"_s, QString(), true);
    QVERIFY(m_merger->tryProjectPassword(project, QString()));
    make("twice.krn"_s, "now"_s, true);
    QVERIFY(!m_merger->tryProjectPassword(project, QString()));
}

void tst_ProjectMerger::aMissingOrBrokenFileIsToldApart() {
    const QJsonObject missing = m_project.project("missing.krn"_s);
    QVERIFY(!m_merger->tryProjectPassword(missing, QString()));
    QVERIFY(!m_merger->lastError().isEmpty());
    QVERIFY(!m_merger->tryProjectSingleQuestion(missing, true));
    QVERIFY(!QFile::exists(m_project.path("missing.krn"_s)));

    const QString broken = m_project.path("broken.krn"_s);
    writeBytes(broken, "no database");
    QVERIFY(!m_merger->tryProjectPassword({{"name"_s, broken}}, QString()));
    QVERIFY(!m_merger->lastError().isEmpty());
}

QJsonObject tst_ProjectMerger::store(const QString& name, const QString& password, quint32 seed) {
    Project project({});
    project.records() = RandomRecords(seed).make();
    const QJsonObject target = m_project.project(name);
    const Message message = project.save(*m_file->dataHelper(), target, password);
    return message.status ? target : QJsonObject();
}

RecordFacts tst_ProjectMerger::facts(const QJsonObject& project, const QString& password, Project& loaded) {
    QByteArray reply;
    m_file->dataHelper()->readProject(project, reply);
    loaded =
        Project(QJsonObject{{"project_json", QJsonDocument::fromJson(reply).object().value("project_json")}});
    if (!loaded.loadFromJson(reply, password))
        qWarning("not readable");
    return RecordFacts(loaded.records());
}

// Passwords of all kinds, refusals that write nothing, and inputs that stay as they are.
void tst_ProjectMerger::filesAreMergedIntoANewOne() {
    const QString secret = "s3cret"_s;
    const QJsonObject master = store("master.krn"_s, secret, 1);
    const QJsonObject other = store("other.krn"_s, QString(), 2);
    const QJsonObject result = m_project.project("result.krn"_s);
    const QByteArray before = contentOf(master) + contentOf(other);

    m_merger->clearMerger();
    QVERIFY(!m_merger->setMaster(master, "wrong"_s));
    QVERIFY(!m_merger->merge(result, QString()));
    QVERIFY(m_merger->setMaster(master, secret));
    QVERIFY(!m_merger->merge(result, QString()));
    QVERIFY(!m_merger->tryProjectSingleQuestion(make("several.krn"_s, QString(), false), false));
    QVERIFY(m_merger->tryProjectSingleQuestion(other, false));
    QVERIFY(m_merger->addProject(other, QString()));
    QVERIFY(m_merger->exists(other) && !m_merger->exists(result));
    QVERIFY(!m_merger->merge(other, QString()));
    QCOMPARE(m_merger->lastError().isEmpty(), false);
    QCOMPARE(contentOf(master) + contentOf(other), before);

    const auto connection =
        connect(m_merger.get(), &ProjectMerger::progressed, this, [this] { m_merger->cancelMerge(); });
    QVERIFY(!m_merger->merge(result, QString()));
    disconnect(connection);
    QVERIFY(!QFile::exists(m_project.path("result.krn"_s)));

    QVERIFY2(m_merger->merge(result, "new"_s), qPrintable(m_merger->lastError()));
    QCOMPARE(m_merger->resultProject(), result);
    QCOMPARE(contentOf(master) + contentOf(other), before);
    Project loaded({});
    const RecordFacts merged = facts(result, "new"_s, loaded);
    QVERIFY(!loaded.acceptsPassword(secret) && loaded.acceptsPassword("new"_s));
    for (quint32 seed : {1U, 2U}) {
        const ProjectRecords records = RandomRecords(seed).make();
        const RecordFacts input(records);
        QVERIFY((input.memos() - merged.memos()).isEmpty());
        QVERIFY((input.properties() - merged.properties()).isEmpty());
    }
    QCOMPARE(merged.sources.value(1).timestamp(), RandomRecords(1).make().sources.first().timestamp());
    QVERIFY(m_file->openProject(result, false, "new"_s, true));
    m_file->close();
}

KERNOVA_TEST_MAIN(tst_ProjectMerger)
#include "tst_projectmerger.moc"
