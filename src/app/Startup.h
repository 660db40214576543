#pragma once

class KRNFile;

/// The start of the program, as a straight line of steps.
namespace startup {

/// What Qt wants to know before the application object exists. An environment that chooses a backend for Qt
/// Quick keeps its choice.
void prepare();

/// Style, names, the project with its models, logging rules, fonts and QML types: once, in this order, when
/// the application object exists. Gives the project, which that object owns.
KRNFile* setUp();

/// The whole program from `prepare` to the end of the event loop; gives the exit code.
int run(int& argc, char** argv);

}  // namespace startup
