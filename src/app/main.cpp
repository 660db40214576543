#include "app/Startup.h"

#include <QDebug>

namespace {

// The shipped program says nothing: its diagnostics are for developers.
void discardMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(discardMessage);
    qDebug() << "\nAPPLICATION STARTING";
    return startup::run(argc, argv);
}
