#pragma once

#include <QString>

/// The cloud's host in the settings of this machine. What the environment says goes before it, what the build
/// says after it.
namespace cloudhost {

/// Hands the stored host to ServiceConfig; once, before anything asks for a server.
void load();

/// Stores the host, in use from now on; an empty text takes the stored one away. Gives a sentence, and
/// changes nothing, when the text is no address of a server.
QString store(const QString& text);

struct Test {
    bool passed = false;
    QString sentence;  ///< what came of it, for people
};
/// Asks the server at that address for its version. Waits in a local event loop.
Test test(const QString& text);

}  // namespace cloudhost
