#pragma once

#include "import/archive/ZipArchive.h"

#include <QHash>

class QIODevice;

/// The parts of a QDPX archive of unknown origin. Its entries are read by name, within limits; none becomes a
/// path.
class QDPXArchive {
public:
    /// Which parts an archive must have.
    enum class State { Complete, Unreadable, Incomplete };

    explicit QDPXArchive(const QString& path);

    State state() const { return m_state; }
    /// Why the last reading failed.
    QString error() const { return m_zip.error(); }

    bool unpackDocument(QIODevice& out) { return m_zip.unpack(m_document, out); }

    /// The bytes of the text that a path of the document names: "internal://" and a name in the folder of the
    /// sources. Null when there is none; anything that leads elsewhere is none.
    QByteArray text(const QString& internalPath);

private:
    ZipArchive m_zip;
    State m_state = State::Unreadable;
    QString m_document;
    QHash<QString, QString> m_texts;  ///< entries by their name in the folder
};
