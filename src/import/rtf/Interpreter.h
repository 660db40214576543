#pragma once

#include "import/rtf/Output.h"
#include "import/rtf/Tokenizer.h"
#include "import/rtf/Words.h"

#include <QHash>
#include <QVector>

class QTextCodec;

namespace RtfReader {

/// Turns the tokens of one document into its text. Footnotes come after the text, each on a line of its own.
class Interpreter {
public:
    /// Groups deeper than this end the reading.
    static constexpr int mostGroups = 1000;

    /// The output is not owned.
    explicit Interpreter(Output* output);

    /// False when reading ends here: the last group is closed, or groups nest too deep.
    bool take(const Token& token);
    /// Gives out what is left. True when all groups were closed.
    bool finish();

private:
    // Where the text of a group goes.
    enum class Place { Document, Footnote, FontTable, Nowhere, Shape, UnicodePair };

    struct Group {
        Style style;
        Place place = Place::Document;
        int font = -1;
        int fallbackBytes = 1;  // bytes that stand for one \u in readers that don't know it
    };

    struct Run {
        QString text;
        Style style;
    };

    void takeWord(const Token& token, bool ignorable);
    void takeSymbol(char symbol);
    void takeSetting(const Token& token);
    void takeFontSetting(const Token& token);
    void enter(Place place);
    void enterText();
    void insertCharacter(QChar character);
    void insertUnicode(int number);
    void insertCellEnd();
    void insertRowEnd();
    void write(const QString& text);
    void flushBytes();
    bool isText() const;
    const QTextCodec* codec();

    Output* m_output;
    QVector<Group> m_groups;
    Group m_group;
    QByteArray m_bytes;  // text that isn't decoded yet: a character may take two bytes
    QVector<Run> m_footnotes;
    QHash<int, int> m_fontPages;
    QHash<int, const QTextCodec*> m_codecs;
    int m_documentPage;
    int m_defaultFont = -1;
    int m_definedFont = -1;
    int m_fallbackLeft = 0;
    int m_cellEnds = 0;  // cells that ended since the last text of their row
    bool m_ignorable = false;
};

}  // namespace RtfReader
