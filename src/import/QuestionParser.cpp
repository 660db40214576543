#include "import/QuestionParser.h"

#include "import/ImportLog.h"

#include <QVariantMap>

namespace {

constexpr int previewLength = 100;

QVariantMap pair(const QString& question, const QString& answer) {
    return {{QStringLiteral("question"), question}, {QStringLiteral("answer"), answer}};
}

QString preview(const QString& text) {
    return text.size() <= previewLength ? text : text.left(previewLength) + QLatin1String("...");
}

QVariantList nothing(const char* reason) {
    qCDebug(logFileImport) << reason;
    return {};
}

QVariantList cutIntoPairs(const QString& text, const QString& questionMarker, const QString& answerMarker) {
    int q = text.indexOf(questionMarker);
    if (q < 0)
        return nothing("No question found!");
    int a = text.indexOf(answerMarker, q + questionMarker.size());
    if (a < 0)
        return nothing("No answer found!");
    QVariantList pairs;
    while (q >= 0 && a >= 0) {
        const int questionStart = q + questionMarker.size();
        const int answerStart = a + answerMarker.size();
        const int next = text.indexOf(questionMarker, answerStart);
        const QString question = text.mid(questionStart, a - questionStart).trimmed();
        const QString answer = text.mid(answerStart, next < 0 ? -1 : next - answerStart).trimmed();
        if (question.isEmpty())
            qCDebug(logFileImport) << "Empty question!";
        else
            pairs.append(pair(question, answer));
        q = next;
        if (q >= 0)
            a = text.indexOf(answerMarker, q + questionMarker.size());
    }
    return pairs;
}

}  // namespace

QVariantList parseQuestions(const QString& text, const QString& questionMarker, const QString& answerMarker,
                            bool wholeText) {
    if (text.isEmpty())
        return nothing("No question found - empty text!");
    if (wholeText)
        return {pair(preview(text), text)};
    if (questionMarker.isEmpty())
        return nothing("Question marker is empty!");
    if (answerMarker.isEmpty())
        return nothing("Answer marker is empty!");
    return cutIntoPairs(text, questionMarker, answerMarker);
}
