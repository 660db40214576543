#pragma once

#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "link/LinkTimings.h"
#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

/// A project that is open at a scripted service, which gives ids and else what it is told to, and the manager
/// of its changes. The models stay as a test fills them: no notification comes.
class ScriptedProject {
public:
    ScriptedProject() : file(quickTimings(), ProjectTimings{0, 0}), undo(&file) {
        for (const QString& word : words()) {
            const QString operation = word + QLatin1String("MaxId");
            service.on(operation, [operation, last = 100](ScriptedClient& client,
                                                          const ScriptedRequest& request) mutable {
                client.reply(request, {{operation, ++last}});
            });
        }
        file.initModels();
        isOpen = file.dataHelper()->openProject({{"name"_s, "/data/a.krn"_s}});
        IdManager::instance()->init(false, file.dataHelper());
        service.forgetRequests();
    }
    ~ScriptedProject() { IdManager::instance()->init(false, nullptr); }

    /// The kinds of records.
    static QStringList words() {
        QStringList words;
        for (const wire::Record record : wire::allRecords())
            words << wire::word(record);
        return words;
    }

    /// The operations of all mutations since the start or the last call, in order.
    QStringList mutations() {
        file.highlightIds();
        static const QRegularExpression mutation("^mutation\\{(\\w+)"_s);
        QStringList operations;
        for (const QString& request : service.requestTexts()) {
            const QRegularExpressionMatch match = mutation.match(request);
            if (match.hasMatch())
                operations << match.captured(1);
        }
        service.forgetRequests();
        return operations;
    }

    /// How many ids were asked for.
    int reservations() { return service.requestTexts().filter("MaxId"_s).size(); }

    bool setAccess(const QString& level) {
        service.push({{"access_privilege"_s, level}});
        return waitFor([&] { return file.dataHelper()->access() == level; });
    }

    ScriptedService service;
    KRNFile file;
    UndoManager undo;
    bool isOpen = false;

private:
    static LinkTimings quickTimings() {
        LinkTimings timings;
        timings.reconnect = 50;
        return timings;
    }
};
