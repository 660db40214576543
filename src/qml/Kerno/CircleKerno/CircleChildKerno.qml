import QtQuick 2.15

CircleKernoBase {
    level: 2
}
