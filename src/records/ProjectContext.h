#pragma once

#include <QByteArray>
#include <QString>

/// What records need to know of the open project. The project implements it and registers itself; without
/// one, texts pass through unchanged and titles are empty.
class ProjectContext {
public:
    virtual ~ProjectContext();

    /// The text as it is stored: enciphered when the project has a password, else as it stands.
    virtual QString encryptIfNeeded(const QString& text) const = 0;

    /// The reverse; the empty string when a text can't be deciphered.
    virtual QString decryptIfNeeded(const QString& text) const = 0;
    virtual QString decryptIfNeeded(const QByteArray& bytes) const = 0;

    virtual QString questionText(int questionId) const = 0;
    virtual QString titleOfSource(int sourceId) const = 0;

    /// The registered project, or null. Used on the main thread only.
    static ProjectContext* current();

    /// Registers `context`, which isn't owned; null takes it back.
    static void setCurrent(ProjectContext* context);
};
