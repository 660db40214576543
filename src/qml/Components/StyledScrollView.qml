import QtQuick 2.15
import QtQuick.Controls 1.4
import "."

// A view that scrolls, with the bars of the theme.
ScrollView {
    style: ApplicationStyle.scroll_view_style
}
