import QtQuick 2.15
import QtQuick.Controls 1.4

// A menu in the colours of the theme.
Menu {
    style: Component { ThemedMenuStyle {} }
}
