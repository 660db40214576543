#pragma once

#include <QByteArray>
#include <QRegularExpression>
#include <memory>

struct pcre2_real_code_8;
struct pcre2_real_match_data_8;

namespace Search {

/// Tells which texts with a byte for each character can't have a hit, so that they need not be widened for
/// the search itself: a rare word stands in few texts, and widening all of them takes longer than scanning.
/// The same engine scans the bytes with the same expression. Not to be used by two threads at a time.
class NarrowScan {
public:
    explicit NarrowScan(const QRegularExpression& hit);

    /// False only if the expression matches nowhere in the Latin-1 text [text, text + size). True for an
    /// expression that can't be put into Latin-1: a character outside of it may be another case of one
    /// inside.
    bool mayMatch(const char* text, int size) const;

private:
    std::shared_ptr<pcre2_real_code_8> m_code;  ///< null when nothing can be told
    std::shared_ptr<pcre2_real_match_data_8> m_match;
};

}  // namespace Search
