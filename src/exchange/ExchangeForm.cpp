#include "exchange/ExchangeForm.h"

#include <QRegularExpression>

namespace {

QString systemWord() {
#if defined(Q_OS_WIN)
    return QStringLiteral("Windows");
#elif defined(Q_OS_MACOS)
    return QStringLiteral("macOS");
#else
    return QStringLiteral("Linux");
#endif
}

}  // namespace

QString originOf(ExchangeForm form) {
    const QString program =
        form == ExchangeForm::Own ? QStringLiteral("Kernova ") : QStringLiteral("Kernova REFI-QDA ");
    return program + QStringLiteral(KERNOVA_VERSION) + QLatin1Char(' ') + systemWord();
}

ExchangeForm formOf(const QString& origin) {
    static const QRegularExpression own(QStringLiteral("^Kernova \\d"));
    return own.match(origin).hasMatch() ? ExchangeForm::Own : ExchangeForm::Standard;
}
