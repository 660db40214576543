#include "import/rtf/Tokenizer.h"

#include <QIODevice>

namespace RtfReader {

namespace {

constexpr int bufferBytes = 64 * 1024;
constexpr int longestWord = 32;
constexpr int mostDigits = 9;

bool isLetter(int c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(int c) {
    return c >= '0' && c <= '9';
}

int hexValue(int c) {
    if (isDigit(c))
        return c - '0';
    const int lower = c | 0x20;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

Token byteToken(int byte) {
    Token token;
    token.kind = Token::Kind::Byte;
    token.byte = static_cast<char>(byte);
    return token;
}

}  // namespace

int Tokenizer::peek() {
    if (m_at == m_buffer.size()) {
        m_buffer = m_device->read(bufferBytes);
        m_at = 0;
        if (m_buffer.isEmpty())
            return none;
    }
    return static_cast<unsigned char>(m_buffer.at(m_at));
}

int Tokenizer::take() {
    const int byte = peek();
    if (byte != none)
        ++m_at;
    return byte;
}

Token Tokenizer::next() {
    Token token;
    int c = take();
    while (c == '\r' || c == '\n' || c == 0)
        c = take();
    switch (c) {
    case none:
        return token;
    case '{':
        token.kind = Token::Kind::GroupBegin;
        return token;
    case '}':
        token.kind = Token::Kind::GroupEnd;
        return token;
    case '\\':
        return control();
    default:
        return byteToken(c);
    }
}

Token Tokenizer::control() {
    const int c = peek();
    if (isLetter(c))
        return word();
    if (c == none)
        return {};
    take();
    if (c == '\'') {
        const int high = hexValue(peek());
        if (high >= 0)
            take();
        const int low = hexValue(peek());
        if (low >= 0)
            take();
        // Half a number means nothing, as a byte of zero does.
        return byteToken(high < 0 || low < 0 ? 0 : high * 16 + low);
    }
    // These may be the second byte of a character.
    if (c == '\\' || c == '{' || c == '}')
        return byteToken(c);
    Token token;
    token.kind = Token::Kind::Symbol;
    token.byte = static_cast<char>(c);
    return token;
}

Token Tokenizer::word() {
    Token token;
    token.kind = Token::Kind::Word;
    while (isLetter(peek()) && token.word.size() < longestWord)
        token.word += static_cast<char>(take());
    const bool negative = peek() == '-';
    if (negative)
        take();
    for (int digits = 0; isDigit(peek()); ++digits) {
        const int digit = take() - '0';
        token.hasNumber = true;
        if (digits < mostDigits)
            token.number = token.number * 10 + digit;
    }
    if (negative)
        token.number = -token.number;
    if (peek() == ' ')
        take();
    if (token.word == "bin") {
        passOver(token.number);
        token.kind = Token::Kind::Binary;
    }
    return token;
}

void Tokenizer::passOver(int bytes) {
    while (bytes > 0 && peek() != none) {
        const int here = qMin(bytes, m_buffer.size() - m_at);
        m_at += here;
        bytes -= here;
    }
}

}  // namespace RtfReader
