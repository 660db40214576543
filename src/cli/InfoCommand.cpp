#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "cli/ProjectCheck.h"
#include "merge/Project.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QLocale>

namespace cli {

namespace {

QString line(const QString& what, const QString& value) {
    return what.leftJustified(26) + Console::printable(value) + QLatin1Char('\n');
}

QString yesOrNo(const QJsonValue& value) {
    return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
}

QString asText(const QJsonObject& facts, const QJsonObject& project, const QFileInfo& file) {
    QString text = line(QStringLiteral("Name"), facts[QLatin1String("name")].toString());
    text += line(QStringLiteral("File"), QDir::toNativeSeparators(file.absoluteFilePath()));
    text += line(QStringLiteral("Size"), QLocale::c().formattedDataSize(file.size()));
    text += line(QStringLiteral("Kind"), facts[QLatin1String("singleQuestion")].toBool()
                                             ? QStringLiteral("plain texts")
                                             : QStringLiteral("answers to questions"));
    text += line(QStringLiteral("Password"), yesOrNo(facts[QLatin1String("encrypted")]));
    text += line(QStringLiteral("Whole"), yesOrNo(facts[QLatin1String("whole")]));
    for (const QString& list : project.keys())
        text += line(list, QString::number(facts[list].toInt()));
    return text;
}

}  // namespace

Outcome info(const Invocation& invocation, const Console&) {
    const QFileInfo file(invocation.path(0));
    OpenedProject opened(invocation);
    QJsonObject json;
    const Outcome read = opened.read(file.filePath(), &json);
    if (!read.ok())
        return read;
    const Project project({{QStringLiteral("project_json"), json}});
    QJsonObject facts{{QStringLiteral("name"), file.completeBaseName()},
                      {QStringLiteral("singleQuestion"), project.singleQuestion() == 1},
                      {QStringLiteral("encrypted"), !project.acceptsPassword(QString())},
                      {QStringLiteral("whole"), isWhole(json)}};
    for (auto list = json.begin(); list != json.end(); ++list)
        facts.insert(list.key(), list.value().toArray().size());
    if (invocation.has("json"))
        Console::print(QJsonDocument(facts));
    else
        Console::print(asText(facts, json, file));
    return Outcome::done();
}

}  // namespace cli
