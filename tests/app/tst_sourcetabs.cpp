#include "app/SourceTabs.h"

#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "app/TabPolicy.h"
#include "link/IdManager.h"
#include "models/SourceModel.h"
#include "models/SourceProxyModel.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

using Ids = QList<int>;

/// Which sources stand as tabs: the rules by a table, and a project's life with the real service.
class tst_SourceTabs : public QObject {
    Q_OBJECT

private slots:
    void tabsAreRestored_data() {
        columns<Ids, Ids, Ids>({"remembered", "existing", "ids"});
        const Ids five{1, 2, 3, 4, 5};
        addRow("nothing remembered", Ids{}, five, Ids{1, 2, 3});
        addRow("one gone", Ids{9, 4}, five, Ids{4, 1, 2});
        addRow("as remembered", Ids{5, 3, 1}, five, Ids{5, 3, 1});
        addRow("twice the same", Ids{5, 5}, five, Ids{5, 1, 2});
        addRow("too many", Ids{5, 4, 3, 2, 1}, five, Ids{5, 4, 1});
        addRow("few sources", Ids{2}, Ids{1, 2}, Ids{2, 1});
        addRow("no source", Ids{2}, Ids{}, Ids{});
    }

    void tabsAreRestored() {
        FETCH(Ids, remembered, Ids, existing);
        QTEST(tabs::restored(remembered, existing), "ids");
    }

    void aNewTabDropsTheLast() {
        QCOMPARE(tabs::withFirst({1, 2, 3}, 4), Ids({4, 1, 2}));
        QCOMPARE(tabs::withFirst({1, 2, 3}, 2), Ids({1, 2, 3}));
        QVERIFY(tabs::takesNew({1, 2, 3}, true));
        QVERIFY(!tabs::takesNew({1, 2, 3}, false));
        QVERIFY(tabs::takesNew({1, 2}, false));
    }

    void tabsFollowTheProject() {
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
                titles << tab.toMap().value("title"_s).toString();
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
        const QJsonObject project{{"name"_s, folder.filePath("tabs.krn"_s)}};
        QVERIFY(file.openProject(project, true, {}, true, false));
        for (const char* title : {"A", "B", "C", "D"}) {
            Source source;
            source.setTitle(QString::fromLatin1(title));
            undo.addSource(source);
        }
        QTRY_COMPARE(shown(), "D C B"_s);
        QCOMPARE(sourceTabs.currentSourceId(), idOf("D"_s));

        // What the list of all sources is filtered by changes no tab.
        SourceProxyModel list;
        list.setFilterRegExp("A"_s);
        QCOMPARE(list.count(), 1);
        undo.deleteSource(idOf("C"_s));
        QTRY_COMPARE(shown(), "D B A"_s);
        undo.undo();
        QTRY_VERIFY(idOf("C"_s) > 0);
        sourceTabs.open(idOf("C"_s));
        QCOMPARE(shown(), "C D B"_s);
        sourceTabs.open(idOf("B"_s));
        QCOMPARE(shown(), "C D B"_s);

        file.close();
        QCOMPARE(shown(), QString());
        QCOMPARE(sourceTabs.currentSourceId(), -1);
        QVERIFY(file.openProject(project, false, {}, true, false));
        QTRY_COMPARE(shown(), "C D B"_s);
        QCOMPARE(sourceTabs.currentSourceId(), idOf("C"_s));
        file.closeAndReset();
    }
};

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_SourceTabs>(argc, argv);
}
#include "tst_sourcetabs.moc"
