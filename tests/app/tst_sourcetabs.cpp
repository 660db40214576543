#include "app/SourceTabs.h"

#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "app/TabPolicy.h"
#include "link/IdManager.h"
#include "models/SourceModel.h"
#include "models/SourceProxyModel.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"
#include "undo/UndoManager.h"

#include <QTemporaryDir>
#include <QTest>

using Ids = QList<int>;

/// Which sources stand as tabs: the rules by a table, and a project's life with the real service.
class tst_SourceTabs : public QObject {
    Q_OBJECT

private slots:
    void tabsAreRestored_data();
    void tabsAreRestored();
    void aNewTabDropsTheLast();
    void tabsFollowTheProject();
};

void tst_SourceTabs::tabsAreRestored_data() {
    QTest::addColumn<Ids>("remembered");
    QTest::addColumn<Ids>("existing");
    QTest::addColumn<Ids>("ids");
    const Ids five{1, 2, 3, 4, 5};
    QTest::newRow("nothing remembered") << Ids{} << five << Ids{1, 2, 3};
    QTest::newRow("one gone") << Ids{9, 4} << five << Ids{4, 1, 2};
    QTest::newRow("as remembered") << Ids{5, 3, 1} << five << Ids{5, 3, 1};
    QTest::newRow("twice the same") << Ids{5, 5} << five << Ids{5, 1, 2};
    QTest::newRow("too many") << Ids{5, 4, 3, 2, 1} << five << Ids{5, 4, 1};
    QTest::newRow("few sources") << Ids{2} << Ids{1, 2} << Ids{2, 1};
    QTest::newRow("no source") << Ids{2} << Ids{} << Ids{};
}

void tst_SourceTabs::tabsAreRestored() {
    QFETCH(Ids, remembered);
    QFETCH(Ids, existing);
    QTEST(tabs::restored(remembered, existing), "ids");
}

void tst_SourceTabs::aNewTabDropsTheLast() {
    QCOMPARE(tabs::withFirst({1, 2, 3}, 4), Ids({4, 1, 2}));
    QCOMPARE(tabs::withFirst({1, 2, 3}, 2), Ids({1, 2, 3}));
    QVERIFY(tabs::takesNew({1, 2, 3}, true));
    QVERIFY(!tabs::takesNew({1, 2, 3}, false));
    QVERIFY(tabs::takesNew({1, 2}, false));
}

void tst_SourceTabs::tabsFollowTheProject() {
    const QTemporaryDir folder;
    ProjectTimings timings;
    timings.settle = 1;
    timings.closeSettle = 1;
    KRNFile file(nullptr, timings);
    file.initModels();
    UndoManager undo(&file);
    AppHelper helper(&undo, &file);
    SourceTabs sourceTabs;
    connect(&sourceTabs, &SourceTabs::sourceRequested, &sourceTabs, &SourceTabs::setCurrentSourceId);
    const auto shown = [&] {
        QStringList titles;
        const QVariantList tabs = sourceTabs.tabs();
        for (const QVariant& tab : tabs)
            titles << tab.toMap().value(QStringLiteral("title")).toString();
        return titles.join(QLatin1Char(' '));
    };
    const auto idOf = [&](const QString& title) {
        for (const QVariant& id : file.sourceIds()) {
            if (file.sourceTitle(id.toInt()) == title)
                return id.toInt();
        }
        return -1;
    };
    QVERIFY(helper.connectToServer(false));
    const QJsonObject project{{QStringLiteral("name"), folder.filePath(QStringLiteral("tabs.krn"))}};
    QVERIFY(file.openProject(project, true, {}, true, false));
    for (const char* title : {"A", "B", "C", "D"}) {
        Source source;
        source.setTitle(QString::fromLatin1(title));
        undo.addSource(source);
    }
    QTRY_COMPARE(shown(), QStringLiteral("D C B"));
    QCOMPARE(sourceTabs.currentSourceId(), idOf(QStringLiteral("D")));

    // What the list of all sources is filtered by changes no tab.
    SourceProxyModel list;
    list.setFilterRegExp(QStringLiteral("A"));
    QCOMPARE(list.count(), 1);
    undo.deleteSource(idOf(QStringLiteral("C")));
    QTRY_COMPARE(shown(), QStringLiteral("D B A"));
    undo.undo();
    QTRY_VERIFY(idOf(QStringLiteral("C")) > 0);
    sourceTabs.open(idOf(QStringLiteral("C")));
    QCOMPARE(shown(), QStringLiteral("C D B"));
    sourceTabs.open(idOf(QStringLiteral("B")));
    QCOMPARE(shown(), QStringLiteral("C D B"));

    file.close();
    QCOMPARE(shown(), QString());
    QCOMPARE(sourceTabs.currentSourceId(), -1);
    QVERIFY(file.openProject(project, false, {}, true, false));
    QTRY_COMPARE(shown(), QStringLiteral("C D B"));
    QCOMPARE(sourceTabs.currentSourceId(), idOf(QStringLiteral("C")));
    file.closeAndReset();
}

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_SourceTabs>(argc, argv);
}
#include "tst_sourcetabs.moc"
