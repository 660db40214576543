#include "import/rtf/Reader.h"

#include "import/rtf/Interpreter.h"

#include <QFileInfo>

namespace RtfReader {

bool Reader::open(const QString& path) {
    close();
    m_file.setFileName(path);
    // Anything but a file, such as a pipe, could have the reading wait for ever.
    if (!QFileInfo(path).isFile() || !m_file.open(QIODevice::ReadOnly))
        return false;
    if (m_file.peek(5) == "{\\rtf")
        return true;
    close();
    return false;
}

void Reader::close() {
    m_file.close();
}

bool Reader::parseTo(Output* output) {
    if (!m_file.isOpen())
        return false;
    Tokenizer tokenizer(&m_file);
    Interpreter interpreter(output);
    while (interpreter.take(tokenizer.next())) {}
    return interpreter.finish();
}

}  // namespace RtfReader
