#pragma once

#include "models/ComboBoxProxyModel.h"
#include "models/FetchMoreListModel.h"
#include "models/KernoHierarchyModel.h"
#include "models/KernoOverlapModel.h"
#include "models/KernoProxyModel.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/SourceMetadataProxyModels.h"
#include "models/SourceProxyModel.h"
#include "tests_support/OwnRolesOnly.h"
#include "tests_support/TestMain.h"

/// The views that a screen makes over the models of the current project, each under a tester of its own.
class ProjectViews {
public:
    ProjectViews() {
        manual.setManualSort(true);
        manual.setManualSortOrder({3, 1, 4, 2, 8, 5, 6, 7});
        children.setParentKernoId(1);
        children.setSortType(KernoProxyModel::ByTitleDescending);
        overlap.setKernoId(2);
        sources.setSortMode(3);
        answers.setSourceId(2);
        keys.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericAscending);
        values.setKeyId(2);
        values.setSortAlphabetically(true);
        valueRows.setSourceModel(&values);
        links.setSourceId(2);
        links.setKeyId(2);
        some.setSourceModel(&children);
        for (QAbstractItemModel* view :
             QList<QAbstractItemModel*>{&manual, &children, &hierarchy, &overlap, &kernoChoices, &sources,
                                        &answers, &keys, &values, &valueChoices, &links, &some})
            m_testers.push_back(std::make_unique<QAbstractItemModelTester>(view));
    }

    /// As when somebody opens that view.
    void showHierarchy(int kernoId) {
        hierarchy.setKernoId(-1);
        hierarchy.setKernoId(kernoId);
    }

    /// The rows of all views as text, with their numbers where they are sorted.
    QStringList rows() const {
        return rowsOf(manual, "manual") + rowsOf(children, "child") + rowsOf(hierarchy, "below", false) +
               rowsOf(overlap, "overlap", false) + rowsOf(kernoChoices, "choice") +
               rowsOf(sources, "listed") + rowsOf(answers, "read") + rowsOf(keys, "property") +
               rowsOf(values, "value") + rowsOf(valueChoices, "value choice") +
               rowsOf(links, "of source", false);
    }

private:
    static QStringList rowsOf(const QAbstractItemModel& model, const char* name, bool sorted = true) {
        QStringList all;
        const QHash<int, QByteArray> names = model.roleNames();
        for (int row = 0; row < model.rowCount(); ++row) {
            QVariantMap map;
            for (auto role = names.cbegin(); role != names.cend(); ++role)
                map.insert(QString::fromUtf8(role.value()), model.index(row, 0).data(role.key()));
            all << QString::fromLatin1(name) + (sorted ? " %1 "_s.arg(row) : " "_s) +
                       QString::fromUtf8(QJsonDocument::fromVariant(map).toJson(QJsonDocument::Compact));
        }
        return all;
    }

    KernoProxyModel manual;
    KernoProxyModel children;
    KernoHierarchyModel hierarchy;
    KernoOverlapModel overlap;
    KernoComboBoxModel kernoCombo;
    OwnRolesOnly kernoChoices{&kernoCombo};
    SourceProxyModel sources;
    QuestionAnswerProxyModel answers;
    SourceMetadataKeyProxyModel keys;
    SourceMetadataValueProxyModel values;
    SourceMetadataValueComboBoxProxyModel valueRows;
    OwnRolesOnly valueChoices{&valueRows};
    SourceMetadataProxyModel links;
    FetchMoreListModel some;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;
};

/// The rows of a model as a view sees them that reads nothing but what it was told of.
class Mirror : public QObject {
public:
    /// `unseen`: a role that changes without being told at once.
    explicit Mirror(const QAbstractItemModel& model, int unseen = -1)
        : m_model(model), m_names(model.roleNames()) {
        m_names.remove(unseen);
        read();
        connect(&model, &QAbstractItemModel::modelReset, this, &Mirror::read);
        connect(&model, &QAbstractItemModel::rowsMoved, this, &Mirror::read);
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
    QHash<int, QByteArray> m_names;
    QList<QHash<int, QVariant>> m_rows;
};
