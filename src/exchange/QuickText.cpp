#include "exchange/QuickText.h"

QByteArray NewGuids::next() {
    static constexpr char digits[] = "0123456789abcdef";
    quint64 bits[] = {m_random.generate64(), m_random.generate64()};
    // The version, and the variant.
    bits[0] = (bits[0] & ~Q_UINT64_C(0xF000)) | Q_UINT64_C(0x4000);
    bits[1] = (bits[1] & ~(Q_UINT64_C(3) << 62)) | (Q_UINT64_C(2) << 62);
    QByteArray text(36, '-');
    int at = 0;
    for (int nibble = 0; nibble < 32; ++nibble) {
        if (nibble == 8 || nibble == 12 || nibble == 16 || nibble == 20)
            ++at;
        text[at++] = digits[(bits[nibble / 16] >> (60 - 4 * (nibble % 16))) & 15];
    }
    return text;
}

QByteArray IsoTimes::utc(const QDateTime& time) {
    constexpr qint64 secondsOfDay = 24 * 60 * 60;
    if (!time.isValid())
        return {};
    const qint64 seconds = time.toSecsSinceEpoch();
    if (seconds < 0)
        return time.toUTC().toString(Qt::ISODate).toLatin1();
    if (m_day != seconds / secondsOfDay) {
        m_day = seconds / secondsOfDay;
        m_date = QDate(1970, 1, 1).addDays(m_day).toString(Qt::ISODate).toLatin1();
    }
    const int rest = static_cast<int>(seconds % secondsOfDay);
    char clock[] = "T00:00:00Z";
    const int parts[] = {rest / 3600, rest / 60 % 60, rest % 60};
    for (int i = 0; i < 3; ++i) {
        clock[1 + 3 * i] = static_cast<char>('0' + parts[i] / 10);
        clock[2 + 3 * i] = static_cast<char>('0' + parts[i] % 10);
    }
    return m_date + QByteArray(clock);
}
