/* global angular, addOptionParts, QuoteLists, ReportDocument, kernos, sources, metadataKeys, highlightsCoverageByAuthor, highlightsCoverageByKerno,
   highlightsCoverageByKernoAndAuthor, questions, kernosWithOverlaps, kernosWithHierarchy, textSortedByCode,
   textSortedBySource, textSortedByQuestion, textSortedByCodeSummary, memosSortedBySource, generateHierarchyViews,
   generateOverlapViews, reportTimestamp, reportAuthor, reportFile */
(function () {
    "use strict";

    // The table of the properties overview in the program. One entry lacks its sign there, too.
    var colorsArray = ["#0069b7", "#b1c901", "#424242", "#ff9c00", "#00c3b7", "#3fc00d", "#e60081", "#a2a2a2", "#ab016c",
                       "#1abee3", "#b68407", "#e541b4", "#b115be", "#133b5e", "#c00000", "#987677", "#5c9805", "db0000",
                       "#705655", "#f8d300", "#60507f", "#a3b9c7", "#c9bdb1", "#922635", "#016f94"];
    var levelNames = ["[PARENT]", "[CHILD]", "[GRAND CHILD]"];
    var levelLetters = ["[P]", "[C]", "[GC]"];
    var titleSeparator = "::__::";

    function dateText(timestamp) {
        return timestamp ? new Date(timestamp * 1000).toString() : "";
    }

    function byId(list, name) {
        var map = {};
        list.forEach(function (record) { map[record[name]] = record; });
        return map;
    }

    var app = angular.module("app", ["ngSanitize"]);

    app.filter("yn", function () { return function (value) { return value ? "[YES]" : "[NO]"; }; });
    app.filter("parenthesize", function () { return function (text) { return text ? "(" + text + ")" : ""; }; });
    app.filter("levelFull", function () { return function (level) { return levelNames[level] || ""; }; });
    app.filter("levelAbbr", function () { return function (level) { return levelLetters[level] || ""; }; });
    app.filter("disabledClass", function () { return function (enabled) { return enabled ? "enabled" : "disabled"; }; });
    app.filter("hierarchy", function () {
        return function (kerno) { return kerno && kerno.level > 0 ? kerno.hierarchy_title.split(titleSeparator).join(" / ") : ""; };
    });
    app.filter("defaultString", function () {
        return function (value, missing) {
            return value === undefined || value === null || value.length === 0 ? missing : value;
        };
    });
    app.filter("time", ["dateFilter", function (date) {
        return function (seconds) { return seconds ? date(seconds * 1000, "medium") : ""; };
    }]);

    var part = addOptionParts(app);

    part("kernoBoxes", function (element, given) {
        return '<all-or-none list="kernos" field="' + given.field + '"></all-or-none>'
            + '<option-box class="nested level_{{ ::kerno.level }} {{ ::(kerno.' + given.needs + ' | disabledClass) }}" ng-repeat="kerno in ::kernos"'
            + ' model="kerno.' + given.field + '" disabled-if="::!kerno.' + given.needs + '" hint="{{ ::(kerno.level | levelFull) }}">'
            + "{{ ::kerno.title }} <small>{{ ::(kerno.level | levelAbbr) }}</small></option-box>";
    });

    part("kernoName", function (element, given) {
        return '<span class="kerno_dot" style="background-color: {{ ::' + given.of + '.color }} !important"></span><span ng-bind="::' + given.of + '.title"></span>';
    });

    // The quotes of the group around it, in an order that can be chosen.
    app.directive("quoteList", ["$filter", function ($filter) {
        return {
            restrict: "E",
            link: function (scope, element, given) {
                function show(order) {
                    var quotes = scope.group.quotes;
                    scope.quoteLists.set(element[0], order ? $filter("orderBy")(quotes, order) : quotes);
                }
                if (given.sort)
                    scope.$watch(given.sort, show);
                else
                    show();
            }
        };
    }]);

    // A picture that can be missing: another of the same name comes in its place, or a sentence does.
    app.directive("reportPicture", function () {
        return {
            restrict: "E",
            template: '<img class="picture" alt=""><p class="nothing picture_missing">This report was made without this picture.</p>',
            link: function (scope, element, attributes) {
                var image = element.find("img");
                attributes.$observe("name", function (name) { image.attr("id", name); });
                attributes.$observe("file", function (file) {
                    image.removeClass("missing");
                    image.attr("src", file);
                });
                image.on("error", function () {
                    var other = attributes.file.replace(/(_num)?\.png$/, "_num.png");
                    if (image.attr("src") === other)
                        image.addClass("missing");
                    else
                        image.attr("src", other);
                });
            }
        };
    });

    app.controller("AppController", ["$scope", "$sanitize", "$filter", function ($scope, $sanitize, $filter) {
        $scope.reportTimestamp = reportTimestamp;
        $scope.reportAuthor = reportAuthor;
        $scope.reportFile = reportFile;
        $scope.generateHierarchyViews = generateHierarchyViews;
        $scope.generateOverlapViews = generateOverlapViews;
        $scope.metadataKeys = metadataKeys;
        $scope.questions = questions;
        $scope.highlightsCoverageByAuthor = highlightsCoverageByAuthor;
        $scope.highlightsCoverageByKernoAndAuthor = highlightsCoverageByKernoAndAuthor;
        $scope.textSortedByCode = textSortedByCode;
        $scope.textSortedBySource = textSortedBySource;
        $scope.textSortedByQuestion = textSortedByQuestion;
        $scope.memosSortedBySource = memosSortedBySource;
        $scope.multiple_questions = questions.length > 1;
        $scope.colorsArray = colorsArray;

        // Options
        $scope.show_report_info = true;
        $scope.show_sources_summary = true;
        $scope.show_kernos_summary = true;
        $scope.show_authors_summary = false;
        $scope.show_metadata_summary = true;
        $scope.show_canvas_views = true;
        $scope.show_hierarchy_views = false;
        $scope.show_overlap_views = false;
        $scope.show_memos_by_source = true;
        $scope.show_canvas_view_numbers = true;
        $scope.show_canvas_view = { primary: true, by_title_asc: false, by_title_desc: false,
                                    by_time_asc: false, by_time_desc: false };
        $scope.show_hierarchy_view_numbers = true;
        $scope.show_overlap_view_numbers = true;
        $scope.show_text_by_code = true;
        $scope.text_by_code__code_sort_by = "";
        $scope.show_coded_by = false;
        $scope.show_theme_description = false;
        $scope.show_coverage = false;
        $scope.show_highlight_id = false;
        $scope.highlight_style = 1;
        $scope.include_metadata_in_quotes = false;

        // What they offer. A minus sorts downwards.
        $scope.canvasViews = [
            { name: "primary", file: "default", label: "Primary Canvas", heading: "Kernos Canvas - Primary" },
            { name: "by_title_asc", file: "alpha_asc", label: "By Title - Ascending", heading: "Kernos Canvas - By Title (Ascending)" },
            { name: "by_title_desc", file: "alpha_desc", label: "By Title - Descending", heading: "Kernos Canvas - By Title (Descending)" },
            { name: "by_time_asc", file: "time_asc", label: "By Time - Ascending", heading: "Kernos Canvas - By Time (Ascending)" },
            { name: "by_time_desc", file: "time_desc", label: "By Time - Descending", heading: "Kernos Canvas - By Time (Descending)" }
        ];
        $scope.codeSortOptions = [
            { label: "Default", key: "" }, { label: "Kerno Title", key: "kerno.hierarchy_title" },
            { label: "Coverage", key: "-global_percentage" }, { label: "Quotes Count", key: "-quotes_count" }
        ];
        $scope.quoteSortOptions = [
            { label: "Default", key: undefined }, { label: "Source Title", key: "source.title" },
            { label: "Position in Source", key: "start" }, { label: "Date and Time", key: "timestamp" }
        ];
        $scope.sourceSortOptions = [{ label: "Default - No Sort", key: undefined }].concat(metadataKeys.map(function (key) {
            return { label: key.key, key: "source.__metadata['" + key.keyId + "']" };
        }));
        $scope.highlightStyles = [
            { key: 1, label: "Coloured stripe beside quote" }, { key: 2, label: "Highlight quoted text" },
            { key: 3, label: "Colour quoted text" }
        ];

        function initMetadataKeys() {
            metadataKeys.forEach(function (key) { key.include_in_quote = false; });
        }

        // Depth first, three levels.
        function loadKernos() {
            var counts = byId(highlightsCoverageByKerno, "kernoId");
            $scope.kernos = [];
            function add(parentId, level, parents) {
                if (level > 2)
                    return;
                kernos.forEach(function (kerno) {
                    if (kerno.parentKernoId !== parentId)
                        return;
                    var titles = parents.concat([kerno.title]);
                    kerno.level = level;
                    kerno.overlap_view = true;
                    kerno.hierarchy_view = true;
                    kerno.parentTitle = level > 0 ? parents[level - 1] : "";
                    kerno.grandparentTitle = level > 1 ? parents[level - 2] : "";
                    kerno.hierarchy_title = titles.join(titleSeparator);
                    kerno.hasHierarchy = level === 0 && kernosWithHierarchy.indexOf(kerno.kernoId) >= 0;
                    kerno.hasOverlaps = kernosWithOverlaps.indexOf(kerno.kernoId) >= 0;
                    kerno.quotesCount = counts[kerno.kernoId] ? counts[kerno.kernoId].count : 0;
                    $scope.kernos.push(kerno);
                    add(kerno.kernoId, level + 1, titles);
                });
            }
            add(-1, 0, []);
            kernosById = byId($scope.kernos, "kernoId");
        }

        function loadSources() {
            $scope.sources = sources;
            sources.forEach(function (source) {
                source.__metadata = {};
                source.__metadata_multi = {};
                source.metadata.forEach(function (entry) {
                    var before = source.__metadata_multi[entry.keyId];
                    source.__metadata[entry.keyId] = entry.value;
                    source.__metadata_multi[entry.keyId] = before === undefined ? String(entry.value) : before + ", " + entry.value;
                });
            });
            sourcesById = byId(sources, "sourceId");
        }

        function initAuthors() {
            $scope.authors = highlightsCoverageByAuthor.map(function (row) { return row.author; });
        }

        function sum(list, name) {
            return list.reduce(function (total, entry) { return total + entry[name]; }, 0);
        }

        function analyseTextSortedByCode() {
            textSortedByCode.forEach(function (group) {
                group.quotes_count = group.quotes.length;
                group.global_percentage = sum(group.quotes, "global_percentage");
                group.source_percentage = sum(group.quotes, "source_percentage");
                group.quotes.forEach(function (quote) {
                    quote.source = sourcesById[quote.sourceId];
                    quote.kerno = kernosById[group.kernoId];
                });
            });
        }

        function analyseTextSortedBySource() {
            textSortedBySource.forEach(function (group) {
                group.source = sourcesById[group.sourceId];
                group.quotes.forEach(function (quote) {
                    quote.kerno = kernosById[quote.kernoId];
                    quote.source = group.source;
                });
            });
        }

        function analyseTextSortedByQuestion() {
            textSortedByQuestion.forEach(function (group) {
                group.quotes.forEach(function (quote) {
                    quote.source = sourcesById[quote.sourceId];
                    quote.kerno = kernosById[quote.kernoId];
                });
            });
        }

        function analyseMemosSortedBySource() {
            memosSortedBySource.forEach(function (group) { group.source = sourcesById[group.sourceId]; });
        }

        function setKernos() {
            [highlightsCoverageByKerno, highlightsCoverageByKernoAndAuthor, textSortedByCode, textSortedBySource,
             textSortedByQuestion, textSortedByCodeSummary].forEach(function (list) {
                list.forEach(function (entry) { entry.kerno = kernosById[entry.kernoId]; });
            });
        }

        var kernosById = {};
        var sourcesById = {};
        initMetadataKeys();
        loadKernos();
        loadSources();
        initAuthors();
        analyseTextSortedByCode();
        analyseTextSortedBySource();
        analyseTextSortedByQuestion();
        analyseMemosSortedBySource();
        setKernos();

        $scope.getColor = function (index) { return colorsArray[index % colorsArray.length]; };
        $scope.barColor = function (index) { return $scope.getColor(index).replace(/^#?/, "#"); };
        $scope.totalCodes = function () { return sum($scope.kernos, "quotesCount"); };

        $scope.blockquoteStyle = function (color) {
            return $scope.highlight_style === 1 ? "border-left-color: " + color + "!important" : "";
        };
        $scope.quoteTextStyle = function (color, textColor) {
            if ($scope.highlight_style === 2)
                return "color: " + textColor + "!important; background-color: " + color + "!important;";
            if ($scope.highlight_style === 3)
                return "color: " + color + "!important;";
            return "color: #2c3e50!important";
        };
        function chosenKeys() {
            return $scope.include_metadata_in_quotes ? metadataKeys.filter(function (key) { return key.include_in_quote; }) : [];
        }
        $scope.quoteProperties = function (source) {
            return chosenKeys().map(function (key) {
                var value = source ? source.__metadata_multi[key.keyId] : undefined;
                return key.key + ": " + (value === undefined || value === "" ? "-- No Value --" : value);
            }).join("; ");
        };
        $scope.quoteLists = new QuoteLists($sanitize, $filter, { block: $scope.blockquoteStyle, text: $scope.quoteTextStyle },
                                           $scope.quoteProperties);
        $scope.$watchGroup(["highlight_style", function () { return chosenKeys().map(function (key) { return key.keyId; }).join(); }],
                           function (now, before) {
            if (now !== before)
                $scope.quoteLists.dressAll();
        });

        function pictureName(stem, numbers) { return "data/" + stem + (numbers ? "_num.png" : ".png"); }
        $scope.canvasPicture = function (view) { return pictureName("main_canvas_" + view.file, $scope.show_canvas_view_numbers); };
        $scope.hierarchyPicture = function (kerno) { return pictureName("hierarchy_" + kerno.kernoId, $scope.show_hierarchy_view_numbers); };
        $scope.overlapPicture = function (kerno) { return pictureName("overlap_" + kerno.kernoId, $scope.show_overlap_view_numbers); };
        $scope.anyHierarchyShown = function () {
            return $scope.kernos.some(function (kerno) { return kerno.hierarchy_view && kerno.hasHierarchy; });
        };
        $scope.anyOverlapShown = function () {
            return $scope.kernos.some(function (kerno) { return kerno.overlap_view && kerno.hasOverlaps; });
        };
        $scope.selectAll = function (list, name, selected) {
            list.forEach(function (entry) { entry[name] = selected; });
        };

        window.generateDocx = function () {
            return ReportDocument.generate($scope, dateText, function (sentence) {
                var note = document.getElementById("word_note");
                note.textContent = sentence;
                note.hidden = !sentence;
            });
        };
    }]);
}());
