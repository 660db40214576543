#define PCRE2_CODE_UNIT_WIDTH 8
#include "search/NarrowScan.h"

#include <algorithm>
#include <pcre2.h>

namespace Search {

NarrowScan::NarrowScan(const QRegularExpression& hit) {
    const QString pattern = hit.pattern();
    const bool isNarrow =
        std::all_of(pattern.cbegin(), pattern.cend(), [](QChar c) { return c.unicode() < 256; });
    if (!isNarrow || !hit.isValid())
        return;
    const QByteArray bytes = pattern.toLatin1();
    const bool anyCase = hit.patternOptions().testFlag(QRegularExpression::CaseInsensitiveOption);
    int error = 0;
    PCRE2_SIZE at = 0;
    m_code.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(bytes.constData()),
                               static_cast<PCRE2_SIZE>(bytes.size()),
                               PCRE2_UCP | (anyCase ? PCRE2_CASELESS : 0U), &error, &at, nullptr),
                 pcre2_code_free);
    if (!m_code)
        return;
    pcre2_jit_compile(m_code.get(), PCRE2_JIT_COMPLETE);
    m_match.reset(pcre2_match_data_create_from_pattern(m_code.get(), nullptr), pcre2_match_data_free);
}

bool NarrowScan::mayMatch(const char* text, int size) const {
    if (!m_code)
        return true;
    return pcre2_match(m_code.get(), reinterpret_cast<PCRE2_SPTR>(text), static_cast<PCRE2_SIZE>(size), 0, 0,
                       m_match.get(), nullptr) != PCRE2_ERROR_NOMATCH;
}

}  // namespace Search
