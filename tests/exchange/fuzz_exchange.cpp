#include "ExchangeExercise.h"

#include <QCoreApplication>
#include <QLoggingCategory>

// The corpus is tests/exchange/corpus.

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    static int count = 1;
    static QCoreApplication application(count, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const ExchangeExercise exercise;
    const QString fault =
        exercise.faultOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    if (!fault.isEmpty())
        qFatal("%s", qPrintable(fault));
    return 0;
}
