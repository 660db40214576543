/* global angular, addOptionParts, WordCloud, stopWords, sources, wordCountBySource, wordCloudTimestamp, wordCloudAuthor, wordCloudFile */
(function () {
    "use strict";

    var app = angular.module("app", []);
    addOptionParts(app);

    app.controller("AppController", ["$scope", "$timeout", function ($scope, $timeout) {
        $scope.wordCloudTimestamp = wordCloudTimestamp;
        $scope.wordCloudAuthor = wordCloudAuthor;
        $scope.wordCloudFile = wordCloudFile;
        $scope.sources = sources;
        $scope.shapes = [
            { key: "circle", label: "Circle" }, { key: "diamond", label: "Diamond" }, { key: "star", label: "Star" },
            { key: "triangle-forward", label: "Triangle forward" }, { key: "triangle", label: "Triangle up-right" }
        ];
        $scope.shape = "circle";
        $scope.rotate = false;
        $scope.minSize = 1;
        $scope.selectAll = true;
        $scope.includeStop = true;
        $scope.newStopWord = "";
        $scope.shownWords = 200;
        $scope.stopWords = stopWords.map(function (word) { return { word: word.toLowerCase(), stop: true }; });
        sources.forEach(function (source) { source.showWords = true; });

        function stoppedWords() {
            var stopped = new Set();
            $scope.stopWords.forEach(function (entry) {
                if (entry.stop)
                    stopped.add(entry.word);
            });
            return stopped;
        }

        // Pairs of word and count, the most frequent first. `takes` tells which sources count.
        function counted(takes, stopped) {
            var counts = new Map();
            wordCountBySource.forEach(function (source) {
                if (!takes(source.sourceId))
                    return;
                source.wordCount.forEach(function (entry) {
                    var word = entry.word.toLowerCase();
                    if (counts.has(word))
                        counts.set(word, counts.get(word) + entry.count);
                    else if (!stopped.has(word))
                        counts.set(word, entry.count);
                });
            });
            return Array.from(counts).sort(function (a, b) { return b[1] - a[1]; });
        }

        function createList() {
            var shown = new Set();
            sources.forEach(function (source) {
                if (source.showWords)
                    shown.add(source.sourceId);
            });
            $scope.wordlist = counted(function (sourceId) { return shown.has(sourceId); }, stoppedWords());
            return $scope.wordlist;
        }

        // The words of the project, whichever sources are shown.
        $scope.getAllWord = function () {
            $scope.allWords = counted(function () { return true; }, $scope.includeStop ? new Set() : stoppedWords());
            return $scope.allWords;
        };

        function weightNorm(max, weight) {
            return weight <= 50 ? weight / 50 : weight % 50;
        }

        function initialWeight(max) {
            return max < 50 ? 60 : max < 100 ? 40 : max < 200 ? 20 : 10;
        }

        $scope.generateCloud = function () {
            var canvas = document.getElementById("canvas");
            canvas.getContext("2d").clearRect(0, 0, canvas.width, canvas.height);
            var list = createList();
            $scope.getAllWord();
            var first = list[0][1];
            WordCloud(canvas, {
                list: list,
                gridSize: 16,
                weightFactor: weightNorm(first, Number($scope.weight)),
                fontFamily: "Lato, serif",
                rotateRatio: 0.5,
                rotationSteps: $scope.rotate ? 8 : 2,
                backgroundColor: "white",
                color: "random-dark",
                minSize: weightNorm(first, Number($scope.weight)) * $scope.minSize / 100 * first,
                shape: $scope.shape
            });
        };

        $scope.addNewStopWord = function () {
            var word = $scope.newStopWord.trim().toLowerCase();
            if (word === "")
                return;
            var known = $scope.stopWords.filter(function (entry) { return entry.word === word; })[0];
            if (known) {
                known.stop = true;
            } else {
                $scope.stopWords.push({ word: word, stop: true });
                $scope.stopWords.sort(function (a, b) { return a.word < b.word ? -1 : a.word > b.word ? 1 : 0; });
            }
            $scope.newStopWord = "";
            $scope.generateCloud();
        };

        $scope.showMore = function () { $scope.shownWords += 200; };

        $scope.stopAllWords = function () {
            $scope.stopWords.forEach(function (entry) { entry.stop = $scope.selectAll; });
            $scope.generateCloud();
        };

        if (createList().length > 0)
            $scope.weight = initialWeight($scope.wordlist[0][1]);
        $timeout($scope.generateCloud);
    }]);
}());
