#include "ProjectSupport.h"
#include "tests_support/TestMain.h"

static const QString lock = "___db_open_lock"_s;

class TestLifecycle : public QObject {
    Q_OBJECT

private slots:
    void createsClosesAndOpensAgain() {
        ProjectUnderTest file;
        QVERIFY(!file->isOpened());
        QVERIFY(file.create());
        QVERIFY(file->isOpened());
        QVERIFY(file->isOwner());
        QVERIFY(file->canMutate());
        QCOMPARE(file->getPreference("___db_version").toInt(), 5);
        QCOMPARE(file->getPreference("___cloud_version").toInt(), 1);
        QCOMPARE(file->getPreference("___single_question").toInt(), 1);
        QCOMPARE(file->getPreference("___db_encrypted", true).toBool(), false);
        QCOMPARE(file->getPreference(lock).toBool(), true);
        QCOMPARE(file->questionIds(), QVariantList{1.0});
        QVERIFY(waitFor([&] { return file->connectedUserCount() == 1; }));
        QVERIFY(file.addContents("some words"));

        QSignalSpy closed(file.get(), &KRNFile::fileClosed);
        QSignalSpy openedChanged(file.get(), &KRNFile::isOpenedChanged);
        file->close();
        QCOMPARE(closed.count(), 1);
        QCOMPARE(openedChanged.count(), 1);
        QVERIFY(!file->isOpened());
        QVERIFY(!file->canMutate());
        QCOMPARE(file->kernoModel()->rowCount(), 0);
        QCOMPARE(file->answerModel()->rowCount(), 0);
        QCOMPARE(IdManager::instance()->maxKernoId(), 0);

        QVERIFY(file.open());
        QCOMPARE(file->kerno(1).title(), "Trust"_s);
        QVERIFY(waitFor([&] { return file->answerModel()->rowCount() == 1 && file->sourceExists(1); }));
        QCOMPARE(IdManager::instance()->maxKernoId(), 1);
    }

    // They arrive while the project is in use, deciphered on the way.
    void textsAreAwaited() {
        const QString password = "s3cret"_s;
        ProjectUnderTest file;
        QVERIFY(file.create(password));
        for (int id = 1; id <= 12; ++id)
            QVERIFY(file.addContents("words of %1"_s.arg(id)));
        file->close();
        QVERIFY(file.open("study.krn"_s, password));
        QVERIFY(!file->allTextsHere());
        QVERIFY(file->waitForTexts());
        QCOMPARE(file->textsHere(), 12);
        QCOMPARE(file->answerModel()->rowCount(), 12);
        QCOMPARE(file->partialAnswer(12, 1, 9, 2).plainAnswer(), "12"_s);
        file->close();
        QVERIFY(file.open("study.krn"_s, password));
        QList<bool> outcomes;
        const auto note = [&outcomes](bool allHere) { outcomes << allHere; };
        file->whenTextsAreHere(file.get(), note);
        QVERIFY(file->waitsForTexts());
        file->cancelTextWait();
        file->whenTextsAreHere(file.get(), note);
        file->close();
        QCOMPARE(outcomes, (QList<bool>{false, false}));
        QVERIFY(!file->waitsForTexts() && !file->waitForTexts());
    }

    void announcesInOrder() {
        ProjectUnderTest file;
        QVERIFY(file.connectLink());
        SignalLog log;
        log.listen(file.get(), &KRNFile::singleQuestionModeChanged, "mode");
        log.listen(file.get(), &KRNFile::isOpenedChanged, "opened");
        log.listen(file.get(), &KRNFile::isOwnerChanged, "owner");
        log.listen(file.get(), &KRNFile::sourcesChanged, "sources");
        log.listen(file.get(), &KRNFile::kernosUpdated, "kernos");
        log.listen(file.get(), &KRNFile::metadataUpdated, "metadata");
        log.listen(file.get(), &KRNFile::highlightsUpdated, "highlights");
        log.listen(file.get(), &KRNFile::canMutateChanged, "mutate");
        log.listen(file.get(), &KRNFile::fileOpened, "fileOpened");
        log.listen(file.get(), &KRNFile::fileClosed, "fileClosed");
        QVERIFY(file->openProject(localProject(file.path()), true, {}, true));
        const QStringList opening{"mode",     "opened",     "owner",  "sources",   "kernos",
                                  "metadata", "highlights", "mutate", "fileOpened"};
        QCOMPARE(log.names, opening);
        log.names.clear();
        QVERIFY(file->openProject(localProject(file.path("other.krn")), true, {}, true));
        QCOMPARE(log.names,
                 QStringList({"fileClosed", "opened", "owner", "mutate"}) + opening.mid(1, 6) + opening);
    }

