#include "cli/OpenedProject.h"

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "project/ProjectPreferences.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

namespace cli {

namespace {

// Nothing on a screen follows the opening.
constexpr ProjectTimings withoutPauses{0, 0};

QJsonObject identity(const QString& path) {
    return {{QStringLiteral("name"), path}, {QStringLiteral("project_uuid"), QString()}};
}

QJsonObject contents(const Message& message) {
    return message.json.value(QStringLiteral("project_json")).toObject();
}

bool isMarkedAsOpen(const QJsonObject& contents) {
    const QJsonArray preferences = contents.value(QStringLiteral("preferences")).toArray();
    for (const QJsonValue& preference : preferences) {
        if (preference[QLatin1String("key")].toString() == preference::openLock)
            return preference[QLatin1String("value")].toVariant().toBool();
    }
    return false;
}

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

// The text of a refused request names the request, which tells nobody what to do.
QString reasonOf(const Message& message, const QString& path) {
    constexpr int unusable = 400;
    return message.statusCode == unusable
               ? QStringLiteral("%1 is not a Kernova project, or it is damaged.").arg(shown(path))
               : message.message;
}

// A service or a timer of the system runs without the variables of a session.
QString userName() {
    for (const char* variable : {"USER", "USERNAME"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return qEnvironmentVariable(variable);
    }
    return QFileInfo(QStringLiteral("/proc/self")).owner();
}

}  // namespace

OpenedProject::OpenedProject(const Invocation& invocation)
    : m_invocation(invocation), m_file(std::make_unique<KRNFile>(nullptr, withoutPauses)),
      m_undo(std::make_unique<UndoManager>(m_file.get())) {
    m_file->setCurrentAuthor(invocation.has("author") ? invocation.value("author") : userName());
    QObject::connect(m_file.get(), &KRNFile::errorOccurred, m_file.get(), [this](const QString& error) {
        if (m_firstError.isEmpty())
            m_firstError = error;
    });
}

OpenedProject::~OpenedProject() {
    m_file->closeAndReset();
}

Outcome OpenedProject::connectLink() {
    Connection* const connection = m_file->dataHelper()->connection();
    if (m_file->dataHelper()->isConnected() || connection->connect(false))
        return Outcome::done();
    return Outcome::failed(connection->lastError());
}

Outcome OpenedProject::look(const QString& path) {
    if (!QFileInfo::exists(path))
        return Outcome::failed(QStringLiteral("There is no project at %1.").arg(shown(path)));
    const Outcome connected = connectLink();
    if (!connected.ok())
        return connected;
    const Message message = m_file->dataHelper()->exportPreferences(identity(path));
    if (!message.status)
        return Outcome::failed(reasonOf(message, path));
    if (!m_invocation.has("ignore-lock") && isMarkedAsOpen(contents(message))) {
        return Outcome::failed(
            QStringLiteral("%1 is marked as open elsewhere; --ignore-lock goes on all the same.")
                .arg(shown(path)));
    }
    return Outcome::done();
}

Outcome OpenedProject::read(const QString& path, QJsonObject* project) {
    // What is stored is read without one, but a file that is named has to be there.
    QString password;
    Outcome outcome = readPassword(&password);
    if (outcome.ok())
        outcome = look(path);
    if (!outcome.ok())
        return outcome;
    const Message message = m_file->dataHelper()->exportProjectJson(identity(path));
    *project = contents(message);
    return message.status ? Outcome::done() : Outcome::failed(reasonOf(message, path));
}

Outcome OpenedProject::readPassword(QString* password) const {
    if (!m_invocation.has("password-file"))
        return Outcome::done();
    QFile file(m_invocation.value("password-file"));
    if (!file.open(QIODevice::ReadOnly)) {
        return Outcome::failed(QStringLiteral("The password file %1 can't be read: %2.")
                                   .arg(file.fileName(), file.errorString()));
    }
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    *password = QString::fromUtf8(line);
    return password->isEmpty()
               ? Outcome::failed(
                     QStringLiteral("The password file %1 has no first line.").arg(file.fileName()))
               : Outcome::done();
}

Outcome OpenedProject::open(const QString& path) {
    const Outcome looked = look(path);
    return looked.ok() ? openAs(path, false, false) : looked;
}

Outcome OpenedProject::create(const QString& path, bool singleQuestion) {
    if (QFileInfo::exists(path))
        return Outcome::failed(QStringLiteral("%1 is there already.").arg(shown(path)));
    const Outcome connected = connectLink();
    return connected.ok() ? openAs(path, true, singleQuestion) : connected;
}

Outcome OpenedProject::openAs(const QString& path, bool createNew, bool singleQuestion) {
    QString password;
    const Outcome passwordRead = readPassword(&password);
    if (!passwordRead.ok())
        return passwordRead;
    m_file->initModels();
    // Who marks it in this moment comes first; there is nobody here to ask.
    QObject::connect(m_file.get(), &KRNFile::awaitingOpenConfirmationChanged, m_file.get(),
                     [this] { m_file->confirmOpenAlreadyOpenedFile(false); });
    if (!m_file->openProject(identity(path), createNew, password, singleQuestion,
                             m_invocation.has("ignore-lock"))) {
        if (createNew && !QFileInfo::exists(path)) {
            return Outcome::failed(
                QStringLiteral("The project %1 can't be made: its folder is not there, has no "
                               "room, or may not be written to.")
                    .arg(shown(path)));
        }
        const QString reason = m_file->getLastOpenError();
        return Outcome::failed(QStringLiteral("%1: %2").arg(
            shown(path), reason.isEmpty() ? QStringLiteral("It is open elsewhere.") : reason));
    }
    if (!m_file->waitForTexts())
        return Outcome::failed(QStringLiteral("Not all texts of %1 could be read.").arg(shown(path)));
    return Outcome::done();
}

Outcome OpenedProject::finish() {
    // A service answers after it has stored what was sent before.
    const bool answers =
        m_file->dataHelper()->isConnected() && m_file->getPreference(preference::dbVersion).isValid();
    QCoreApplication::processEvents();
    if (!m_firstError.isEmpty())
        return Outcome::failed(m_firstError);
    return answers ? Outcome::done()
                   : Outcome::failed(QStringLiteral("The link to the data service was lost; not all changes "
                                                    "may be stored."));
}

Outcome mayWrite(const QString& path, const Invocation& invocation) {
    if (invocation.has("force") || !QFileInfo::exists(path))
        return Outcome::done();
    return Outcome::failed(QStringLiteral("%1 is there already; --force replaces it.").arg(shown(path)));
}

}  // namespace cli
