#pragma once

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "link/LinkTimings.h"
#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/SignalLog.h"
#include "tests_support/TestMain.h"

#include <memory>

inline QJsonObject localProject(const QString& path) {
    return {{"name", path}, {"project_uuid", QString()}};
}

/// A project object over a data service of its own, with pauses that don't last, and a folder for its files.
class ProjectUnderTest {
public:
    ProjectUnderTest() { restart(); }

    KRNFile* operator->() const { return m_file.get(); }
    KRNFile& operator*() const { return *m_file; }
    KRNFile* get() const { return m_file.get(); }

    bool connectLink() { return m_file->dataHelper()->connection()->connect(false); }
    QString path(const QString& name = "study.krn"_s) const { return m_folder.filePath(name); }

    bool create(const QString& password = {}, bool singleQuestion = true) {
        return connectLink() && m_file->openProject(localProject(path()), true, password, singleQuestion);
    }
    bool open(const QString& name = "study.krn"_s, const QString& password = {}, bool ignoreLock = false) {
        return m_file->openProject(localProject(path(name)), false, password, true, ignoreLock);
    }

    /// Ends the object and its service, and makes new ones.
    void restart() {
        m_file.reset();
        m_file = std::make_unique<KRNFile>(LinkTimings(), ProjectTimings{1, 1});
        m_file->initModels();
        // A question that no test expects would wait for ever.
        QObject::connect(m_file.get(), &KRNFile::awaitingOpenConfirmationChanged, m_file.get(), [this] {
            QTimer::singleShot(5000, m_file.get(), [this] { m_file->confirmOpenAlreadyOpenedFile(false); });
        });
    }

    /// A source with an answer to the first question, and a kerno; waits until the models have them.
    bool addContents(const QString& text) {
        m_file->saveKerno(
            Kerno(IdManager::instance()->nextKernoId(), -1, QColor(Qt::red), "Trust", {}, {}, "Ann", 5, 6));
        const int sourceId = m_file->saveSource(source(IdManager::instance()->nextSourceId(), "Interview"));
        const int answerId = IdManager::instance()->nextAnswerId();
        m_file->saveAnswer(QuestionAnswer(answerId, 1, sourceId, "Ann", text, {}));
        return waitFor([&] { return m_file->answerModel()->contains(answerId); });
    }

    static Source source(int id, const QString& title) { return Source(id, title, "md_generic", "Ann", {}); }
    static Highlight highlight(int id, int start, int length, int kernoId = 1, int sourceId = 1) {
        return Highlight(id, kernoId, sourceId, 1, QColor(), start, length, start + length, "Ann", {}, 0, 0,
                         0, false);
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<KRNFile> m_file;
};
