.pragma library
.import "../../Utils.js" as Utils

// Both results in one order of kernos, the one with the most highlights on the side that counts first; `left` and
// `right` are lists of `kerno` and `count`, `right` is empty without a second pane.
function sorted(left, right, twoPane, sortByLeft) {
    var byLeft = sortByLeft || !twoPane
    var out = { left: left, right: right, leftCount: 0, rightCount: 0, most: 0 }
    for (var i = 0; i < left.length; ++i) {
        var leftCount = left[i].count
        var rightCount = twoPane && right[i] ? right[i].count : 0
        out.leftCount += leftCount
        out.rightCount += rightCount
        out.most = Math.max(out.most, leftCount, rightCount)
    }
    var main = Utils.sortBy(byLeft ? left : right, function(item) { return -item.count })
    var places = {}
    main.forEach(function(item, index) { places[item.kerno.kernoId] = index })
    var other = Utils.sortBy(byLeft ? right : left, function(item) { return places[item.kerno.kernoId] })
    out.left = byLeft ? main : other
    out.right = byLeft ? other : main
    return out
}
