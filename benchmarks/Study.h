#pragma once

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"

#include <QJsonObject>

// A project of plain texts at the real service, as many measures want it: so many sources of so many
// characters, each with 115 codings of 400 characters, one value of a property, and kernos of which 100 stand
// at the top.

struct Study {
    int sources = 1000;
    int length = 100000;
    int kernos = 100;
};

constexpr int highlightsPerSource = 115;
constexpr int highlightLength = 400;

inline QJsonObject projectAt(const QString& path) {
    return {{QStringLiteral("name"), path}, {QStringLiteral("project_uuid"), QString()}};
}

/// Words of random letters, and among them a common word at one in 100, a middling one at one in 5,000, a
/// rare one at one in 500,000.
inline QString textOfSource(int sourceId, int length) {
    QString text;
    text.reserve(length + 20);
    quint32 state = static_cast<quint32>(sourceId) * 2654435761u;
    const auto random = [&state](quint32 bound) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % bound;
    };
    while (text.size() < length) {
        const quint32 pick = random(500000);
        if (pick == 0)
            text += QLatin1String("quixotic");
        else if (pick % 5000 == 1)
            text += QLatin1String("harvest");
        else if (pick % 100 == 2)
            text += QLatin1String("trust");
        else
            for (quint32 i = 2 + random(8); i > 0; --i)
                text += QLatin1Char("eeettaaooiinnsshhrrddlluucmwfgypbvk"[random(35)]);
        const quint32 end = random(80);
        text += QLatin1Char(end == 0 ? '\n' : end == 1 ? '"' : ' ');
    }
    text.truncate(length);
    return text;
}

/// Makes the project and leaves it open, with all of it stored. False without a service.
inline bool makeStudy(KRNFile& file, const QString& path, const Study& study) {
    DataHelper& helper = *file.dataHelper();
    if ((!helper.isConnected() && !helper.connection()->connect(false)) ||
        !file.openProject(projectAt(path), true, {}, true, true))
        return false;
    const QString author = QStringLiteral("Ann Author");
    for (int id = 1; id <= study.kernos; ++id)
        helper.save(Kerno(id, id > 100 ? id % 100 + 1 : -1, QColor::fromHsv(id % 360, 200, 200),
                          QStringLiteral("Topic %1").arg(id), {}, {}, author, id * 7 % 900, id * 13 % 700),
                    true);
    helper.save(SourceMetadataKey(1, false, false, QStringLiteral("Age")));
    for (int value : {1, 2})
        helper.save(SourceMetadataValue(value, 1, QString::number(10 * value)));
    int highlightId = 0;
    for (int id = 1; id <= study.sources; ++id) {
        helper.save(
            Source(id, QStringLiteral("Interview %1").arg(id), QStringLiteral("md_generic"), author, {}));
        helper.save(QuestionAnswer(id, 1, id, author, textOfSource(id, study.length), {}));
        helper.save(SourceMetadata(id, id, 1, 1 + id % 2, author, {}));
        QList<Highlight> batch;
        for (int i = 0; i < highlightsPerSource; ++i) {
            const int start = i * (study.length - highlightLength) / highlightsPerSource;
            ++highlightId;
            batch.append(Highlight(highlightId, 1 + highlightId % study.kernos, id, 1, {}, start,
                                   highlightLength, start + highlightLength, author, {}, 0, 0, 0, false));
        }
        file.batchSaveHighlights(batch);
        if (id % 50 == 0)
            file.kernoIds();  // returns when all of it is stored
    }
    file.kernoIds();
    return true;
}

/// The same, opened anew with all texts in memory.
inline bool openStudy(KRNFile& file, const QString& path, const Study& study) {
    if (!makeStudy(file, path, study))
        return false;
    file.close();
    return file.openProject(projectAt(path), false, {}, true, true) && file.waitForTexts();
}
