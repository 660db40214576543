#include "import/rtf/Interpreter.h"

#include "import/rtf/CodePages.h"

#include <QTextCodec>

namespace RtfReader {

Interpreter::Interpreter(Output* output) : m_output(output), m_documentPage(westernCodePage) {}

bool Interpreter::take(const Token& token) {
    const bool ignorable = m_ignorable;
    m_ignorable = false;
    if (token.kind != Token::Kind::Byte)
        flushBytes();
    switch (token.kind) {
    case Token::Kind::End:
        return false;
    case Token::Kind::GroupBegin:
        m_fallbackLeft = 0;
        m_groups.append(m_group);
        return m_groups.size() <= mostGroups;
    case Token::Kind::GroupEnd:
        m_fallbackLeft = 0;
        if (!m_groups.isEmpty())
            m_group = m_groups.takeLast();
        return !m_groups.isEmpty();
    case Token::Kind::Word:
        takeWord(token, ignorable);
        return true;
    case Token::Kind::Symbol:
        takeSymbol(token.byte);
        return true;
    case Token::Kind::Byte:
        if (m_fallbackLeft > 0)
            --m_fallbackLeft;
        else if (isText() && token.byte != 0)
            m_bytes += token.byte;
        return true;
    case Token::Kind::Binary:
        if (m_fallbackLeft > 0)
            --m_fallbackLeft;
        return true;
    }
    return true;
}

bool Interpreter::finish() {
    flushBytes();
    const bool complete = m_groups.isEmpty();
    for (const Run& run : qAsConst(m_footnotes))
        m_output->insertText(run.text, run.style);
    m_footnotes.clear();
    return complete;
}

bool Interpreter::isText() const {
    return m_group.place == Place::Document || m_group.place == Place::Footnote;
}

void Interpreter::enter(Place place) {
    if (m_group.place != Place::Nowhere)
        m_group.place = place;
}

// Back to where the text around the current destination goes.
void Interpreter::enterText() {
    for (int i = m_groups.size() - 1; i >= 0 && !isText(); --i)
        m_group.place = m_groups.at(i).place;
}

void Interpreter::takeWord(const Token& token, bool ignorable) {
    const WordMeaning meaning = meaningOf(token.word);
    const bool on = !token.hasNumber || token.number != 0;
    if (meaning.kind == WordKind::Character) {
        insertCharacter(meaning.character);
        return;
    }
    if (token.word == "u" && token.hasNumber) {
        insertUnicode(token.number);
        return;
    }
    m_fallbackLeft = 0;
    switch (meaning.kind) {
    case WordKind::Cell:
        insertCellEnd();
        break;
    case WordKind::Row:
        insertRowEnd();
        break;
    case WordKind::Bold:
        m_group.style.bold = on;
        break;
    case WordKind::Italic:
        m_group.style.italic = on;
        break;
    case WordKind::Underline:
        m_group.style.underline = on;
        break;
    case WordKind::NoUnderline:
        m_group.style.underline = false;
        break;
    case WordKind::Skipped:
        enter(Place::Nowhere);
        break;
    case WordKind::Shape:
        enter(Place::Shape);
        break;
    case WordKind::ShapeText:
        if (m_group.place == Place::Shape)
            enterText();
        break;
    case WordKind::UnicodePair:
        if (isText())
            enter(Place::UnicodePair);
        break;
    case WordKind::UnicodeText:
        if (m_group.place == Place::UnicodePair)
            enterText();
        break;
    case WordKind::Footnote:
        if (m_group.place == Place::Document) {
            enter(Place::Footnote);
            m_footnotes.append({QStringLiteral("\n"), {}});
        }
        break;
    case WordKind::FontTable:
        enter(Place::FontTable);
        break;
    case WordKind::Unknown:
    case WordKind::Character:
        if (ignorable)
            enter(Place::Nowhere);
        else
            takeSetting(token);
        break;
    }
}

void Interpreter::takeSetting(const Token& token) {
    const QByteArray& word = token.word;
    if (m_group.place == Place::FontTable) {
        takeFontSetting(token);
    } else if (word == "plain") {
        m_group.style = {};
        m_group.font = m_defaultFont;
    } else if (word == "f" && token.hasNumber) {
        m_group.font = token.number;
    } else if (word == "uc") {
        m_group.fallbackBytes = qMax(0, token.number);
    } else if (word == "deff") {
        m_defaultFont = token.number;
        m_group.font = m_defaultFont;
    } else if (word == "ansicpg") {
        m_documentPage = token.number;
    } else if (word == "mac") {
        m_documentPage = 10000;
    } else if (word == "pc") {
        m_documentPage = 437;
    } else if (word == "pca") {
        m_documentPage = 850;
    }
}

void Interpreter::takeFontSetting(const Token& token) {
    if (token.word == "f")
        m_definedFont = token.number;
    else if (token.word == "fcharset")
        m_fontPages.insert(m_definedFont, codePageOfCharset(token.number));
    else if (token.word == "cpg")
        m_fontPages.insert(m_definedFont, token.number);
}

void Interpreter::takeSymbol(char symbol) {
    if (symbol == '*') {
        m_ignorable = true;
        return;
    }
    const QChar character = characterOfSymbol(symbol);
    if (!character.isNull())
        insertCharacter(character);
    else if (m_fallbackLeft > 0)
        --m_fallbackLeft;
}

// A line or paragraph end after \u isn't its substitute: some writers leave that out.
void Interpreter::insertCharacter(QChar character) {
    const bool substitute = m_fallbackLeft > 0 && character >= QLatin1Char(' ') && character != QChar(0x2028);
    if (substitute) {
        --m_fallbackLeft;
        return;
    }
    m_fallbackLeft = 0;
    write(character);
}

void Interpreter::insertUnicode(int number) {
    m_fallbackLeft = m_group.fallbackBytes;
    const uint point = static_cast<uint>(number < 0 ? number + 0x10000 : number);
    if (point == 0 || point > QChar::LastValidCodePoint)
        return;
    if (QChar::requiresSurrogates(point))
        write(QString::fromUcs4(&point, 1));
    else
        write(QChar(static_cast<ushort>(point)));
}

// Tabs stand between the cells of a row, not after its last one.
void Interpreter::insertCellEnd() {
    if (isText())
        ++m_cellEnds;
}

void Interpreter::insertRowEnd() {
    if (!isText())
        return;
    m_cellEnds = 0;
    write(QStringLiteral("\n"));
}

void Interpreter::flushBytes() {
    if (m_bytes.isEmpty())
        return;
    const QString text = codec()->toUnicode(m_bytes);
    m_bytes.clear();
    write(text);
}

void Interpreter::write(const QString& text) {
    if (!isText())
        return;
    const QString cellEnds(m_cellEnds, QLatin1Char('\t'));
    m_cellEnds = 0;
    if (m_group.place == Place::Footnote)
        m_footnotes.append({cellEnds + text, m_group.style});
    else
        m_output->insertText(cellEnds + text, m_group.style);
}

const QTextCodec* Interpreter::codec() {
    const int fontPage = m_fontPages.value(m_group.font, 0);
    const int page = fontPage > 0 ? fontPage : m_documentPage;
    const QTextCodec*& known = m_codecs[page];
    if (!known)
        known = codecOfPage(page);
    return known;
}

}  // namespace RtfReader
