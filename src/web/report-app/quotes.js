// The quotes of a report, of which there may be tens of thousands: each a copy of the page's template, with no scope and
// no watcher of its own. They come in slices between which the page lives, those that are shown first.
var QuoteLists = (function () {
    "use strict";

    var sliceTime = 40;  // milliseconds
    // Anything but text with the marks and signs that a report's own texts have; half an emoji is no text.
    var foreign = /<(?!\/?[biu]>)|&(?!(?:amp|lt|gt|quot|#39);)|[\ud800-\udfff]/;

    // `style` gives how a quote looks, `properties` the text of its source's properties.
    function QuoteLists($sanitize, $filter, style, properties) {
        this.sanitize = $sanitize;
        this.filter = $filter;
        this.style = style;
        this.properties = properties;
        this.template = document.getElementById("quote_template").content;
        this.note = document.getElementById("quotes_note");
        this.lists = [];
        this.isRunning = false;
        window.addEventListener("beforeprint", this.finish.bind(this));
    }

    // Shows these quotes in the element in place of those that it has.
    QuoteLists.prototype.set = function (element, quotes) {
        var list = this.lists.find(function (known) { return known.element === element; });
        if (!list) {
            list = { element: element, section: element.closest("section") };
            this.lists.push(list);
        }
        element.textContent = "";
        list.quotes = quotes;
        list.made = 0;
        this.run();
    };

    QuoteLists.prototype.run = function () {
        var self = this;
        if (self.isRunning)
            return;
        self.isRunning = true;
        setTimeout(function slice() {
            self.build(performance.now() + sliceTime, false);
            self.tell();
            self.isRunning = self.lists.some(isUnfinished);
            if (self.isRunning)
                setTimeout(slice, 0);
        }, 0);
    };

    // What is printed is whole.
    QuoteLists.prototype.finish = function () {
        this.build(Infinity, true);
        this.tell();
    };

    QuoteLists.prototype.build = function (deadline, onlyShown) {
        var waiting = this.lists.filter(isUnfinished);
        var shown = waiting.filter(isShown);
        if (!onlyShown)
            shown = shown.concat(waiting.filter(function (list) { return !isShown(list); }));
        for (var i = 0; i < shown.length; ++i) {
            var part = document.createDocumentFragment();
            while (isUnfinished(shown[i]) && performance.now() < deadline)
                part.appendChild(this.make(shown[i].quotes[shown[i].made++]));
            shown[i].element.appendChild(part);
            if (performance.now() >= deadline)
                return;
        }
    };

    // How far the lists are that a person sees.
    QuoteLists.prototype.tell = function () {
        var shown = this.lists.filter(isShown);
        function sum(of) { return shown.reduce(function (total, list) { return total + of(list); }, 0); }
        var made = sum(function (list) { return list.made; });
        var all = sum(function (list) { return list.quotes.length; });
        this.note.hidden = made === all;
        this.note.textContent = "Adding the quotes: " + this.filter("number")(made) + " of " + this.filter("number")(all);
    };

    QuoteLists.prototype.make = function (quote) {
        var block = document.importNode(this.template, true).firstElementChild;
        var filter = this.filter;
        var kerno = quote.kerno || {};
        function fill(name, text) { block.querySelector(name).textContent = text === undefined ? "" : text; }
        function percent(value) { return filter("number")(value, 2) + "%"; }
        block.querySelector(".quote_text").innerHTML = foreign.test(quote.answer) ? this.sanitize(quote.answer) : quote.answer;
        fill(".quote_source b", quote.source ? quote.source.title : "");
        fill(".quote_theme b", kerno.title);
        fill(".quote_theme span", filter("parenthesize")(filter("hierarchy")(quote.kerno)));
        fill(".quote_coder b", quote.codedBy);
        fill(".quote_coder span", filter("time")(quote.codedAt));
        fill(".quote_coverage", "Coverage: " + percent(quote.source_percentage) + " of the source, "
             + percent(quote.global_percentage) + " of all sources");
        fill(".quote_id", "Highlight ID: #" + quote.highlightId);
        this.dress(block, quote);
        return block;
    };

    // What the options change in a quote that is there.
    QuoteLists.prototype.dress = function (block, quote) {
        var kerno = quote.kerno || {};
        block.setAttribute("style", this.style.block(kerno.color));
        block.firstElementChild.setAttribute("style", this.style.text(kerno.color, kerno.textColor));
        block.querySelector(".quote_properties").textContent = this.properties(quote.source);
    };

    QuoteLists.prototype.dressAll = function () {
        var self = this;
        self.lists.forEach(function (list) {
            for (var i = 0, block = list.element.firstElementChild; block; ++i, block = block.nextElementSibling)
                self.dress(block, list.quotes[i]);
        });
    };

    function isUnfinished(list) { return list.made < list.quotes.length; }
    function isShown(list) { return !list.section.classList.contains("ng-hide"); }

    return QuoteLists;
}());
