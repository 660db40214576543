#pragma once

#include "cli/Command.h"

namespace cli {

/// What the arguments ask for.
struct Request {
    enum class Wants { Command, Text, Nothing };
    Wants wants = Wants::Nothing;
    const Command* command = nullptr;  ///< of Wants::Command
    Invocation invocation = {};        ///< likewise
    QString text = {};                 ///< to be printed, for Wants::Text; what is wrong, for Wants::Nothing
};

/// Reads the arguments after the program's own name. After "--" all are arguments, whatever they begin with.
Request readArguments(const QStringList& arguments);

}  // namespace cli
