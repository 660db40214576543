import QtQuick 2.15

QtObject {
    property int memoId: 0
    property int sourceId: 0

    function maxMemoId() { return memoId }
    function maxSourceId() { return sourceId }
}
