/* global DocxBundle */
// The selection of the page as a Word document.
var ReportDocument = (function () {
    "use strict";

    var docx = DocxBundle.docx;
    var sliceTime = 50;  // milliseconds
    var paintTime = 60;
    var points = 2;  // Sizes of letters count in halves of a point.
    var headingColor = "446280";
    var noBorder = { style: docx.BorderStyle.NONE, size: 0, color: "FFFFFF" };
    var noBorders = { top: noBorder, bottom: noBorder, left: noBorder, right: noBorder };
    var noTableBorders = { top: noBorder, bottom: noBorder, left: noBorder, right: noBorder,
                           insideHorizontal: noBorder, insideVertical: noBorder };

    // XML has no place for some characters, escaped or not.
    function allowed(text) {
        return String(text === undefined || text === null ? "" : text)
            .replace(/[\u0000-\u0008\u000b\u000c\u000e-\u001f\ufffe\uffff]/g, "")
            .replace(/[\ud800-\udbff](?![\udc00-\udfff])/g, "").replace(/(^|[^\ud800-\udbff])[\udc00-\udfff]/g, "$1");
    }

    function runs(text, options) {
        return allowed(text).split("\n").map(function (line, index) {
            return new docx.TextRun(Object.assign({ text: line, break: index > 0 ? 1 : 0 }, options));
        });
    }

    function paragraph(text, style, options) {
        return new docx.Paragraph(Object.assign({ style: style || "normal", children: runs(text) }, options));
    }

    function append(list, others) {
        others.forEach(function (part) { list.push(part); });
    }

    function color(text) { return text.replace("#", ""); }

    function shading(text) {
        return { type: docx.ShadingType.CLEAR, color: "auto", fill: color(text) };
    }

    function percent(width) { return { size: Math.max(width, 0.1), type: docx.WidthType.PERCENTAGE }; }

    function table(rows, options) {
        return new docx.Table(Object.assign({ width: percent(100), rows: rows }, options));
    }

    function textTable(header, rows) {
        function row(texts, style) {
            return new docx.TableRow({
                cantSplit: true, tableHeader: style === "tableHeading",
                children: texts.map(function (text) {
                    return new docx.TableCell({
                        verticalAlign: docx.VerticalAlign.CENTER,
                        children: [paragraph(text, style, { alignment: docx.AlignmentType.CENTER })]
                    });
                })
            });
        }
        return table((header ? [row(header, "tableHeading")] : []).concat(rows.map(function (texts) { return row(texts, "normal"); })));
    }

    // A picture of the page at the size at which it stands there; none where the page has none.
    function picture(element) {
        if (!element || !element.naturalWidth || !element.clientWidth)
            return [];
        var canvas = document.createElement("canvas");
        canvas.width = element.clientWidth;
        canvas.height = element.clientHeight;
        canvas.getContext("2d").drawImage(element, 0, 0, canvas.width, canvas.height);
        return [new docx.Paragraph({ children: [new docx.ImageRun({
            type: "png", data: canvas.toDataURL("image/png"),
            transformation: { width: canvas.width, height: canvas.height }
        })] }), paragraph("")];
    }

    // Nothing in a template is run or loaded.
    var scratch = document.createElement("template");
    function plainText(html) {
        if (!/[<&]/.test(html))
            return html;
        scratch.innerHTML = html;
        return scratch.content.textContent;
    }

    function quoteTable(html, kernoColor, label, name) {
        function cell(options) { return new docx.TableCell(Object.assign({ borders: noBorders }, options)); }
        return [table([
            new docx.TableRow({ children: [
                cell({ rowSpan: 2, width: percent(5), shading: shading(kernoColor), children: [paragraph("")] }),
                cell({ width: percent(95), children: [paragraph(plainText(html), "quote")] })
            ] }),
            new docx.TableRow({ children: [
                cell({ width: percent(95), children: [new docx.Paragraph({
                    style: "normal", alignment: docx.AlignmentType.RIGHT,
                    children: runs(label).concat(runs(name, { italics: true }))
                })] })
            ] })
        ], { borders: noTableBorders }), paragraph("")];
    }

    function style(id, size, textColor, options) {
        return Object.assign({ id: id, name: "Report " + id, basedOn: "Normal", next: "normal", quickFormat: true,
                               run: { font: "Lato", size: size * points, color: textColor } }, options);
    }

    var styles = [
        style("normal", 12, "000000"),
        style("heading1", 20, headingColor, { paragraph: { spacing: { before: 100, after: 200 }, outlineLevel: 0 } }),
        style("heading2", 16, headingColor, { paragraph: { spacing: { before: 100, after: 100 }, outlineLevel: 1 } }),
        style("tableHeading", 13, "000000", { run: { font: "Lato", size: 13 * points, bold: true, color: "000000" } }),
        style("quote", 12, "000000", { paragraph: { indent: { left: 100 } } })
    ];

    function metadataSummary(scope) {
        var parts = [paragraph("Properties Summary", "heading1")];
        scope.metadataKeys.forEach(function (key) {
            parts.push(paragraph(key.key, "heading2"));
            if (key.metadataOverview.length === 0)
                return;
            parts.push(table([new docx.TableRow({ children: key.metadataOverview.map(function (row, index) {
                return new docx.TableCell({ borders: noBorders, width: percent(row.keyFactor * 100),
                                            shading: shading(scope.getColor(index)), children: [paragraph("")] });
            }) })], { borders: noTableBorders }));
            key.metadataOverview.forEach(function (row, index) {
                var filled = Math.max(1, Math.round(row.valueFactor * 4000));
                var rest = Math.max(1, 4000 - filled);
                function cell(width, options) {
                    return new docx.TableCell(Object.assign({ width: { size: width, type: docx.WidthType.DXA } }, options));
                }
                parts.push(paragraph(""), new docx.Table({ columnWidths: [filled, rest, 5000], rows: [new docx.TableRow({ children: [
                    cell(filled, { shading: shading(scope.getColor(index)), children: [paragraph("")] }),
                    cell(rest, { children: [paragraph("")] }),
                    cell(5000, { borders: noBorders, children: [
                        paragraph(Math.round(row.valueFactor * 10000) / 100 + "% " + row.value)] })
                ] })] }));
            });
            parts.push(paragraph(""));
        });
        return parts;
    }

    function canvasViews(scope) {
        var parts = [paragraph("Main Canvas Views", "heading1")];
        scope.canvasViews.filter(function (view) { return scope.show_canvas_view[view.name]; }).forEach(function (view) {
            append(parts, [paragraph(view.heading, "heading2")]);
            append(parts, picture(document.getElementById("canvas_" + view.name)));
        });
        return parts;
    }

    function textByTheme(scope) {
        var parts = [paragraph("Text Sorted by Theme", "heading1")];
        scope.textSortedByCode.filter(function (group) { return group.kerno; }).forEach(function (group) {
            parts.push(paragraph(group.kerno.title, "heading2"));
            group.quotes.forEach(function (quote) {
                parts.push(function () { return quoteTable(quote.answer, group.kerno.color, "Source: ", quote.source.title); });
            });
        });
        return parts;
    }

    function textBySource(scope) {
        var parts = [paragraph("Text Sorted by Source", "heading1")];
        scope.textSortedBySource.forEach(function (group) {
            parts.push(paragraph(group.source.title, "heading2"));
            group.quotes.filter(function (quote) { return quote.kerno; }).forEach(function (quote) {
                parts.push(function () { return quoteTable(quote.answer, quote.kerno.color, "Kerno: ", quote.kerno.title); });
            });
        });
        return parts;
    }

    // The parts themselves, where some stand as the functions that make them: a slice at a time, between which the page
    // shows how far it is.
    function made(parts, tell) {
        var all = [];
        var next = 0;
        return new Promise(function (resolve, reject) {
            (function slice() {
                try {
                    for (var end = performance.now() + sliceTime; next < parts.length && performance.now() < end; ++next)
                        append(all, typeof parts[next] === "function" ? parts[next]() : [parts[next]]);
                } catch (error) {
                    reject(error);
                    return;
                }
                tell(next / parts.length);
                // The last word is painted before the long work of packing.
                setTimeout(next < parts.length ? slice : function () { resolve(all); }, next < parts.length ? 0 : paintTime);
            }());
        });
    }

    var underWay = false;

    // Throws at once when the document can't be made. `say` shows a sentence, and none for an empty one.
    function generate(scope, dateText, say) {
        if (underWay)
            return undefined;
        var parts = picture(document.getElementById("kernova_logo")).concat([paragraph("Kernova Report", "heading1")]);
        var kerno;
        if (scope.show_report_info) {
            parts.push(paragraph("This report was generated by " + scope.reportAuthor + " on "
                                 + new Date(scope.reportTimestamp).toString() + " for the following file: " + scope.reportFile));
        }
        if (scope.show_sources_summary) {
            parts.push(paragraph("Source Summary", "heading1"));
            parts.push(textTable(["Title", "Author", "Date and Time", "Length", "Quotes #"], scope.sources.map(function (source) {
                return [source.title, source.author, dateText(source.timestamp), source.length, source.highlightsCount];
            })));
        }
        if (scope.show_kernos_summary) {
            var rows = [];
            for (var i = 0; i < scope.kernos.length; ++i) {
                kerno = scope.kernos[i];
                rows.push([kerno.title, kerno.parentTitle, kerno.grandparentTitle, kerno.description, kerno.author,
                           dateText(kerno.timestamp), kerno.quotesCount]);
            }
            parts.push(paragraph("Kernos Summary", "heading1"));
            parts.push(textTable(["Kerno Title", "Parent", "Grandparent", "Description", "Author", "Date", "Total Codes"], rows));
            parts.push(paragraph(""), textTable(null, [["TOTAL NUMBER OF CODES", scope.totalCodes()],
                                                       ["TOTAL NUMBER OF KERNOS", scope.kernos.length]]));
        }
        if (scope.show_metadata_summary)
            append(parts, metadataSummary(scope));
        if (scope.show_canvas_views)
            append(parts, canvasViews(scope));
        if (scope.show_text_by_code)
            append(parts, textByTheme(scope));
        if (scope.show_text_by_source)
            append(parts, textBySource(scope));
        if (scope.show_memos_by_source) {
            parts.push(paragraph("Memos Sorted by Source", "heading1"));
            scope.memosSortedBySource.forEach(function (group) {
                parts.push(paragraph(group.source.title, "heading2"));
                parts.push(textTable(["Memo ID", "Memo", "Quote", "Author", "Date"], group.memos.map(function (memo) {
                    // The date is the last kerno's, and without the summary of the kernos there is none.
                    return [memo.memoId, memo.memo, plainText(memo.answer), memo.author, dateText(kerno.timestamp)];
                })));
            });
        }
        underWay = true;
        return made(parts, function (share) {
            say(share < 1 ? "Writing the Word document: " + Math.floor(share * 100) + "%" : "Packing the Word document...");
        }).then(function (all) {
            return docx.Packer.toBlob(new docx.Document({ styles: { paragraphStyles: styles }, sections: [{ children: all }] }));
        }).then(function (blob) {
            DocxBundle.filesaver.saveAs(blob, "kernova_report.docx");
            say("");
        }).catch(function (error) {
            say("The Word document could not be made: " + error.message);
        }).then(function () { underWay = false; });
    }

    return { generate: generate };
}());
