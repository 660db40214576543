#include "app/AppHelper.h"

#include "app/AppLog.h"
#include "records/HtmlDocument.h"
#include "records/QuestionAnswer.h"
#include "search/SourceSearch.h"
#include "search/Synonyms.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSqlDatabase>

namespace {

const QString synonymsConnection = QStringLiteral("synonyms");

}  // namespace

void AppHelper::initSearch() {
    m_search = new Search::SourceSearch(m_krnFile, this);
    connect(m_search, &Search::SourceSearch::started, this, &AppHelper::searchStarted);
    m_searchResults = new VariantListModel(this);
    m_searchResults->setSimplifiedItemManagement(true);  // batches follow resets alone
    connect(m_search, &Search::SourceSearch::resultsAvailable, m_searchResults, &VariantListModel::setItems);
    connect(m_search, &Search::SourceSearch::resultsAvailable, this, &AppHelper::searchResultsAvailable);
    connect(m_search, &Search::SourceSearch::finished, this, &AppHelper::searchFinished);
}

void AppHelper::search(const QString& term, int sourceId, bool wholeWords, bool alternativeEndings,
                       bool searchCodedTextOnly, const QStringList& synonyms,
                       const QVariantList& queryCriteria, bool isAndOperator) {
    Search::Options options;
    options.setFlag(Search::Option::WholeWords, wholeWords);
    options.setFlag(Search::Option::CodedTextOnly, searchCodedTextOnly);
    options.setFlag(Search::Option::AlternativeEndings, alternativeEndings);
    m_search->search({term, sourceId, options, synonyms, queryCriteria, isAndOperator});
}

QString AppHelper::plainText(const QString& answer) const {
    return HtmlDocument::parse(answer).plainText();
}

QuestionAnswer AppHelper::extendedSearchResult(int sourceId, int questionId, int start, int length) const {
    return m_search->extendedResult(sourceId, questionId, start, length);
}

void AppHelper::openSynonyms() const {
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), synonymsConnection);
    const QFileInfo file(QCoreApplication::applicationDirPath() + QLatin1String("/synonyms.db"));
    if (file.exists() && file.isFile() && file.isReadable()) {
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        database.setDatabaseName(file.absoluteFilePath());
        database.open();
    } else {
        qCDebug(logAppHelper) << "Failed to open synonyms db" << file.absoluteFilePath()
                              << "\n\texists:" << file.exists() << "\n\tisFile:" << file.isFile()
                              << "\n\tisReadable:" << file.isReadable();
    }
}

void AppHelper::closeSynonyms() const {
    QSqlDatabase::removeDatabase(synonymsConnection);
}

QVariantList AppHelper::synonyms(const QString& word) const {
    const QSqlDatabase database = QSqlDatabase::database(synonymsConnection, false);
    if (!database.isValid()) {
        qCDebug(logAppHelper) << "Synonyms db invalid!";
        return {};
    }
    const QString lemma = word.trimmed();
    if (lemma.isEmpty()) {
        qCDebug(logAppHelper) << "lemma is empty!";
        return {};
    }
    return Search::synonymsOf(lemma, database);
}
