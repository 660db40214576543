#include "FakeProject.h"
#include "OwnRolesOnly.h"
#include "models/ComboBoxProxyModel.h"
#include "models/FetchMoreListModel.h"
#include "models/KernoHierarchyModel.h"
#include "models/KernoOverlapModel.h"
#include "models/KernoProxyModel.h"
#include "models/KernoShortcutKeyProxyModel.h"
#include "models/ModelDelays.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/SourceMetadataProxyModels.h"
#include "models/SourceProxyModel.h"
#include "tests_support/TestMain.h"

namespace {

constexpr int ids = 12;
constexpr int steps = 1500;

/// Every view over the models that a screen can make, each under a tester of its own.
class Views {
public:
    Views() {
        watch(&topLevel);
        watch(&children);
        children.setParentKernoId(1);
        children.setSortType(KernoProxyModel::ByTitleDescending);
        watch(&manual);
        manual.setManualSort(true);
        manual.setManualSortOrder({3, 1, 4, 2, 9, 5});
        hierarchy.setKernoId(1);
        watch(&hierarchy);
        overlap.setKernoId(2);
        watch(&overlap);
        watch(&combo);
        watch(&shownKernos);
        watch(&sources);
        sources.setSortMode(3);
        answers.setSourceId(2);
        watch(&answers);
        watch(&keys);
        keys.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericAscending);
        values.setKeyId(2);
        values.setSortAlphabetically(true);
        watch(&values);
        watch(&valueChoices);
        links.setSourceId(2);
        links.setKeyId(2);
        watch(&links);
        watch(&shortcuts);
        some.setSourceModel(&topLevel);
        watch(&some);
    }

    KernoProxyModel topLevel;
    KernoProxyModel children;
    KernoProxyModel manual;
    KernoHierarchyModel hierarchy;
    KernoOverlapModel overlap;
    KernoComboBoxModel kernoChoices;
    OwnRolesOnly combo{&kernoChoices};
    KernoComboBoxModel shownKernosSource;
    OwnRolesOnly shownKernos{&shownKernosSource};
    SourceProxyModel sources;
    QuestionAnswerProxyModel answers;
    SourceMetadataKeyProxyModel keys;
    SourceMetadataValueProxyModel values;
    SourceMetadataValueComboBoxProxyModel valueRows;
    OwnRolesOnly valueChoices{&valueRows};
    SourceMetadataProxyModel links;
    KernoShortcutKeyProxyModel shortcuts;
    FetchMoreListModel some;

private:
    void watch(QAbstractItemModel* model) {
        testers.push_back(std::make_unique<QAbstractItemModelTester>(model));
    }
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
};

/// The rows of a model as a view sees them that reads nothing but what it was told of.
class Mirror : public QObject {
public:
    explicit Mirror(const QAbstractItemModel& model) : m_model(model), m_names(model.roleNames()) {
        read();
        connect(&model, &QAbstractItemModel::modelReset, this, &Mirror::read);
        connect(&model, &QAbstractItemModel::rowsMoved, this, &Mirror::read);
        connect(&model, &QAbstractItemModel::layoutChanged, this, &Mirror::read);
        connect(&model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int a, int b) {
            for (int row = a; row <= b; ++row)
                m_rows.insert(row, values(row));
        });
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int a, int b) {
            m_rows.erase(m_rows.begin() + a, m_rows.begin() + b + 1);
        });
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex& a, const QModelIndex& b, const QVector<int>& roles) {
                    for (int row = a.row(); row <= b.row(); ++row) {
                        for (int role : roles.isEmpty() ? m_names.keys().toVector() : roles)
                            m_rows[row].insert(role, m_model.index(row, 0).data(role));
                    }
                });
    }
    /// The first difference between what it was told and what stands there, or nothing.
    QString difference() const {
        if (m_rows.size() != m_model.rowCount())
            return "%1 rows, not %2"_s.arg(m_rows.size()).arg(m_model.rowCount());
        for (int row = 0; row < m_rows.size(); ++row) {
            for (int role : m_names.keys()) {
                if (m_rows.at(row).value(role) != m_model.index(row, 0).data(role))
                    return "row %1, role "_s.arg(row) + QString::fromUtf8(m_names.value(role));
            }
        }
        return {};
    }

