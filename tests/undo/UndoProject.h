#pragma once

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/LinkTimings.h"
#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

/// A project at the real service with a little of everything in it, whose records are some years old, and the
/// manager of its changes.
///
/// Questions 1 and 2; sources 1 to 3 with an answer to each (ids 1 to 6). Kernos 1 ("Trust") with 2 ("Doubt")
/// and 3 ("Fear") below it, 4 ("Hope") below 2, and 5 ("Care"). Groups 1 and 2, shortcuts A, B and 1,
/// properties 1
/// ("Age", one value: 1 "30", 2 "40") and 2 ("Role", several: 3 "Nurse", 4 "Doctor").
class UndoProject {
public:
    explicit UndoProject(const QString& password = {})
        : file(LinkTimings(), ProjectTimings{0, 0}), undo(&file), m_password(password) {
        file.initModels();
        file.setCurrentAuthor("Bea"_s);
    }

    KRNFile file;
    UndoManager undo;

    /// Opens a fresh copy of the project. False on failure, whose reason is then in `error`.
    bool open();
    QString error;

    /// Returns when everything that was sent has been stored, and has reached the models.
    void settle() {
        file.highlightIds();
        QCoreApplication::processEvents();
    }

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
    bool fail(const QString& reason) {
        error = reason;
        return false;
    }
    QJsonObject exported() {
        const Message message = file.dataHelper()->exportProjectJson(file.currentProject());
        error = message.message;
        return message.json.value("project_json"_s).toObject();
    }
    QJsonObject project(const QString& name) const { return {{"name"_s, m_folder.filePath(name)}}; }
    bool makeOriginal();
    void fill();

    const QString m_password;
    QTemporaryDir m_folder;
    QJsonObject m_original;
    int m_copies = 0;
};

namespace undotest {

inline const QString ann = "Ann"_s;

inline Highlight highlight(int id, int kernoId, int sourceId, int questionId, int start, int end,
                           const QString& author = ann) {
    return Highlight(id, kernoId, sourceId, questionId, {}, start, end - start, end, author, {}, 0, 0, 0,
                     false);
}

inline Memo memo(int id, int sourceId, int questionId, int start, int end, const QString& content) {
    return Memo(id, sourceId, questionId, content, start, end - start, end, ann, {}, 0, 0);
}

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
    const QJsonObject copy = project("copy%1.krn"_s.arg(++m_copies));
    const Message imported = file.dataHelper()->importProjectJson(copy, m_original);
    if (!imported.status)
        return fail(imported.message);
    if (!file.openProject(copy, false, m_password, false, true))
        return fail(file.getLastOpenError());
    if (!file.waitForTexts())
        return fail("texts are missing"_s);
    settle();
    undo.clearStack();
    return true;
}

inline bool UndoProject::makeOriginal() {
    if (!file.dataHelper()->connection()->connect(false))
        return fail("the service can't be reached"_s);
    if (!file.openProject(project("original.krn"_s), true, m_password, false, true))
        return fail(file.getLastOpenError());
    fill();
    settle();
    const QJsonObject filled = exported();
    int count = 0;
    for (auto list = filled.begin(); list != filled.end(); ++list)
        m_original.insert(list.key(), undotest::aged(list.value(), count));
    return count > 0 || fail(error);
}

inline void UndoProject::fill() {
    using namespace undotest;
    file.saveQuestion(Question(1, "What happened?"_s, 1));
    file.saveQuestion(Question(2, "And \"then\"?\\"_s, 2));
    const QStringList answers{"A long enough answer to hold all of the passages that are coded in it."_s,
                              "Short, with \"quotes\", a \\ and\na second line."_s,
                              "<p>An answer in <b>HTML</b> &amp; so on</p>"_s,
                              "Another with an emoji \xF0\x9F\x98\x80 in it."_s,
                              "The fifth answer of the project."_s,
                              "The sixth and last answer."_s};
    for (int source = 1; source <= 3; ++source) {
        file.saveSource(Source(source, "Interview %1"_s.arg(source), "md_generic"_s, ann, {}));
        for (int question = 1; question <= 2; ++question) {
            const int id = (source - 1) * 2 + question;
            file.saveAnswer(QuestionAnswer(id, question, source, ann, answers.at(id - 1), {}));
        }
    }
    const auto kerno = [&](int id, int parent, const char* title) {
        file.saveKerno(Kerno(id, parent, QColor(10 * id, 20, 30), QString::fromUtf8(title), "about"_s, {},
                             ann, id, 2 * id));
    };
    kerno(1, -1, "Trust");
    kerno(2, 1, "Doubt");
    kerno(3, 1, "Fear");
    kerno(4, 2, "Hope");
    kerno(5, -1, "Care");
    file.batchSaveHighlights({highlight(1, 1, 1, 1, 0, 10), highlight(2, 1, 1, 1, 20, 30),
                              highlight(3, 5, 1, 1, 5, 15), highlight(4, 5, 1, 1, 30, 40),
                              highlight(5, 2, 2, 1, 0, 8), highlight(6, 4, 3, 2, 1, 4),
                              highlight(7, 5, 2, 2, 0, 5), highlight(8, 1, 2, 2, 6, 9)});
    file.batchSaveMemos({memo(1, 1, 1, 0, 5, "Look \"here\""_s), memo(2, 2, 2, 3, 6, "and\nthere"_s)});
    file.saveGroup(Group(1, "Feelings"_s, true));
    file.saveGroup(Group(2, "Acts"_s, true));
    file.saveKernoGroup(KernoGroup(1, 1, 1));
    file.saveKernoGroup(KernoGroup(2, 1, 2));
    file.saveKernoGroup(KernoGroup(3, 2, 4));
    file.saveKernoShortcutKey(KernoShortcutKey("A"_s, 1, ann));
    file.saveKernoShortcutKey(KernoShortcutKey("B"_s, 2, ann));
    file.saveKernoShortcutKey(KernoShortcutKey("1"_s, 5, ann));
    file.saveMetadataKey(SourceMetadataKey(1, false, false, "Age"_s));
    file.saveMetadataKey(SourceMetadataKey(2, true, true, "Role"_s));
    const QStringList values{"30"_s, "40"_s, "Nurse"_s, "Doctor"_s};
    for (int id = 1; id <= 4; ++id)
        file.saveMetadataValue(SourceMetadataValue(id, id <= 2 ? 1 : 2, values.at(id - 1)));
    file.saveMetadata(SourceMetadata(1, 1, 1, 1, ann, {}));
    file.saveMetadata(SourceMetadata(2, 1, 2, 3, ann, {}));
    file.saveMetadata(SourceMetadata(3, 1, 2, 4, ann, {}));
    file.saveMetadata(SourceMetadata(4, 2, 2, 3, ann, {}));
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
