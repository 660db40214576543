#include "records/QuestionAnswer.h"

#include "records/ProjectContext.h"
#include "records/SimpleCipher.h"

template class Record<QuestionAnswer, int, QuestionAnswerField, QuestionAnswerState, QSharedDataPointer>;

namespace {

std::shared_ptr<const AnswerText> prepared(const QString& text) {
    return std::make_shared<const AnswerText>(AnswerText::prepare(text));
}

QString enciphered(const QString& text) {
    const ProjectContext* project = ProjectContext::current();
    return project ? project->encryptIfNeeded(text) : text;
}

}  // namespace

QuestionAnswerState::QuestionAnswerState() {
    static const std::shared_ptr<const AnswerText> empty = prepared(QString());
    text = empty;
}

const std::vector<FieldRow<QuestionAnswerState>>& QuestionAnswer::rows() {
    using S = QuestionAnswerState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("answerId"), &S::answerId, -1},
        {258, QStringLiteral("questionId"), QStringLiteral("questionId"), &S::questionId, -1},
        {259, QStringLiteral("sourceId"), QStringLiteral("sourceId"), &S::sourceId, -1},
        {260, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {261, QStringLiteral("answer"), QStringLiteral("answer"), &S::answer, {}},
        {262, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
        {263, QStringLiteral("isHtml"), QStringLiteral("isHtml"), Computed{FieldType::Boolean}, false,
         LocalOnly},
    };
    return table;
}

QuestionAnswer::QuestionAnswer() = default;

QuestionAnswer::QuestionAnswer(const QJsonObject& json, const char* queryId, SimpleCipher* decoder)
    : Record(json, queryId) {
    readText(json, decoder);
}

QuestionAnswer::QuestionAnswer(int answerId, int questionId, int sourceId, const QString& author,
                               const QString& answer, const QDateTime& timestamp)
    : Record(new State) {
    State& s = writableState();
    s.answerId = answerId;
    s.questionId = questionId;
    s.sourceId = sourceId;
    s.author = author;
    s.timestamp = timestamp;
    setAnswer(answer);
}

QuestionAnswer::QuestionAnswer(const QuestionAnswer& other, int start, int length) : Record(other) {
    State& s = writableState();
    s.offset += start;
    s.text = std::make_shared<const AnswerText>(AnswerText::part(*other.state().text, start, length));
}

QuestionAnswer QuestionAnswer::markedPart(int start, int length, const AnswerText::Marks& marks) const {
    QuestionAnswer part(*this);
    State& s = part.writableState();
    s.offset += start;
    s.text = std::make_shared<const AnswerText>(AnswerText::marked(plainAnswer().mid(start, length), marks));
    return part;
}

void QuestionAnswer::readText(const QJsonObject& json, SimpleCipher* decoder) {
    State& s = writableState();
    const auto bytes = [&json] { return json.value(wireName(Field::answer)).toVariant().toByteArray(); };
    QString text = s.answer;
    if (decoder && decoder->hasKey()) {
        text = decoder->decryptToString(s.answer);
        if (text.isEmpty() && !s.answer.isEmpty())
            text = decoder->decryptToString(bytes());
    } else if (const ProjectContext* project = decoder ? nullptr : ProjectContext::current()) {
        text = project->decryptIfNeeded(s.answer);
        if (text.isEmpty() && !s.answer.isEmpty())
            text = project->decryptIfNeeded(bytes());
    }
    s.answer.clear();
    s.text = prepared(normalizedFromService(text));
}

void QuestionAnswer::setAnswer(const QString& text) {
    writableState().text = prepared(normalizedForStorage(text));
}

bool QuestionAnswer::isValid() const {
    return parsedOk();
}

QStringList QuestionAnswer::mutationArguments() const {
    return {fields::argument(wireName(Field::answerId), answerId()),
            fields::argument(wireName(Field::questionId), questionId()),
            fields::argument(wireName(Field::sourceId), sourceId()),
            fields::argument(wireName(Field::author), author()),
            fields::argument(wireName(Field::answer), enciphered(storedAnswer()))};
}

QVariant QuestionAnswer::fieldValue(int role, bool forService) const {
    if (role == static_cast<int>(Field::answer))
        return forService ? enciphered(answer()) : answer();
    return Record::fieldValue(role, forService);
}

QString QuestionAnswer::question() const {
    const ProjectContext* project = ProjectContext::current();
    return project ? project->questionText(questionId()) : QString();
}

QString QuestionAnswer::sourceTitle() const {
    const ProjectContext* project = ProjectContext::current();
    return project ? project->titleOfSource(sourceId()) : QString();
}
