#pragma once

/// Bounds and intervals of the link to the data service, in milliseconds unless a row says otherwise.
/// The defaults are the program's; tests hand in shorter ones.
struct LinkTimings {
    int ping = 3000;         ///< between two pings while the socket is open
    int pong = 2500;         ///< after a ping, until the link counts as lost
    int disconnect = 60000;  ///< after the last loss, until the socket is aborted
    int request = 50000;     ///< bound of a blocking request
    int http = 15000;        ///< bound of a blocking HTTP call
    int transfer = 60000;  ///< of an up- or download or another call to the cloud, in which not a byte moves
    int reconnect = 2000;  ///< between two attempts to connect again
    int start = 30000;     ///< for the local service to start, to name its port and to answer the handshake
    int portLine = 200;    ///< for the rest of a port line whose end has not been read yet
    int lastFrames = 200;  ///< for the end of the socket of a local service that has ended by itself
    int stop = 10000;      ///< for a local service that was asked to end, until it is killed
    int tokenAge = 1500;   ///< seconds after which cloud tokens are refreshed
};