private:
    QHash<int, QVariant> values(int row) const {
        QHash<int, QVariant> values;
        for (int role : m_names.keys())
            values.insert(role, m_model.index(row, 0).data(role));
        return values;
    }
    void read() {
        m_rows.clear();
        for (int row = 0; row < m_model.rowCount(); ++row)
            m_rows.append(values(row));
    }

    const QAbstractItemModel& m_model;
    const QHash<int, QByteArray> m_names;
    QList<QHash<int, QVariant>> m_rows;
};

/// Each row as text, all roles in it.
QStringList rows(const QAbstractItemModel& model) {
    QStringList all;
    const QHash<int, QByteArray> names = model.roleNames();
    for (int row = 0; row < model.rowCount(); ++row) {
        QVariantMap map;
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            map.insert(QString::fromUtf8(name.value()), model.index(row, 0).data(name.key()));
        all << QString::fromUtf8(QJsonDocument::fromVariant(map).toJson(QJsonDocument::Compact));
    }
    return all;
}

QJsonObject wireForm(const QVariantMap& byRole, const std::vector<FieldInfo>& fields) {
    QJsonObject json;
    for (const FieldInfo& field : fields) {
        const QVariant value = byRole.value(field.roleName);
        if (field.local)
            continue;
        if (value.userType() == QMetaType::QColor)
            json.insert(field.wireName, value.value<QColor>().name());
        else if (value.userType() == QMetaType::QDateTime)
            json.insert(field.wireName, value.toDateTime().toString(Qt::ISODate));
        else
            json.insert(field.wireName, QJsonValue::fromVariant(value));
    }
    return json;
}

template <typename T> QVariantMap storedFields(const T& record) {
    return record.toVariantMap();
}

template <> QVariantMap storedFields(const QuestionAnswer& answer) {
    QVariantMap map = answer.toVariantMap();
    map.insert("answer"_s, answer.storedAnswer());
    return map;
}

/// What a service would hold: the records by key, and the order of their first save.
template <typename Model> class Stored {
public:
    using T = typename Model::RecordType;
    using Key = decltype(T().id());

    /// `place` gives what a list is sorted by; without it, records stand in the order of their first save.
    Stored(
        Model* live, std::function<T(QRandomGenerator&)> randomRecord,
        std::function<int(const T&)> place = [](const T&) { return 0; })
        : m_live(live), m_random(std::move(randomRecord)), m_place(std::move(place)) {}

    void step(QRandomGenerator& random) {
        switch (random.bounded(6)) {
        case 0: {
            const T record = m_random(random);
            const bool known = m_records.contains(record.id());
            m_records.remove(record.id());
            m_order.removeAll(record.id());
            QCOMPARE(m_live->removeByKey(record.id()), known);
            break;
        }
        case 1: {
            QJsonArray batch;
            for (int i = 0; i < 4; ++i) {
                const T record = m_random(random);
                store(record);
                batch.append(wireForm(storedFields(record), T::fieldInfos()));
            }
            m_live->setFromJson(batch);
            break;
        }
        default: {
            const T record = m_random(random);
            store(record);
            m_live->addOrUpdate(record);
        }
        }
    }

    QList<T> list() const {
        QList<T> all;
        for (const Key& key : m_order)
            all << m_records.value(key);
        std::stable_sort(all.begin(), all.end(),
                         [this](const T& a, const T& b) { return m_place(a) < m_place(b); });
        return all;
    }
    void fill(QAbstractItemModel* model) const { static_cast<Model*>(model)->setData(list()); }
    void fill() const { fill(m_live); }
    /// Each key leads to its row.
    void checkKeys() const {
        QCOMPARE(m_live->rowCount(), m_records.size());
        for (const Key& key : m_order)
            QCOMPARE(m_live->at(m_live->indexOfKey(key)).id(), key);
    }

private:
    void store(const T& record) {
        if (!m_records.contains(record.id()))
            m_order << record.id();
        m_records.insert(record.id(), record);
    }

    Model* m_live;
    std::function<T(QRandomGenerator&)> m_random;
    std::function<int(const T&)> m_place;
    QMap<Key, T> m_records;
    QList<Key> m_order;
};