    void checksPasswords_data() {
        columns<QString, QString, QString>({"made", "given", "error"});
        addRow("right", "sesame", "sesame", "");
        addRow("beyond ASCII", "\xC3\xA4\xE2\x82\xAC"_s, "\xC3\xA4\xE2\x82\xAC"_s, "");
        addRow("wrong", "sesame", "Sesame", "Invalid password supplied!");
        addRow("missing", "sesame", "", "Project is encrypted but no password provided!");
        addRow("not needed", "", "sesame", "Invalid password supplied!");
    }

    void checksPasswords() {
        FETCH(QString, made, QString, given, QString, error);
        ProjectUnderTest file;
        QVERIFY(file.create(made));
        QCOMPARE(file->getPreference("___db_encrypted").toBool(), !made.isEmpty());
        QVERIFY(file.addContents("a secret passage"));
        file->close();
        QCOMPARE(bytesOf(file.path()).contains("secret"), made.isEmpty());
        QCOMPARE(file.open("study.krn", given), error.isEmpty());
        QCOMPARE(file->isOpened(), error.isEmpty());
        QCOMPARE(file->getLastOpenError(), error);
        if (error.isEmpty()) {
            QVERIFY(file->answer(1, 1).value("answer").toString().contains("a secret passage"));
            QVERIFY(waitFor([&] { return file->answerModel()->rowCount() == 1; }));
            QCOMPARE(file->answerModel()->at(0).plainAnswer(), "a secret passage"_s);
        }
    }

    void asksWhenTheProjectIsMarked_data() {
        columns<bool, bool, bool, bool>({"ignore", "answer", "opens", "markedAfterwards"});
        addRow("yes", false, true, true, false);
        addRow("no", false, false, false, true);
        addRow("ignored", true, false, true, true);
    }

    void asksWhenTheProjectIsMarked() {
        FETCH(bool, ignore, bool, answer, bool, opens, bool, markedAfterwards);
        ProjectUnderTest file;
        QVERIFY(file.connectLink());
        QVERIFY(file->openProject(localProject(file.path()), true, {}, true, true));
        QVERIFY(!file->holdsLock());
        QVERIFY(file->savePreference(lock, true));
        file->close();

        int questions = 0;
        QObject::connect(file.get(), &KRNFile::awaitingOpenConfirmationChanged, this, [&] {
            if (!file->awaitingOpenConfirmation())
                return;
            ++questions;
            QMetaObject::invokeMethod(
                file.get(), [&] { file->confirmOpenAlreadyOpenedFile(answer); }, Qt::QueuedConnection);
        });
        QCOMPARE(file.open("study.krn", {}, ignore), opens);
        QCOMPARE(questions, ignore ? 0 : 1);
        QVERIFY(!file->awaitingOpenConfirmation());
        QCOMPARE(file->getLastOpenError(), QString());
        QCOMPARE(file->isOpened(), opens);
        QCOMPARE(file->holdsLock(), opens && !ignore);
        file->close();
        QVERIFY(file.open("study.krn", {}, true));
        QCOMPARE(file->getPreference(lock).toBool(), markedAfterwards);
    }

