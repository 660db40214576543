#pragma once

#include "cli/Command.h"

// Each in a file of its own.
namespace cli {

Outcome exportCsv(const Invocation& invocation, const Console& console);
Outcome exportDocx(const Invocation& invocation, const Console& console);
Outcome exportJson(const Invocation& invocation, const Console& console);
Outcome exportQdpx(const Invocation& invocation, const Console& console);
Outcome importQdpx(const Invocation& invocation, const Console& console);
Outcome importFiles(const Invocation& invocation, const Console& console);
Outcome importCsv(const Invocation& invocation, const Console& console);
Outcome info(const Invocation& invocation, const Console& console);
Outcome merge(const Invocation& invocation, const Console& console);
Outcome report(const Invocation& invocation, const Console& console);
Outcome search(const Invocation& invocation, const Console& console);

}  // namespace cli
