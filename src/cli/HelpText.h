#pragma once

#include "cli/Command.h"

namespace cli {

QString version();
/// A command's name with its arguments and options: "info PROJECT [--json]".
QString usage(const Command& command);
/// The help of one command, and of the program.
QString helpText(const Command& command);
QString helpText();
/// The manual in the notation of man(7).
QString manualPage();

}  // namespace cli
