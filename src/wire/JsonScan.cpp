#include "wire/JsonScan.h"

namespace jsonscan {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// The place after the string that opens at `at`, or -1.
int afterString(const QByteArray& text, int at, int end) {
    for (++at; at < end; ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            return at + 1;
    }
    return -1;
}

/// The place after the value that begins at `at`, or -1.
int afterValue(const QByteArray& text, int at, int end) {
    int depth = 0;
    while (at < end) {
        const char c = text[at];
        if (c == '"') {
            at = afterString(text, at, end);
            if (at < 0)
                return -1;
        } else if (c == '{' || c == '[') {
            ++depth;
            ++at;
        } else if (c == '}' || c == ']') {
            if (depth == 0)
                return at;
            --depth;
            ++at;
        } else if (depth == 0 && (c == ',' || isBlank(c))) {
            return at;
        } else {
            ++at;
            continue;
        }
        if (depth == 0)
            return at;
    }
    return depth == 0 ? at : -1;
}

bool eachEntry(const QByteArray& text, Span span, char opening, char closing, const Visit& visit) {
    int at = span.begin;
    const auto skip = [&] {
        while (at < span.end && isBlank(text[at]))
            ++at;
        return at < span.end;
    };
    if (!skip() || text[at] != opening)
        return false;
    ++at;
    if (!skip())
        return false;
    if (text[at] == closing)
        return true;
    for (;;) {
        QByteArray key;
        if (opening == '{') {
            if (!skip() || text[at] != '"')
                return false;
            const int after = afterString(text, at, span.end);
            if (after < 0)
                return false;
            key = text.mid(at + 1, after - at - 2);
            at = after;
            if (!skip() || text[at] != ':')
                return false;
            ++at;
        }
        if (!skip())
            return false;
        const int after = afterValue(text, at, span.end);
        if (after <= at)
            return false;
        if (!visit(key, {at, after}))
            return true;
        at = after;
        if (!skip())
            return false;
        if (text[at] == closing)
            return true;
        if (text[at] != ',')
            return false;
        ++at;
    }
}

}  // namespace

bool nestsDeeperThan(const QByteArray& text, int limit) {
    int depth = 0;
    for (int at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            at = afterString(text, at, text.size());
            if (at < 0)
                return false;
            --at;
        } else if (c == '{' || c == '[') {
            if (++depth > limit)
                return true;
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return false;
}

bool eachMember(const QByteArray& text, Span span, const Visit& visit) {
    return eachEntry(text, span, '{', '}', visit);
}

bool eachElement(const QByteArray& text, Span span, const Visit& visit) {
    return eachEntry(text, span, '[', ']', visit);
}

QByteArray part(const QByteArray& text, Span span) {
    return text.mid(span.begin, span.end - span.begin);
}

}  // namespace jsonscan