int anId(QRandomGenerator& random) {
    return 1 + random.bounded(ids);
}

QString aText(QRandomGenerator& random, int id) {
    return "%1-%2"_s.arg(random.bounded(100)).arg(id);
}

const QString author = "Ann"_s;
const QDateTime time = QDateTime::fromString("2024-05-01T10:00:00Z"_s, Qt::ISODate);

/// The stored records of all models.
struct Service {
    explicit Service(FakeProject& p)
        : kernos(p.kernos.get(),
                 [](QRandomGenerator& r) {
                     const int id = anId(r);
                     // Parents have lower ids, so that there is no circle.
                     const int parent = r.bounded(2) && id > 1 ? 1 + r.bounded(id - 1) : -1;
                     return Kerno(id, parent, r.bounded(2) ? Qt::red : Qt::blue, aText(r, id), {}, time,
                                  author, 1, 1);
                 }),
          sources(p.sources.get(),
                  [](QRandomGenerator& r) {
                      const int id = anId(r);
                      return Source(id, aText(r, id), QString(), author, time);
                  }),
          questions(
              p.questions.get(),
              [](QRandomGenerator& r) {
                  const int id = anId(r);
                  return Question(id, aText(r, id), r.bounded(1000) * 16 + id);
              },
              [](const Question& question) { return question.questionOrder(); }),
          answers(p.answers.get(),
                  [](QRandomGenerator& r) {
                      const int id = anId(r);
                      return QuestionAnswer(id, 1 + id % 4, 1 + id % 3, author, aText(r, id), time);
                  }),
          keys(p.keys.get(),
               [](QRandomGenerator& r) {
                   const int id = anId(r);
                   return SourceMetadataKey(id, r.bounded(2), r.bounded(2), aText(r, id));
               }),
          values(p.values.get(),
                 [](QRandomGenerator& r) {
                     const int id = anId(r);
                     return SourceMetadataValue(id, 1 + r.bounded(3), aText(r, id));
                 }),
          links(p.links.get(),
                [](QRandomGenerator& r) {
                    return SourceMetadata(anId(r), 1 + r.bounded(3), 1 + r.bounded(3), anId(r), author, time);
                }),
          groups(
              p.groups.get(),
              [](QRandomGenerator& r) {
                  const int id = anId(r);
                  return Group(id, aText(r, id), true);
              },
              [](const Group& group) { return group.groupId(); }),
          kernoGroups(
              p.kernoGroups.get(),
              [](QRandomGenerator& r) { return KernoGroup(anId(r), 1 + r.bounded(4), 1 + r.bounded(4)); }),
          shortcuts(p.shortcuts.get(),
                    [](QRandomGenerator& r) {
                        return KernoShortcutKey(QString(QLatin1Char(static_cast<char>('A' + r.bounded(6)))),
                                                anId(r), QString());
                    }),
          chat(p.chat.get(),
               [](QRandomGenerator& r) { return ChatMessage(anId(r), aText(r, 1), author, time); }) {}

    template <typename Visit> void each(Visit visit) {
        visit(kernos);
        visit(sources);
        visit(questions);
        visit(answers);
        visit(keys);
        visit(values);
        visit(links);
        visit(groups);
        visit(kernoGroups);
        visit(shortcuts);
        visit(chat);
    }

    Stored<KernoModel> kernos;
    Stored<SourceModel> sources;
    Stored<QuestionModel> questions;
    Stored<QuestionAnswerMainModel> answers;
    Stored<SourceMetadataKeyModel> keys;
    Stored<SourceMetadataValueModel> values;
    Stored<SourceMetadataModel> links;
    Stored<GroupModel> groups;
    Stored<KernoGroupModel> kernoGroups;
    Stored<KernoShortcutKeyModel> shortcuts;
    Stored<ChatModel> chat;
};

}  // namespace

