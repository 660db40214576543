#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "project/KRNFile.h"
#include "search/SourceSearch.h"

#include <QJsonArray>
#include <QJsonObject>

namespace cli {

namespace {

QJsonObject asJson(const QuestionAnswer& excerpt) {
    return {{QStringLiteral("sourceId"), excerpt.sourceId()},
            {QStringLiteral("questionId"), excerpt.questionId()},
            {QStringLiteral("offset"), excerpt.offset()},
            {QStringLiteral("length"), excerpt.answerLength()},
            {QStringLiteral("text"), excerpt.plainAnswer()}};
}

/// One line: where it stands, and what.
QString asText(const QuestionAnswer& excerpt, const KRNFile& file) {
    return Console::printable(QStringLiteral("%1:%2: %3")
                                  .arg(file.sourceTitle(excerpt.sourceId()),
                                       QString::number(excerpt.offset()), excerpt.plainAnswer())) +
           QLatin1Char('\n');
}

}  // namespace

Outcome search(const Invocation& invocation, const Console&) {
    const QString term = invocation.arguments.at(1);
    if (term.trimmed().isEmpty())
        return Outcome::wrongUsage(QStringLiteral("The term to search for is empty."));
    OpenedProject project(invocation);
    const Outcome opened = project.open(invocation.path(0));
    if (!opened.ok())
        return opened;
    Search::Options options;
    options.setFlag(Search::Option::WholeWords, invocation.has("whole-words"));
    options.setFlag(Search::Option::AlternativeEndings, invocation.has("endings"));
    options.setFlag(Search::Option::CodedTextOnly, invocation.has("coded-only"));
    Search::SourceSearch search(&project.file());
    QVariantList results;
    bool found = false;
    QObject::connect(&search, &Search::SourceSearch::resultsAvailable, &search,
                     [&](const QVariantList& available) {
                         results = available;
                         found = true;
                     });
    search.search({term, 0, options});
    if (!found)
        return Outcome::failed(QStringLiteral("The texts of the project could not be searched."));
    QJsonArray array;
    for (const QVariant& result : qAsConst(results)) {
        const auto excerpt = result.value<QuestionAnswer>();
        if (invocation.has("json"))
            array.append(asJson(excerpt));
        else
            Console::print(asText(excerpt, project.file()));
    }
    if (invocation.has("json"))
        Console::print(QJsonDocument(array));
    return Outcome::done();
}

}  // namespace cli
