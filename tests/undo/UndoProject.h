#pragma once

#include "tests_support/AllModels.h"
#include "tests_support/FilledProject.h"
#include "tests_support/TestProject.h"

/// A project at the real service with a little of everything in it, whose records are some years old, and the
/// manager of its changes.
class UndoProject : public TestProject {
public:
    explicit UndoProject(const QString& password = {}) : m_password(password) {
        file.setCurrentAuthor("Bea"_s);
    }

    /// Opens a fresh copy of the project. False on failure, whose reason is then in `error`.
    bool open();
    QString error;

    /// The whole project as the service has it stored. Under a password without the answers, which look
    /// different with each saving.
    QJsonObject json() {
        settle();
        QJsonObject whole = exported();
        if (!m_password.isEmpty())
            whole.remove("question_answers"_s);
        return whole;
    }

    /// All records of the project's lists, as sorted texts.
    QStringList modelTexts() const;

private:
    QJsonObject exported() {
        const Message message = file.dataHelper()->exportProjectJson(file.currentProject());
        error = message.message;
        return message.json.value("project_json"_s).toObject();
    }
    bool makeOriginal();

    const QString m_password;
    QJsonObject m_original;
    int m_copies = 0;
};

namespace undotest {

/// Gives every record a time of its own in the past.
inline QJsonValue aged(const QJsonValue& value, int& count) {
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue& element : value.toArray())
            array.append(aged(element, count));
        return array;
    }
    QJsonObject object = value.toObject();
    const QString timestamp = "timestamp"_s;
    if (object.contains(timestamp)) {
        const QDateTime time(QDate(2019, 3, 1).addDays(count++), QTime(8, 30, 15), Qt::UTC);
        object.insert(timestamp, time.toString(Qt::ISODate));
    }
    return object;
}

/// The first difference of two projects in words; empty when they are equal.
inline QString difference(const QJsonObject& before, const QJsonObject& after) {
    if (before.isEmpty())
        return "no project to compare with"_s;
    if (before == after)
        return {};
    const auto text = [](const QJsonValue& value) {
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    };
    for (const QString& list : before.keys()) {
        const QJsonArray a = before.value(list).toArray();
        const QJsonArray b = after.value(list).toArray();
        for (int i = 0; i < std::max(a.size(), b.size()); ++i) {
            if (a.at(i) != b.at(i))
                return "%1[%2]:\n  was %3\n  is  %4"_s.arg(list).arg(i).arg(text(a.at(i)), text(b.at(i)));
        }
    }
    return "other lists"_s;
}

/// What was added and removed, list by list: "highlights -2, kernos +1".
inline QString countChanges(const QJsonObject& before, const QJsonObject& after) {
    QStringList changes;
    for (const QString& list : before.keys()) {
        const int change = after.value(list).toArray().size() - before.value(list).toArray().size();
        if (change != 0)
            changes << "%1 %2%3"_s.arg(list, change > 0 ? "+"_s : QString()).arg(change);
    }
    return changes.join(", "_s);
}

}  // namespace undotest

inline bool UndoProject::open() {
    if (m_original.isEmpty() && !makeOriginal())
        return false;
    const QString copy = "copy%1.krn"_s.arg(++m_copies);
    error = file.dataHelper()->importProjectJson(project(copy), m_original).message;
    if (error.isEmpty())
        error = TestProject::open(copy, false, false, m_password);
    if (error.isEmpty() && !file.waitForTexts())
        error = "texts are missing"_s;
    settle();
    undo.clearStack();
    return error.isEmpty();
}

inline bool UndoProject::makeOriginal() {
    error = TestProject::open("original.krn"_s, true, false, m_password);
    if (!error.isEmpty())
        return false;
    fillProject(file);
    settle();
    const QJsonObject filled = exported();
    int count = 0;
    for (auto list = filled.begin(); list != filled.end(); ++list)
        m_original.insert(list.key(), undotest::aged(list.value(), count));
    return count > 0;
}

inline QStringList UndoProject::modelTexts() const {
    QStringList texts;
    const auto add = [&texts](const auto* model) {
        for (const QJsonValue& record : model->toJson())
            texts << QString::fromUtf8(QJsonDocument(record.toObject()).toJson(QJsonDocument::Compact));
    };
    add(file.kernoModel());
    add(file.sourceModel());
    add(file.questionListModel());
    add(file.answerModel());
    add(file.metadataKeyModel());
    add(file.metadataValueModel());
    add(file.metadataModel());
    add(file.groupModel());
    add(file.kernoGroupModel());
    add(file.shortcutKeyModel());
    texts.sort();
    return texts;
}
