#include "app/SourceTabs.h"

#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "app/TabPolicy.h"
#include "link/IdManager.h"
#include "models/SourceModel.h"
#include "models/SourceProxyModel.h"
#include "tests_support/TestProject.h"

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
        TestProject project;
        KRNFile& file = project.file;
        UndoManager& undo = project.undo;
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
        QCOMPARE(project.open("tabs.krn"_s, true), QString());
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
        sourceTabs.switchToSource(idOf("C"_s));
        QCOMPARE(shown(), "C D B"_s);
        sourceTabs.switchToSource(idOf("B"_s));
        QCOMPARE(shown(), "C D B"_s);

        file.close();
        QCOMPARE(shown(), QString());
        QCOMPARE(sourceTabs.currentSourceId(), -1);
        QCOMPARE(project.open("tabs.krn"_s, false), QString());
        QTRY_COMPARE(shown(), "C D B"_s);
        QCOMPARE(sourceTabs.currentSourceId(), idOf("C"_s));

        // Of many files the last stand as tabs, however early their ids were reserved.
        QList<QUrl> files;
        for (int i = 0; i < 40; ++i) {
            const QString path = project.path("%1.txt"_s.arg(i));
            writeBytes(path, "words");
            files << QUrl::fromLocalFile(path);
        }
        QCOMPARE(helper.batchImportQuestions(files, {}, {}), 40);
        QTRY_COMPARE(shown(), "39 38 37"_s);
        QCOMPARE(sourceTabs.currentSourceId(), idOf("39"_s));
        undo.undo();
        QTRY_COMPARE(file.sourceModel()->rowCount(), 4);
        QTRY_COMPARE(shown().size(), 5);
    }
};

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_SourceTabs>(argc, argv);
}
#include "tst_sourcetabs.moc"
