#pragma once

#include "records/Highlight.h"
#include "records/Memo.h"

#include <QList>
#include <optional>

class KRNFile;

/// The passages that a change must take along, asked of the service. Without a value the service didn't
/// answer, which must not be taken for none.
namespace dependants {

std::optional<QList<Highlight>> highlightsOfKerno(const KRNFile& file, int kernoId);
/// Those of a kerno in one answer, in the service's order.
std::optional<QList<Highlight>> highlightsOfKerno(const KRNFile& file, int kernoId, int sourceId,
                                                  int questionId);
std::optional<QList<Highlight>> highlights(const KRNFile& file, int sourceId, int questionId);
std::optional<QList<Memo>> memos(const KRNFile& file, int sourceId, int questionId);

}  // namespace dependants
