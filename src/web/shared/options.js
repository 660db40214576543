// The options beside a page: panels that fold, with boxes to tick. Their parts have no scope of their own, so that a
// model is called what it is called in the page.
function addOptionParts(app) {
    "use strict";

    function attribute(name, value) { return value === undefined ? "" : " " + name + '="' + value + '"'; }

    function part(name, template) {
        app.directive(name, function () { return { restrict: "E", template: template }; });
    }

    part("optionPanel", function (element, given) {
        var state = given.state ? ' <span class="state">{{ ' + given.state + " }}</span>" : "";
        return '<div class="panel panel-default"><div class="panel-heading"><a data-toggle="collapse" data-target="#' + given.name + '">'
            + given.heading + state + '</a></div><div id="' + given.name + '" class="panel-body collapse' + ("folded" in given ? "" : " in")
            + '">' + element.html() + "</div></div>";
    });

    part("optionBox", function (element, given) {
        return '<div class="checkbox"><label' + attribute("title", given.hint) + '><input type="checkbox"' + attribute("ng-model", given.model)
            + attribute("ng-change", given.changed) + attribute("ng-disabled", given.disabledIf) + ">" + element.html() + "</label></div>";
    });

    // For a list of records with a box each.
    part("allOrNone", function (element, given) {
        return ["Select", "Deselect"].map(function (word) {
            return '<a class="all" ng-click="selectAll(' + given.list + ", '" + given.field + "', " + (word === "Select") + ')">[' + word + " All]</a>";
        }).join(" ");
    });
    return part;
}
