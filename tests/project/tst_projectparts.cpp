#include "ProjectSupport.h"
#include "tests_support/FilledProject.h"
#include "tests_support/TestMain.h"

namespace {

const QStringList allLists =
    "sources source_metadatas source_metadata_keys source_metadata_values questions question_answers "
    "highlights memos kernos group_kernos groups kerno_shortcut_keys chat_messages"_s.split(' ');

QMap<QString, QJsonValue> preferencesOf(const QJsonObject& project) {
    QMap<QString, QJsonValue> preferences;
    for (const QJsonValue& entry : project.value("preferences").toArray())
        preferences.insert(entry.toObject().value("key").toString(), entry.toObject().value("value"));
    return preferences;
}

}  // namespace

/// Projects made of parts of the open one, through the real service.
class TestProjectParts : public QObject {
    Q_OBJECT

private:
    using Export = QVariantList (KRNFile::*)(const QString&);

    QJsonObject read(const QString& path) {
        return m_file->dataHelper()
            ->exportProjectJson(localProject(path))
            .json.value("project_json")
            .toObject();
    }

    // A project with a record in every list.
    bool fill(const QString& password, bool singleQuestion) {
        if (!m_file.create(password, singleQuestion))
            return false;
        fillProject(*m_file);
        m_file->saveChatMessage(ChatMessage(1, "Hello", "Ann", {}));
        m_file->savePreference("Source.FontSize", 17);
        m_file->savePreference("SourcesList.CurrentIds", "[1]");
        return m_file->waitForTexts();
    }

    ProjectUnderTest m_file;

private slots:
    void aPartHoldsItsListsAsTheyWere_data() {
        columns<bool, QString, bool>({"sources", "password", "singleQuestion"});
        addRow("sources", true, "", true);
        addRow("sources, protected", true, "s3cret", false);
        addRow("structure", false, "", false);
        addRow("structure, protected", false, "s3cret", true);
    }

    void aPartHoldsItsListsAsTheyWere() {
        FETCH(bool, sources, QString, password, bool, singleQuestion);
        m_file.restart();
        QVERIFY(fill(password, singleQuestion));
        const QJsonObject project = m_file->currentProject();
        const Export write = sources ? &KRNFile::exportKRNSources : &KRNFile::exportKRNStructure;
        QCOMPARE(((*m_file).*write)(m_file.path("part")), (QVariantList{true, QString()}));
        QVERIFY(m_file->isOpened() && m_file->currentProject() == project);

        const QJsonObject whole = read(m_file.path());
        const QJsonObject part = read(m_file.path("part.krn"));
        const QString kept = sources ? "sources questions question_answers source_metadata_keys "
                                       "source_metadata_values source_metadatas"_s
                                     : "kernos groups group_kernos kerno_shortcut_keys questions "
                                       "source_metadata_keys source_metadata_values"_s;
        for (const QString& list : allLists) {
            QVERIFY2(!whole.value(list).toArray().isEmpty(), qPrintable(list));
            QCOMPARE(part.value(list), kept.split(' ').contains(list) ? whole.value(list) : QJsonArray());
        }
        QMap<QString, QJsonValue> preferences = preferencesOf(whole);
        QVERIFY(preferences.remove("___db_open_lock") && preferences.contains("SourcesList.CurrentIds"));
        if (!sources)
            preferences.remove("SourcesList.CurrentIds");
        QCOMPARE(preferencesOf(part), preferences);

        // It isn't marked as open elsewhere, so nobody is asked.
        QVERIFY2(m_file.open("part.krn", password), qPrintable(m_file->getLastOpenError()));
        QCOMPARE(m_file->singleQuestionMode(), singleQuestion);
        QCOMPARE(IdManager::instance()->nextKernoId(), sources ? 1 : 6);
        if (sources)
            QCOMPARE(m_file->answer(1, 1).value("answer").toString().contains("A long enough answer"), true);
        m_file->close();
        QCOMPARE(m_file.open("part.krn", "wrong"), false);
    }

    void nothingIsWrittenWhereItFails() {
        m_file.restart();
        QVERIFY(fill({}, true));
        const QJsonObject before = read(m_file.path());
        const QVariantList onto = m_file->exportKRNSources(m_file.path());
        QVERIFY(!onto[0].toBool() && !onto[1].toString().isEmpty());
        const QVariantList nowhere = m_file->exportKRNStructure(m_file.path("no/such/folder.krn"));
        QVERIFY(!nowhere[0].toBool() && !nowhere[1].toString().isEmpty());
        QCOMPARE(read(m_file.path()), before);
        QVERIFY(m_file->isOpened());
        m_file->close();
        QVERIFY(!m_file->exportKRNSources(m_file.path("closed"))[0].toBool());
        QVERIFY(!QFile::exists(m_file.path("closed.krn")));
    }
};

KERNOVA_TEST_MAIN(TestProjectParts)
#include "tst_projectparts.moc"
