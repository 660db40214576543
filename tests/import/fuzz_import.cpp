#include "ImportExercise.h"

#include <QGuiApplication>
#include <QLoggingCategory>

// One target for each kind of file: KERNOVA_FUZZ_SUFFIX tells which.

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "minimal");
    static int count = 1;
    static QGuiApplication application(count, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("fileImport.debug=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const ImportExercise exercise;
    exercise.import(QStringLiteral(KERNOVA_FUZZ_SUFFIX),
                    QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
