#pragma once

#include <QHash>
#include <QJsonObject>
#include <QVariantMap>
#include <QVector>

/// Gives every record of a set of answers a number, the same for two that agree on every field, and keeps one
/// copy of each. `T` is the record's class.
template <typename T> class RecordNumbers {
public:
    int numberOf(const QJsonObject& json) {
        // Answers come in one order, so the record after the last one is the likely one.
        if (m_next >= m_objects.size() || m_objects.at(m_next) != json)
            m_next = find(json);
        return m_next++;
    }

    /// For a record that stands but once in all answers.
    int add(const QJsonObject& json) {
        m_objects.append(json);
        return m_objects.size() - 1;
    }

    int size() const { return m_objects.size(); }

    /// The record of a number as a map for screens.
    QVariantMap map(int number) const { return T(m_objects.at(number), tag).toVariantMap(); }

private:
    static constexpr const char* tag = "kernoWithHighlightsAndCriteria";

    int find(const QJsonObject& json) {
        const int id = json.value(idName()).toInt(-1);
        for (auto known = m_byId.constFind(id); known != m_byId.constEnd() && known.key() == id; ++known) {
            if (m_objects.at(*known) == json || agree(m_objects.at(*known), json))
                return *known;
        }
        m_objects.append(json);
        m_byId.insert(id, m_objects.size() - 1);
        return m_objects.size() - 1;
    }

    // The same record can be spelled in two ways, a number as a text for one.
    static bool agree(const QJsonObject& a, const QJsonObject& b) {
        return T(a, tag).toVariantMap() == T(b, tag).toVariantMap();
    }

    static const QString& idName() {
        static const QString name = T::queryFields().first();
        return name;
    }

    QVector<QJsonObject> m_objects;
    QMultiHash<int, int> m_byId;
    int m_next = 0;
};