/// All models and views through one random storm of notifications, batches and reopenings: the views'
/// contract holds at every step, and the end state is that of a fresh fetch.
class tst_ModelStorm : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        modelDelays().comboBox = 1;
        modelDelays().hierarchy = 1;
        modelDelays().codingStats = 1;
    }

    void theEndStateIsThatOfAFreshFetch_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 4; ++seed)
            addRow(QByteArray::number(seed).constData(), seed);
    }

    void theEndStateIsThatOfAFreshFetch() {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        const auto overlaps = [](int a, int b) { return (a * b) % 7; };

        auto live = std::make_unique<FakeProject>();
        live->overlap = overlaps;
        std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
        for (QAbstractItemModel* model : live->allModels())
            testers.push_back(std::make_unique<QAbstractItemModelTester>(model));
        const Mirror kernos(*live->kernos);
        const Mirror questions(*live->questions);
        const Mirror keys(*live->keys);
        const Mirror values(*live->values);
        const Mirror shortcuts(*live->shortcuts);
        Service service(*live);
        Views views;
        views.valueRows.setSourceModel(&views.values);

        for (int step = 0; step < steps; ++step) {
            const quint32 which = random.bounded(11u);
            quint32 i = 0;
            service.each([&](auto& stored) {
                if (i++ == which)
                    stored.step(random);
            });
            if (step % 97 == 0) {
                views.children.setParentKernoId(anId(random));
                views.hierarchy.setKernoId(anId(random));
                views.answers.setSourceId(1 + random.bounded(3));
                views.manual.setManualSortOrder({anId(random), anId(random), anId(random)});
            }
            if (step % 211 == 0) {
                emit live->fileClosed();
                service.each([](auto& stored) { stored.fill(); });
                emit live->kernoUpdated(1);
            }
            if (step % 31 == 0) {
                for (int kernoId = 1; kernoId <= ids; ++kernoId)
                    emit live->kernoUpdated(kernoId);
                QCoreApplication::processEvents();
            }
            if (step % 8 == 0) {
                for (const Mirror* mirror : {&kernos, &questions, &keys, &values, &shortcuts})
                    QCOMPARE(mirror->difference(), QString());
            }
            if (QTest::currentTestFailed())
                return;
        }
        service.each([](auto& stored) { stored.checkKeys(); });

        // A second project that fetched everything at once, with the same views.
        FakeProject fresh;
        fresh.overlap = overlaps;
        const QList<QAbstractItemModel*> models = fresh.allModels();
        auto model = models.begin();
        service.each([&](auto& stored) { stored.fill(*model++); });
        Views expected;
        expected.children.setParentKernoId(views.children.parentKernoId());
        expected.hierarchy.setKernoId(views.hierarchy.kernoId());
        expected.answers.setSourceId(views.answers.sourceId());
        expected.manual.setManualSortOrder(views.manual.manualSortOrder());
        expected.valueRows.setSourceModel(&expected.values);

        const QList<QAbstractItemModel*> found = live->allModels();
        for (int i = 0; i < models.size(); ++i)
            QCOMPARE(rows(*found.at(i)), rows(*models.at(i)));

        QCOMPARE(rows(views.topLevel), rows(expected.topLevel));
        QCOMPARE(rows(views.children), rows(expected.children));
        QCOMPARE(idsOf(views.manual), idsOf(expected.manual));
        QVERIFY(waitFor([&] { return rows(views.hierarchy) == rows(expected.hierarchy); }));
        QVERIFY(waitFor([&] {
            return idsOf(views.overlap, KernoOverlapModel::OverlapsRole) ==
                   idsOf(expected.overlap, KernoOverlapModel::OverlapsRole);
        }));
        QVERIFY(waitFor([&] { return rows(views.combo) == rows(expected.combo); }));
        QCOMPARE(rows(views.sources), rows(expected.sources));
        QVERIFY(waitFor([&] { return rows(views.answers) == rows(expected.answers); }));
        QCOMPARE(rows(views.keys), rows(expected.keys));
        QCOMPARE(rows(views.values), rows(expected.values));
        QCOMPARE(rows(views.valueRows), rows(expected.valueRows));
        QCOMPARE(rows(views.links), rows(expected.links));
        QCOMPARE(rows(views.shortcuts), rows(expected.shortcuts));
    }
};

KERNOVA_GUI_TEST_MAIN(tst_ModelStorm)
#include "tst_modelstorm.moc"
