#pragma once

#include <QString>

/// Keys of the preferences that the program itself writes into projects.
namespace preference {
inline const QString dbVersion = QStringLiteral("___db_version");
inline const QString cloudVersion = QStringLiteral("___cloud_version");
inline const QString singleQuestion = QStringLiteral("___single_question");
inline const QString encrypted = QStringLiteral("___db_encrypted");
inline const QString hash = QStringLiteral("___db_hash");
inline const QString openLock = QStringLiteral("___db_open_lock");
/// The ids of the sources that the list shows.
inline const QString currentSources = QStringLiteral("SourcesList.CurrentIds");
}  // namespace preference
