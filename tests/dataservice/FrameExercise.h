#pragma once

#include <QByteArray>
#include <QString>

/// Takes bytes through everything that reads them: as a frame and as the text of a query, each carried out on
/// an empty project that is kept in memory and rolled back. Gives what was found wrong; empty when all went
/// as promised.
QString exerciseFrame(const QByteArray& bytes);
