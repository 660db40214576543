#include "FrameExercise.h"

#include <QCoreApplication>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (!exerciseFrame(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size))).isEmpty())
        std::abort();
    return 0;
}
