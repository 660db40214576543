#pragma once

namespace cli {

/// The whole program, from its arguments to its exit status.
int run(int& argc, char** argv);

}  // namespace cli
