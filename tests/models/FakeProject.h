#pragma once

#include "models/ProjectEvents.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestMain.h"

#include <functional>
#include <memory>

/// A project with all its models and without a service of its own: tests fill the models and emit its
/// signals.
class FakeProject : public ProjectEvents {
public:
    explicit FakeProject(DataHelper* helper = nullptr)
        : m_helper(helper), keys(make<SourceMetadataKeyModel>()), values(make<SourceMetadataValueModel>()),
          links(make<SourceMetadataModel>()), kernos(make<KernoModel>()), questions(make<QuestionModel>()),
          answers(make<QuestionAnswerMainModel>()), sources(make<SourceModel>()),
          kernoGroups(make<KernoGroupModel>()), groups(make<GroupModel>()),
          shortcuts(make<KernoShortcutKeyModel>()), chat(make<ChatModel>()) {}

    bool isOpened() const override { return true; }
    DataHelper* dataHelper() const override { return m_helper; }
    BatchOperationManager* batchOperationManager() const override { return &m_batches; }
    KernoModel* kernoModel() const override { return kernos.get(); }
    SourceModel* sourceModel() const override { return sources.get(); }
    QuestionModel* questionListModel() const override { return questions.get(); }
    QuestionAnswerMainModel* answerModel() const override { return answers.get(); }
    SourceMetadataKeyModel* metadataKeyModel() const override { return keys.get(); }
    SourceMetadataValueModel* metadataValueModel() const override { return values.get(); }
    SourceMetadataModel* metadataModel() const override { return links.get(); }
    GroupModel* groupModel() const override { return groups.get(); }
    KernoGroupModel* kernoGroupModel() const override { return kernoGroups.get(); }
    KernoShortcutKeyModel* shortcutKeyModel() const override { return shortcuts.get(); }
    ChatModel* chatModel() const override { return chat.get(); }
    Kerno kernoById(int kernoId) const override { return kernos->record(kernoId); }
    QList<int> overlapsOf(int kernoId, const QList<int>& others) override {
        QList<int> counts;
        for (int other : others)
            counts.append(overlap ? overlap(kernoId, other) : 0);
        return counts;
    }

private:
    template <typename Model> std::unique_ptr<Model> make() { return std::make_unique<Model>(m_helper); }

    DataHelper* m_helper;
    mutable BatchOperationManager m_batches;

public:
    std::function<int(int, int)> overlap;

    // In the order in which a project makes them: later ones listen to earlier ones.
    const std::unique_ptr<SourceMetadataKeyModel> keys;
    const std::unique_ptr<SourceMetadataValueModel> values;
    const std::unique_ptr<SourceMetadataModel> links;
    const std::unique_ptr<KernoModel> kernos;
    const std::unique_ptr<QuestionModel> questions;
    const std::unique_ptr<QuestionAnswerMainModel> answers;
    const std::unique_ptr<SourceModel> sources;
    const std::unique_ptr<KernoGroupModel> kernoGroups;
    const std::unique_ptr<GroupModel> groups;
    const std::unique_ptr<KernoShortcutKeyModel> shortcuts;
    const std::unique_ptr<ChatModel> chat;
};

inline Kerno testKerno(int id, int parentId = -1, const QString& title = {}) {
    return Kerno(id, parentId, Qt::red, title.isEmpty() ? "kerno %1"_s.arg(id) : title, {}, {}, "Ann"_s, 1,
                 1);
}

inline Highlight testHighlight(int id, int kernoId, int start, int length, int sourceId = 1,
                               int questionId = 1) {
    return Highlight(id, kernoId, sourceId, questionId, Qt::red, start, length, start + length, "Ann"_s, {},
                     0, 0, 0, false);
}

inline QuestionAnswer testAnswer(int id, int sourceId, int questionId, const QString& text) {
    return QuestionAnswer(id, questionId, sourceId, "Ann"_s, text, {});
}

/// The ids in one column of a model, in row order.
inline QList<int> idsOf(const QAbstractItemModel& model, int role = Qt::UserRole + 1) {
    QList<int> ids;
    for (int row = 0; row < model.rowCount(); ++row)
        ids << model.index(row, 0).data(role).toInt();
    return ids;
}
