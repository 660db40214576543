#include "import/rtf/Words.h"

#include <QHash>

namespace RtfReader {

namespace {

using Table = QHash<QByteArray, WordMeaning>;

void addAll(Table& table, WordKind kind, std::initializer_list<const char*> words) {
    for (const char* word : words)
        table.insert(word, {kind, 0});
}

Table makeTable() {
    Table table;
    const std::initializer_list<std::pair<const char*, char16_t>> characters{
        {"par", u'\n'},         {"sect", u'\n'},          {"column", u'\n'},        {"line", u'\u2028'},
        {"lbr", u'\u2028'},     {"page", u'\f'},          {"tab", u'\t'},           {"lquote", u'\u2018'},
        {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'}, {"bullet", u'\u2022'},
        {"endash", u'\u2013'},  {"emdash", u'\u2014'},    {"enspace", u'\u2002'},   {"emspace", u'\u2003'},
        {"qmspace", u'\u2005'}, {"zwj", u'\u200D'},       {"zwnj", u'\u200C'},      {"zwbo", u'\u200B'},
        {"zwnbo", u'\u2060'},   {"ltrmark", u'\u200E'},   {"rtlmark", u'\u200F'}};
    for (const auto& row : characters)
        table.insert(row.first, {WordKind::Character, row.second});
    addAll(table, WordKind::Cell, {"cell", "nestcell"});
    addAll(table, WordKind::Row, {"row", "nestrow"});
    addAll(table, WordKind::Bold, {"b"});
    addAll(table, WordKind::Italic, {"i"});
    addAll(table, WordKind::Underline,
           {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhwave", "ulldash", "ulth", "ulthd",
            "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw", "ulwave"});
    addAll(table, WordKind::NoUnderline, {"ulnone"});
    addAll(table, WordKind::Skipped,
           {"colortbl",
            "stylesheet",
            "info",
            "pict",
            "objdata",
            "objclass",
            "objname",
            "header",
            "headerl",
            "headerr",
            "headerf",
            "footer",
            "footerl",
            "footerr",
            "footerf",
            "ftnsep",
            "ftnsepc",
            "ftncn",
            "aftnsep",
            "aftnsepc",
            "aftncn",
            "fldinst",
            "filetbl",
            "listtable",
            "listoverridetable",
            "revtbl",
            "rsidtbl",
            "xe",
            "tc",
            "tcn",
            "rxe",
            "nonshppict",
            "nonesttables",
            "shprslt",
            "bkmkstart",
            "bkmkend",
            "template",
            "private",
            "generator",
            "mmathPr",
            "themedata",
            "colorschememapping",
            "latentstyles",
            "datastore",
            "annotation",
            "atnid",
            "atnauthor"});
    addAll(table, WordKind::Shape, {"shpinst", "do"});
    addAll(table, WordKind::ShapeText, {"shptxt", "dptxbxtext"});
    addAll(table, WordKind::UnicodePair, {"upr"});
    addAll(table, WordKind::UnicodeText, {"ud"});
    addAll(table, WordKind::Footnote, {"footnote"});
    addAll(table, WordKind::FontTable, {"fonttbl"});
    return table;
}

}  // namespace

WordMeaning meaningOf(const QByteArray& word) {
    static const Table table = makeTable();
    return table.value(word);
}

QChar characterOfSymbol(char symbol) {
    switch (symbol) {
    case '~':
        return QChar(0xA0);
    case '-':
        return QChar(0xAD);
    case '_':
        return QChar(0x2011);
    case '\t':
        return QLatin1Char('\t');
    case '\r':
    case '\n':
        return QLatin1Char('\n');
    default:
        return {};
    }
}

}  // namespace RtfReader
