#include "app/CommandLine.h"

#include <QFileInfo>

QString projectFileOf(const QStringList& arguments) {
    if (arguments.size() < 2)
        return {};
    const QFileInfo file(arguments.last());
    const bool isProject =
        file.isFile() && file.isWritable() && file.suffix().toLower() == QLatin1String("krn");
    return isProject ? file.absoluteFilePath() : QString();
}
