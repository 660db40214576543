#pragma once

#include <QFile>
#include <QString>

namespace RtfReader {

class Output;

/// Reads the text of an RTF file, with where it is bold, italic or underlined.
class Reader {
public:
    /// Opens a file; false when it can't be read or isn't RTF by its first bytes.
    bool open(const QString& path);
    void close();
    QString fileName() const { return m_file.fileName(); }

    /// Gives the text to the output, which is not owned. False when the file isn't open, breaks off or nests
    /// too deep; the text before has then been given.
    bool parseTo(Output* output);

private:
    QFile m_file;
};

}  // namespace RtfReader
