#pragma once

#include "records/FieldSchema.h"
#include "records/IModel.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedDataPointer>

/// Everything of a record that follows from its field table. `Derived` gives
///  - `static const std::vector<FieldRow<State>>& rows()`, the table,
///  - `static wire::Record record()`, which names its operations,
///  - `QVariant computedValue(int number) const`, if the table has `Computed` rows.
/// `Pointer` decides how copies share their state: QSharedDataPointer copies on write,
/// QExplicitlySharedDataPointer writes through all copies until `detach()`.
template <typename Derived, typename K, typename F, typename S, template <typename> class Pointer>
class Record : public IModel<K, F> {
public:
    using State = S;

    static const std::vector<FieldInfo>& fieldInfos() { return lists().infos; }
    static const QStringList& queryFields() { return lists().queryFields; }
    static const QHash<int, QByteArray>& roleNames() { return lists().roleNames; }
    static const QString& wireName(F field) { return row(static_cast<int>(field))->wireName; }

    bool operator==(const Record& other) const { return this->id() == other.id(); }
    bool operator!=(const Record& other) const { return !(*this == other); }

    QStringList mutationArguments() const override {
        QStringList arguments;
        for (int number : lists().sent)
            arguments << fields::argument(row(number)->wireName, fieldValue(number, false));
        return arguments;
    }

    QVariant fieldValue(int role, bool forService) const override {
        const FieldRow<S>* found = row(role);
        if (!found)
            return {};
        return std::visit(
            [&](auto member) -> QVariant {
                using M = decltype(member);
                if constexpr (std::is_same_v<M, Computed>) {
                    return static_cast<const Derived*>(this)->computedValue(role);
                } else if constexpr (std::is_same_v<M, QDateTime S::*>) {
                    if (forService)
                        return QDateTime::currentSecsSinceEpoch();
                    return state().*member;
                } else {
                    return state().*member;
                }
            },
            found->member);
    }

    bool equals(const IModel<K, F>& other) const override {
        for (int number : lists().comparable) {
            if (fieldValue(number, false) != other.fieldValue(number, false))
                return false;
        }
        return true;
    }

    QVariantMap toVariantMap() const override {
        QVariantMap map;
        for (const FieldRow<S>& field : Derived::rows())
            map.insert(field.roleName, fieldValue(field.number, false));
        return map;
    }

    /// The value of a `Computed` row; records that have one hide this.
    QVariant computedValue(int) const { return {}; }

protected:
    Record() : m_state(new S) {}

    /// For a record built field by field.
    explicit Record(S* state) : IModel<K, F>(true), m_state(state) {}

    /// Reads all fields that aren't local. A field that can't be read keeps its default.
    Record(const QJsonObject& json, const char* queryId) : IModel<K, F>(true), m_state(new S) {
        bool ok = true;
        S& target = *m_state;
        for (const FieldRow<S>& field : Derived::rows()) {
            if (field.flags & LocalOnly)
                continue;
            std::visit(
                [&](auto member) {
                    if constexpr (!std::is_same_v<decltype(member), Computed>)
                        ok = fields::readJson(json, field.wireName, queryId, target.*member) && ok;
                },
                field.member);
        }
        this->setParsedOk(ok);
    }

    const S& state() const { return *m_state.constData(); }
    S& writableState() { return *m_state; }

    /// Assigns only what differs, so that an equal value never costs a copy of the state.
    template <typename Member, typename V> void set(Member member, const V& value) {
        if (!(state().*member == value))
            writableState().*member = value;
    }

    Pointer<S> m_state;

private:
    static const FieldLists& lists() {
        static const FieldLists all = makeFieldLists(Derived::rows());
        return all;
    }

    static const FieldRow<S>* row(int number) {
        const std::vector<FieldRow<S>>& all = Derived::rows();
        const int index = number - firstFieldNumber;
        return index >= 0 && index < static_cast<int>(all.size()) ? &all[static_cast<size_t>(index)]
                                                                  : nullptr;
    }
};
