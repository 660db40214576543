#include "import/rtf/CodePages.h"

#include <QTextCodec>
#include <algorithm>
#include <iterator>

namespace RtfReader {

namespace {

struct Charset {
    int charset;
    int codePage;
};

constexpr Charset charsets[] = {
    {0, westernCodePage},
    {2, westernCodePage},
    {77, 10000},
    {78, 932},
    {79, 949},
    {80, 936},
    {81, 950},
    {85, 10006},
    {86, 10081},
    {88, 10029},
    {89, 10007},
    {128, 932},
    {129, 949},
    {134, 936},
    {136, 950},
    {161, 1253},
    {162, 1254},
    {163, 1258},
    {177, 1255},
    {178, 1256},
    {186, 1257},
    {204, 1251},
    {222, 874},
    {238, 1250},
    {254, 437},
    {255, 850},
};

// Pages that don't go by the name "windows-" and their number. 936 is read by its superset.
struct PageName {
    int codePage;
    const char* name;
};

constexpr PageName pageNames[] = {
    {437, "IBM437"},        {775, "IBM775"},           {850, "IBM850"},     {852, "IBM852"},
    {855, "IBM855"},        {857, "IBM857"},           {860, "IBM860"},     {861, "IBM861"},
    {862, "IBM862"},        {863, "IBM863"},           {864, "IBM864"},     {865, "IBM865"},
    {866, "IBM866"},        {869, "IBM869"},           {874, "TIS-620"},    {932, "Shift_JIS"},
    {936, "GB18030"},       {949, "windows-949"},      {950, "Big5"},       {10000, "macintosh"},
    {10006, "x-mac-greek"}, {10007, "x-mac-cyrillic"}, {10029, "x-mac-ce"}, {10081, "x-mac-turkish"},
    {54936, "GB18030"},     {65001, "UTF-8"},
};

QByteArray nameOfPage(int codePage) {
    const auto* const named =
        std::find_if(std::begin(pageNames), std::end(pageNames),
                     [codePage](const PageName& page) { return page.codePage == codePage; });
    if (named != std::end(pageNames))
        return named->name;
    const bool windows = codePage >= 1250 && codePage <= 1258;
    return "windows-" + QByteArray::number(windows ? codePage : westernCodePage);
}

}  // namespace

int codePageOfCharset(int charset) {
    const auto* const found = std::find_if(std::begin(charsets), std::end(charsets),
                                           [charset](const Charset& row) { return row.charset == charset; });
    return found == std::end(charsets) ? 0 : found->codePage;
}

const QTextCodec* codecOfPage(int codePage) {
    const QTextCodec* const codec = QTextCodec::codecForName(nameOfPage(codePage));
    return codec ? codec : QTextCodec::codecForName("windows-1252");
}

}  // namespace RtfReader
