#include "records/CompactText.h"

namespace {

/// From this length on the last text that was read is kept as it was given out.
constexpr int worthKeeping = 1000;

bool isNarrow(const QString& text) {
    ushort all = 0;  // without a way out of the loop it is done many characters at a time
    for (const QChar c : text)
        all |= c.unicode();
    return all < 256;
}

}  // namespace

CompactText::CompactText(const QString& text) {
    if (isNarrow(text))
        m_narrow = text.toLatin1();
    else
        m_wide = text;
}

QString CompactText::text() const {
    if (!m_wide.isNull())
        return m_wide;
    if (m_narrow.size() < worthKeeping)
        return QString::fromLatin1(m_narrow);
    // Who takes one passage of a text mostly takes the next as well. The copy keeps the bytes at their place.
    thread_local QByteArray lastNarrow;
    thread_local QString last;
    if (lastNarrow.constData() != m_narrow.constData()) {
        // Into the memory of the text before, as soon as nobody holds that; and without a search for its end.
        last = QLatin1String(m_narrow.constData(), m_narrow.size());
        lastNarrow = m_narrow;
    }
    return last;
}
