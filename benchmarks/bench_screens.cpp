#include "Screens.h"

// What the screens cost: the real window with the real service beside it, in projects of many kernos. Needs a
// display. What is measured of a step of the mouse is the scene's own work (handlers, bindings, laying out);
// the drawing of the frame is not in it.

namespace {

QPointF middle(QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
}

void measureOpening(Screens& screens) {
    screens.makeProject(text("thousand"), 1000, 1001);
    screens.open(text("empty"));
    settle();
    const auto allStand = [&] { return screens.shown("CircleParentKerno").size() >= 1000; };
    tell("open a project of 1,000 top-level kernos, to the last bubble",
         timeUntil([&] { screens.open(text("thousand")); }, allStand, "the canvas"));
    settle();
    const auto labelsStand = [&] { return screens.shown("TreeViewKerno").size() >= 1000; };
    tell("tree view of 1,000 kernos, to the last label",
         timeUntil([&] { screens.set(text("CentralManager.showAsTreeView = true")); }, labelsStand,
                   "the tree"));
    settle();
    tell("back to the canvas", timeUntil([&] { screens.set(text("CentralManager.showAsTreeView = false")); },
                                         allStand, "the canvas"));
}

void measureDragging(Screens& screens) {
    screens.makeProject(text("drag"), 220, 201);
    until([&] { return screens.shown("CircleKernoLevel0Delegate").size() >= 200; });
    settle();
    QList<QQuickItem*> bubbles = screens.shown("CircleKernoLevel0Delegate");
    std::reverse(bubbles.begin(), bubbles.end());
    const auto bubbleOf = [](QQuickItem* delegate) {
        return delegate->property("bubble").value<QQuickItem*>();
    };
    const QPointF from = middle(bubbleOf(bubbles.first()));
    screens.mouse(QEvent::MouseMove, from - QPointF(1, 0), Qt::NoButton);
    screens.mouse(QEvent::MouseMove, from, Qt::NoButton);
    screens.mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    QList<double> steps;
    for (int step = 0; step < 200; ++step)
        steps << screens.mouse(QEvent::MouseMove, from + QPointF(step % 100, step % 40 + step / 4),
                               Qt::LeftButton);
    tell("one step of a drag among 200 bubbles", steps);
    if (QLineF(middle(bubbleOf(bubbles.first())), from).length() < 20)
        std::puts("the bubble was not dragged");
    screens.mouse(QEvent::MouseButtonRelease, from, Qt::NoButton);
    settle();

    QQuickItem* parent = nullptr;
    for (QQuickItem* delegate : screens.shown("CircleKernoLevel0Delegate")) {
        if (delegate->property("kernoId").toInt() == 1)
            parent = bubbleOf(delegate);
    }
    QList<double> rings;
    for (int round = 0; round < 20; ++round) {
        screens.mouse(QEvent::MouseMove, QPointF(5, 300), Qt::NoButton);
        screens.mouse(QEvent::MouseMove, QPointF(6, 300), Qt::NoButton);
        QList<double> frames;
        for (int frame = 0; frame < 4; ++frame)
            frames << screens.mouse(QEvent::MouseMove, middle(parent) + QPointF(frame % 2, 0), Qt::NoButton);
        rings << *std::max_element(frames.cbegin(), frames.cend());
    }
    tell("a frame of opening a ring of 20 children", rings);
}

void measureOverlaps(Screens& screens) {
    screens.makeProject(text("overlaps"), 300, 301);
    screens.addHighlights(100000, 300);
    KRNFile* const file = KRNFile::instance();
    const auto done = [] { return true; };
    QList<int> others;
    for (int id = 1; id <= 300; ++id)
        others << id;
    tell("300 overlap counts, one after the other", timeUntil(
                                                        [&] {
                                                            for (int id : others)
                                                                file->getOverlap(7, id);
                                                        },
                                                        done, ""));
    tell("the same counts asked for together", timeUntil([&] { file->overlapsOf(7, others); }, done, ""));
    const auto bubblesStand = [&] {
        const QList<QQuickItem*> bubbles = screens.shown("KernoViewBubble");
        return bubbles.size() >= 300 && !screens.shown("SearchResultsItem").isEmpty();
    };
    tell("overlap view of 300 kernos with 100,000 highlights",
         timeUntil([&] { screens.set(text("CentralManager.showOverlapViewForKernoId = 7")); }, bubblesStand,
                   "the overlap view"));
    screens.set(text("CentralManager.switchToDefaultView()"));
    settle();
    const auto hierarchyStands = [&] { return !screens.shown("SearchResultsItem").isEmpty(); };
    tell("hierarchy view of a kerno with 333 quotes, to the first of them",
         timeUntil([&] { screens.set(text("CentralManager.showHierarchyViewForKerno = 7")); },
                   hierarchyStands, "the hierarchy"));
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    startup::prepare();
    KernovaApplication application(argc, argv);
    Session session(application, startup::setUp());
    Screens screens(session);
    if (!screens.start()) {
        std::fputs("The window or the service does not come.\n", stderr);
        return 1;
    }
    measureOpening(screens);
    measureDragging(screens);
    measureOverlaps(screens);
    KRNFile::instance()->closeAndReset();
    return 0;
}
