#define PCRE2_CODE_UNIT_WIDTH 16
#include "Study.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/SourceMetadataModel.h"
#include "search/SourceSearch.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <pcre2.h>

// Searches over all texts of two projects, of 10 MB and 100 MB, against a bare PCRE2 scan of the same texts
// in the same run, and one limited by a property and a kerno. The texts are of word-like letters with a
// common, a middling and a rare word among them. Each figure is the best of some rounds.

namespace {

constexpr int rounds = 5;

double milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The bare scan: the same options, compiled once, no copy of anything.
double scan(const QStringList& texts, const QString& word, int& hits) {
    int error = 0;
    PCRE2_SIZE at = 0;
    pcre2_code* code = pcre2_compile(word.utf16(), PCRE2_ZERO_TERMINATED,
                                     PCRE2_UTF | PCRE2_UCP | PCRE2_CASELESS, &error, &at, nullptr);
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    pcre2_match_data* match = pcre2_match_data_create_from_pattern(code, nullptr);
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        hits = 0;
        for (const QString& text : texts) {
            const auto length = static_cast<PCRE2_SIZE>(text.size());
            PCRE2_SIZE from = 0;
            while (pcre2_match(code, text.utf16(), length, from, PCRE2_NO_UTF_CHECK, match, nullptr) > 0) {
                from = pcre2_get_ovector_pointer(match)[1];
                ++hits;
            }
        }
        best = std::min(best, milliseconds(timer));
    }
    pcre2_match_data_free(match);
    pcre2_code_free(code);
    return best;
}

double search(Search::SourceSearch& search, const Search::Request& request, int& results) {
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        const auto take =
            QObject::connect(&search, &Search::SourceSearch::resultsAvailable, [&](const QVariantList& list) {
                best = std::min(best, milliseconds(timer));
                results = list.size();
            });
        timer.start();
        search.search(request);
        QObject::disconnect(take);
    }
    return best;
}

bool measure(const Study& study) {
    const QTemporaryDir folder;
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    if (!openStudy(file, folder.filePath(QStringLiteral("study.krn")), study))
        return false;
    QStringList texts;
    for (const QuestionAnswer& answer : file.answerModel()->snapshot())
        texts.append(answer.plainAnswer());
    std::printf("%d sources of %d characters\n", study.sources, study.length);
    Search::SourceSearch searching(&file);
    for (const char* const word : {"trust", "harvest", "quixotic"}) {
        int hits = 0, results = 0;
        const QString term = QLatin1String(word);
        const double bare = scan(texts, term, hits);
        const double found = search(searching, {term}, results);
        std::printf(
            "  %-9s scan %8.2f ms, search %8.2f ms: %5.2f x, and %5.2f us a hit above one scan (%d hits, "
            "%d results)\n",
            word, bare, found, found / bare, (found - bare) * 1000 / std::max(hits, 1), hits, results);
    }
    int results = 0;
    const QVariantMap age{{QStringLiteral("property"), 1},
                          {QStringLiteral("value"), QStringLiteral("10")},
                          {QStringLiteral("operator"), QStringLiteral("=")}};
    for (const char* const op : {"=", "!="}) {
        const QVariantMap kerno{{QStringLiteral("kerno"), true},
                                {QStringLiteral("value"), 7},
                                {QStringLiteral("operator"), QLatin1String(op)}};
        const double limited =
            search(searching, {QStringLiteral("trust"), 0, {}, {}, {age, kerno}, true}, results);
        std::printf("  one property and kerno %s 7: %8.2f ms (%d results)\n", op, limited, results);
    }
    file.close();
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QCoreApplication application(argc, argv);
    for (const Study& study : {Study{200, 50000}, Study{1000, 100000}}) {
        if (!measure(study)) {
            std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
            return 1;
        }
    }
    return 0;
}
