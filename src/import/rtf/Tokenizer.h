#pragma once

#include <QByteArray>

class QIODevice;

namespace RtfReader {

/// A piece of RTF.
struct Token {
    enum class Kind {
        End,         ///< of the file
        GroupBegin,  ///< {
        GroupEnd,    ///< }
        Word,        ///< a control word: `word`, and `number` when `hasNumber`
        Symbol,      ///< a control symbol: `byte`
        Byte,        ///< a byte of text, plain, as \'hh or escaped: `byte`
        Binary       ///< data that was passed over
    };

    Kind kind = Kind::End;
    QByteArray word;
    bool hasNumber = false;
    int number = 0;
    char byte = 0;
};

/// Cuts RTF into tokens. Line ends outside of a control symbol mean nothing and are left out. What is
/// malformed gives tokens all the same.
class Tokenizer {
public:
    /// Reads on from where the device, which is not owned, stands.
    explicit Tokenizer(QIODevice* device) : m_device(device) {}

    Token next();

private:
    static constexpr int none = -1;

    int take();
    int peek();
    Token control();
    Token word();
    void passOver(int bytes);

    QIODevice* m_device;
    QByteArray m_buffer;
    int m_at = 0;
};

}  // namespace RtfReader
