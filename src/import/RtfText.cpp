#include "import/RtfText.h"

#include "import/ImportLog.h"
#include "import/rtf/Reader.h"
#include "import/rtf/TextDocumentRtfOutput.h"
#include "records/RichTextFragment.h"

#include <QTextDocument>

QString rtfToRichText(const QString& path) {
    RtfReader::Reader reader;
    if (!reader.open(path))
        return {};
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    {
        RtfReader::TextDocumentRtfOutput output(&document);
        if (!reader.parseTo(&output))
            qCDebug(logFileImport) << "The RTF file breaks off" << path;
    }
    reader.close();
    return richTextFromDocument(&document);
}
