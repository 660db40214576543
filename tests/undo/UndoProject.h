#pragma once

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/LinkTimings.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "undo/UndoManager.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

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
        file.setCurrentAuthor(QStringLiteral("Bea"));
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
            whole.remove(QStringLiteral("question_answers"));
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
        return message.json.value(QStringLiteral("project_json")).toObject();
    }
    QJsonObject project(const QString& name) const {
        return {{QStringLiteral("name"), m_folder.filePath(name)}};
    }
    bool makeOriginal();
    void fill();

    const QString m_password;
    QTemporaryDir m_folder;
    QJsonObject m_original;
    int m_copies = 0;
};

namespace undotest {

inline const QString ann = QStringLiteral("Ann");

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
    const QString timestamp = QStringLiteral("timestamp");
    if (object.contains(timestamp)) {
        const QDateTime time(QDate(2019, 3, 1).addDays(count++), QTime(8, 30, 15), Qt::UTC);
        object.insert(timestamp, time.toString(Qt::ISODate));
    }
    return object;
}

/// The first difference of two projects in words; empty when they are equal.
inline QString difference(const QJsonObject& before, const QJsonObject& after) {
    if (before.isEmpty())
        return QStringLiteral("no project to compare with");
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
                return QStringLiteral("%1[%2]:\n  was %3\n  is  %4")
                    .arg(list)
                    .arg(i)
                    .arg(text(a.at(i)), text(b.at(i)));
        }
    }
    return QStringLiteral("other lists");
}

/// What was added and removed, list by list: "highlights -2, kernos +1".
inline QString countChanges(const QJsonObject& before, const QJsonObject& after) {
    QStringList changes;
    for (const QString& list : before.keys()) {
        const int change = after.value(list).toArray().size() - before.value(list).toArray().size();
        if (change != 0)
            changes << QStringLiteral("%1 %2%3")
                           .arg(list, change > 0 ? QStringLiteral("+") : QString())
                           .arg(change);
    }
    return changes.join(QStringLiteral(", "));
}

}  // namespace undotest

inline bool UndoProject::open() {
    if (m_original.isEmpty() && !makeOriginal())
        return false;
    const QJsonObject copy = project(QStringLiteral("copy%1.krn").arg(++m_copies));
    const Message imported = file.dataHelper()->importProjectJson(copy, m_original);
    if (!imported.status)
        return fail(imported.message);
    if (!file.openProject(copy, false, m_password, false, true))
        return fail(file.getLastOpenError());
    if (!file.waitForTexts())
        return fail(QStringLiteral("texts are missing"));
    settle();
    undo.clearStack();
    return true;
}

inline bool UndoProject::makeOriginal() {
    if (!file.dataHelper()->connection()->connect(false))
        return fail(QStringLiteral("the service can't be reached"));
    if (!file.openProject(project(QStringLiteral("original.krn")), true, m_password, false, true))
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
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    file.saveQuestion(Question(1, text("What happened?"), 1));
    file.saveQuestion(Question(2, text("And \"then\"?\\"), 2));
    const QStringList answers{text("A long enough answer to hold all of the passages that are coded in it."),
                              text("Short, with \"quotes\", a \\ and\na second line."),
                              text("<p>An answer in <b>HTML</b> &amp; so on</p>"),
                              text("Another with an emoji \xF0\x9F\x98\x80 in it."),
                              text("The fifth answer of the project."),
                              text("The sixth and last answer.")};
    for (int source = 1; source <= 3; ++source) {
        file.saveSource(Source(source, text("Interview %1").arg(source), text("md_generic"), ann, {}));
        for (int question = 1; question <= 2; ++question) {
            const int id = (source - 1) * 2 + question;
            file.saveAnswer(QuestionAnswer(id, question, source, ann, answers.at(id - 1), {}));
        }
    }
    const auto kerno = [&](int id, int parent, const char* title) {
        file.saveKerno(
            Kerno(id, parent, QColor(10 * id, 20, 30), text(title), text("about"), {}, ann, id, 2 * id));
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
    file.batchSaveMemos(
        {memo(1, 1, 1, 0, 5, text("Look \"here\"")), memo(2, 2, 2, 3, 6, text("and\nthere"))});
    file.saveGroup(Group(1, text("Feelings"), true));
    file.saveGroup(Group(2, text("Acts"), true));
    file.saveKernoGroup(KernoGroup(1, 1, 1));
    file.saveKernoGroup(KernoGroup(2, 1, 2));
    file.saveKernoGroup(KernoGroup(3, 2, 4));
    file.saveKernoShortcutKey(KernoShortcutKey(text("A"), 1, ann));
    file.saveKernoShortcutKey(KernoShortcutKey(text("B"), 2, ann));
    file.saveKernoShortcutKey(KernoShortcutKey(text("1"), 5, ann));
    file.saveMetadataKey(SourceMetadataKey(1, false, false, text("Age")));
    file.saveMetadataKey(SourceMetadataKey(2, true, true, text("Role")));
    const QStringList values{text("30"), text("40"), text("Nurse"), text("Doctor")};
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
