#pragma once

#include <QString>

/// The two ways in which this program writes archives.
enum class ExchangeForm {
    /// Text files hold XML entities, and positions count UTF-16 units within one answer.
    Own,
    /// To the letter of the standard: plain text files, positions in code points over the whole source.
    Standard
};

/// What the attribute `origin` of an archive in that form says.
QString originOf(ExchangeForm form);

/// The form in which an archive of that origin is to be read: those of other programs keep to the standard.
ExchangeForm formOf(const QString& origin);
