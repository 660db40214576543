#include "ImportExercise.h"
#include "SampleFiles.h"

#include <QGuiApplication>
#include <QLoggingCategory>

// One target for each kind of file: KERNOVA_FUZZ_SUFFIX tells which. Run it with its folder of
// tests/import/corpus. What is no archive for the target of Word documents is the main part of one, which
// checksums would hide.

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "minimal");
    static int count = 1;
    static QGuiApplication application(count, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("fileImport.debug=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const ImportExercise exercise;
    const QString suffix = QStringLiteral(KERNOVA_FUZZ_SUFFIX);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const bool packed = suffix == QLatin1String("docx") && !bytes.startsWith("PK");
    exercise.import(suffix, packed ? samples::docxOfPart(bytes) : bytes);
    return 0;
}
