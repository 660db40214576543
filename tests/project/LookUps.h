#pragma once

#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestMain.h"

template <typename T, typename Holds> QList<T> those(QList<T> records, Holds holds) {
    records.erase(std::remove_if(records.begin(), records.end(), [&](const T& r) { return !holds(r); }),
                  records.end());
    return records;
}

/// The same records in the same order.
template <typename T> void compare(const QList<T>& found, const QList<T>& expected) {
    QCOMPARE(found.size(), expected.size());
    for (int i = 0; i < found.size(); ++i)
        QCOMPARE(found.at(i).id(), expected.at(i).id());
}

/// What is looked up in the models by an id and another one is what a search of all rows gives.
inline void checkLookUps(const KRNFile& file, int id, int other) {
    const auto ofSource = [id](const auto& record) { return record.sourceId() == id; };
    const KernoModel& kernos = *file.kernoModel();
    const QList<Kerno> children =
        those(kernos.snapshot(), [id](const Kerno& kerno) { return kerno.parentKernoId() == id; });
    compare(kernos.childrenOf(id), children);
    QCOMPARE(kernos.childIdsOf(id).size(), children.size());
    if (kernos.contains(id)) {
        QCOMPARE(kernos.indexOfKey(kernos.at(kernos.indexOfKey(id)).id()), kernos.indexOfKey(id));
        QCOMPARE(kernos.hasChildren(kernos.record(id)), !children.isEmpty());
        QCOMPARE(kernos.hasGrandChildren(kernos.record(id)),
                 std::any_of(children.begin(), children.end(),
                             [&](const Kerno& child) { return kernos.hasChildren(child); }));
    }

    const QuestionModel& questions = *file.questionListModel();
    const Question question = questions.record(id);
    const QList<Question> inOrder = questions.snapshot();
    QCOMPARE(questions.maxQuestionOrder(), inOrder.isEmpty() ? 0 : inOrder.last().questionOrder());
    QCOMPARE(questions.questionText(id), question.question());
    QCOMPARE(questions.questionOrder(id), question.questionOrder());
    QVERIFY(!questions.contains(id) || questions.hasQuestion(question.question()));

    QuestionAnswerMainModel& answers = *file.answerModel();
    answers.readTexts(id);
    const QList<QuestionAnswer> ofThisSource = those(answers.snapshot(), ofSource);
    compare(answers.answers(id), ofThisSource);
    int length = 0;
    for (const QuestionAnswer& answer : ofThisSource)
        length += answer.plainAnswer().size();
    QCOMPARE(answers.lengthsBySource().value(id), length);
    const auto answered =
        those(ofThisSource, [&](const auto& answer) { return answer.questionId() == other; });
    QCOMPARE(answers.answer(id, other).id(), answered.value(0).id());

    const KernoGroupModel& groups = *file.kernoGroupModel();
    const auto ofKerno = those(groups.snapshot(), [id](const auto& link) { return link.kernoId() == id; });
    compare(groups.linksOfKerno(id), ofKerno);
    compare(groups.linksOfGroup(id),
            those(groups.snapshot(), [id](const auto& link) { return link.groupId() == id; }));
    QCOMPARE(groups.countOfGroup(id), groups.linksOfGroup(id).size());
    const auto grouped = those(ofKerno, [&](const auto& link) { return link.groupId() == other; });
    QCOMPARE(groups.link(id, other).id(), grouped.value(0).id());

    const SourceMetadataValueModel& values = *file.metadataValueModel();
    compare(values.valuesOfKey(id),
            those(values.snapshot(), [id](const auto& value) { return value.keyId() == id; }));
    const SourceMetadataValue value = values.record(id);
    const bool isOfKey = value.isValid() && value.keyId() == other;
    QCOMPARE(values.value(other, id).isValid(), isOfKey);
    QVERIFY(!isOfKey || values.hasValue(other, value.value()));

    const SourceMetadataModel& links = *file.metadataModel();
    compare(links.linksOfValue(id),
            those(links.snapshot(), [id](const auto& link) { return link.valueId() == id; }));
    const QList<SourceMetadata> linked =
        those(links.snapshot(), [&](const auto& link) { return ofSource(link) && link.keyId() == other; });
    compare(links.links(other, id), linked);
    QCOMPARE(links.link(other, id).id(), linked.value(0).id());
    QCOMPARE(links.hasLink(other, 5, id),
             !those(linked, [](const auto& link) { return link.valueId() == 5; }).isEmpty());
    QCOMPARE(links.valuesOf(id, other).size(),
             those(linked, [&](const auto& link) { return values.contains(link.valueId()); }).size());
}
