#include "exchange/SkippedElements.h"

#include <QCoreApplication>
#include <QVariantMap>
#include <iterator>

namespace {

// In the order of the kinds.
const char* const names[] = {
    QT_TRANSLATE_NOOP("SkippedElements", "Picture sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "PDF sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "Audio sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "Video sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "Sources without a text"),
    QT_TRANSLATE_NOOP("SkippedElements", "Codings in skipped sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "Selections without a code or note"),
    QT_TRANSLATE_NOOP("SkippedElements", "Passages outside their text"),
    QT_TRANSLATE_NOOP("SkippedElements", "References to unknown codes"),
    QT_TRANSLATE_NOOP("SkippedElements", "Codings without a code"),
    QT_TRANSLATE_NOOP("SkippedElements", "Notes without a place"),
    QT_TRANSLATE_NOOP("SkippedElements", "References of cases to other than sources"),
    QT_TRANSLATE_NOOP("SkippedElements", "Names of cases"),
    QT_TRANSLATE_NOOP("SkippedElements", "Values of unknown variables"),
    QT_TRANSLATE_NOOP("SkippedElements", "Members of sets that are not codes"),
    QT_TRANSLATE_NOOP("SkippedElements", "Descriptions of sets"),
    QT_TRANSLATE_NOOP("SkippedElements", "Links"),
    QT_TRANSLATE_NOOP("SkippedElements", "Graphs"),
    QT_TRANSLATE_NOOP("SkippedElements", "Descriptions of the project"),
    QT_TRANSLATE_NOOP("SkippedElements", "Elements with a GUID that is already used"),
    QT_TRANSLATE_NOOP("SkippedElements", "Other elements"),
};
static_assert(std::size(names) == static_cast<size_t>(SkippedElements::Kind::Other) + 1);

QString nameOf(SkippedElements::Kind kind) {
    return QCoreApplication::translate("SkippedElements", names[static_cast<size_t>(kind)]);
}

}  // namespace

QVariantList SkippedElements::toVariantList() const {
    QVariantList list;
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it)
        list << QVariantMap{{QStringLiteral("kind"), nameOf(it.key())}, {QStringLiteral("count"), *it}};
    return list;
}

QString SkippedElements::toText() const {
    QStringList lines;
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it)
        lines << QStringLiteral("%1: %2").arg(nameOf(it.key())).arg(*it);
    return lines.join(QLatin1Char('\n'));
}
