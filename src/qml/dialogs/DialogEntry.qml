import QtQuick 2.15

// One dialog of a chain: when it is wanted, what it shows, and what its closing resets.
QtObject {
    property bool wanted: false
    default property Component implementation

    signal closed()
}