    // Its project is still marked when the link was lost and the project is opened again.
    void knowsItsOwnMark() {
        ProjectUnderTest file;
        file->confirmOpenAlreadyOpenedFile(true);  // without a question it means nothing
        QVERIFY(file.create());
        QVERIFY(file.connectLink());
        QVERIFY(!file->isOpened());
        QObject::connect(
            file.get(), &KRNFile::awaitingOpenConfirmationChanged, file.get(),
            [&] { file->confirmOpenAlreadyOpenedFile(false); }, Qt::QueuedConnection);
        QVERIFY(file.open());
        QVERIFY(file->holdsLock());
        file->close();
        QVERIFY(file.open("study.krn", {}, true));
        QCOMPARE(file->getPreference(lock).toBool(), false);
    }

    void saysWhyOpeningFailed() {
        ProjectUnderTest file;
        QVERIFY(!file.open());
        QCOMPARE(file->getLastOpenError(), "Unable to connect to the server, please try again later!"_s);
        QVERIFY(file.connectLink());
        QVERIFY(!file.open());
        QVERIFY(file->getLastOpenError().contains(file.path()));
        QVERIFY(!QFile::exists(file.path()));
        QVERIFY(file->dataHelper()->openProject(localProject(file.path())));
        QVERIFY(file->dataHelper()->closeProject());
        QVERIFY(!file.open());
        QCOMPARE(file->getLastOpenError(), "Failed to read file type (free flow/multiple question)."_s);
        QVERIFY(!file->isOpened());

        QVERIFY(!file->openProject(localProject(QFileInfo(file.path()).path()), true, {}, true));
        QCOMPARE(file->getLastOpenError(), "Failed to overwrite existing file!"_s);
    }

    void backupsHoldWhatWasSent() {
        ProjectUnderTest file;
        QVERIFY(file.create());
        QVERIFY(file.addContents("words"));
        for (int id = 1; id <= 200; ++id)
            file->saveHighlight(ProjectUnderTest::highlight(id, 0, 3));
        QVERIFY(file->makeBackup(QUrl::fromLocalFile(file.path())));
        file->saveHighlight(ProjectUnderTest::highlight(201, 0, 3));
        file->close();
        QVERIFY(file.open("study.krn.bak", {}, true));
        QCOMPARE(file->totalHighlightsCount(), 200);
        QVERIFY(!file->makeBackup(QUrl::fromLocalFile(file.path("missing.krn"))));
    }

    void savesOverAnotherProject() {
        ProjectUnderTest file;
        QCOMPARE(file->saveAsRemote("x"), QVariantList({false, "Original file is not open."}));
        QVERIFY(file.create());
        QVERIFY(!file->saveAs(file.path("study")));
        QVERIFY(!file->saveAsRemote("x").first().toBool());
        QVERIFY(file->isOpened() && file->saveAs(file.path("other")));
        QVERIFY(file.open());
        QVERIFY(file.addContents("words"));
        QVERIFY(file->saveAs(file.path("other")));
        QCOMPARE(file->kerno(1).title(), "Trust"_s);

        // A copy that fails leaves the other project alone, and the open one open.
        QVERIFY(file.open("study.krn", {}, true));
        QVERIFY(QFile::remove(file.path()));
        const QByteArray before = bytesOf(file.path("other.krn"));
        QVERIFY(!file->saveAs(file.path("other")));
        QVERIFY(file->isOpened());
        QCOMPARE(file->currentProject().value("name").toString(), file.path());
        QVERIFY(file->getLastOpenError().contains(file.path("other.krn")));
        QCOMPARE(bytesOf(file.path("other.krn")), before);
        QCOMPARE(QFileInfo(file.path()).dir().entryList(QDir::Files), QStringList{"other.krn"});
    }

    void copiesOfProtectedProjectsDoNotOpen() {
        ProjectUnderTest file;
        QVERIFY(file.create("sesame"));
        QVERIFY(!file->saveAs(file.path("copy.krn")));
        QCOMPARE(file->getLastOpenError(), "Project is encrypted but no password provided!"_s);
        QVERIFY(!file->isOpened());
        QVERIFY(file.open("copy.krn", "sesame", true));
    }
};

KERNOVA_TEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
