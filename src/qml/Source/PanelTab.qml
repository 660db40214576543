import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// A tab that chooses what the right column shows.
TabShape {
    property string iconName

    width: Units.dp(44)
    height: parent.height
    selectedColor: ApplicationStyle.selected_tab_alternative
    notSelectedColor: ApplicationStyle.not_selected_tab_alternative
    icon: Utils.iconSourceForTheme(iconName, ApplicationStyle.dark)
}
