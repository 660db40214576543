.pragma library

// The sets of values that a property is made with at once.
var sets = [
    { text: qsTr("Yes / No"), values: [qsTr("Yes"), qsTr("No")] },
    { text: qsTr("True / False"), values: [qsTr("True"), qsTr("False")] },
    { text: qsTr("1 - 10"), values: ["1", "2", "3", "4", "5", "6", "7", "8", "9", "10"] },
    { text: qsTr("(Strongly) Agree - (Strongly) Disagree"),
      values: [qsTr("Strongly Agree"), qsTr("Agree"), qsTr("Not Sure"), qsTr("Disagree"), qsTr("Strongly Disagree")] }
]
