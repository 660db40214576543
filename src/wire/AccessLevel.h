#pragma once

#include <QString>

/// What a person may do with a project, in rising order. The numbers are part of the protocol.
enum class AccessLevel { Revoked = 0, Read = 1, Write = 2, Owner = 3 };

/// The name that stands for the level on the wire.
QString accessLevelName(AccessLevel level);

/// The level of a name on the wire; an unknown name counts as `Revoked`.
AccessLevel accessLevelFromName(const QString& name);
