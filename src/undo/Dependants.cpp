#include "undo/Dependants.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "project/KRNFile.h"

namespace dependants {

namespace {

template <typename T> std::optional<QList<T>> read(const KRNFile& file, const QString& text) {
    const QString key = wire::operationName(T::record(), wire::Operation::QueryList);
    const QJsonValue answer = file.dataHelper()->queryValue(text, key);
    if (!answer.isArray())
        return std::nullopt;
    return DataHelper::records<T>({{key, answer}}, {key});
}

}  // namespace

std::optional<QList<Highlight>> highlightsOfKerno(const KRNFile& file, int kernoId) {
    return read<Highlight>(file, reads::highlightsOfKerno(kernoId));
}

std::optional<QList<Highlight>> highlightsOfKerno(const KRNFile& file, int kernoId, int sourceId,
                                                  int questionId) {
    return read<Highlight>(file, reads::highlights(sourceId, questionId, kernoId));
}

std::optional<QList<Highlight>> highlights(const KRNFile& file, int sourceId, int questionId) {
    return read<Highlight>(file, reads::highlights(sourceId, questionId));
}

std::optional<QList<Memo>> memos(const KRNFile& file, int sourceId, int questionId) {
    return read<Memo>(file, reads::memos(sourceId, questionId));
}

}  // namespace dependants
