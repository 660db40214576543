#include "Screens.h"
#include "undo/UndoManager.h"

#include <QAbstractItemModel>
#include <QThread>
#include <atomic>

// What reading, coding and editing a long text cost in the window: 300,000 characters with 2,000 highlights,
// and a tenth of both beside it. Needs a display.

namespace {

struct Text {
    int sourceId;
    int length;
    int highlights;
};

constexpr Text small{1, 30000, 200};
constexpr Text denseSmall{2, 30000, 2000};
constexpr Text large{3, 300000, 2000};
constexpr int kernos = 50;

const QString sentence =
    QStringLiteral("And then we moved to the house by the river, which my aunt had left us.\n");

void makeProject(Screens& screens) {
    screens.open(text("texts"));
    DataHelper& helper = *KRNFile::instance()->dataHelper();
    for (int id = 1; id <= kernos + 1; ++id)
        helper.save(Kerno(id, -1, QColor::fromHsv((id * 47) % 360, 200, 220), text("Topic %1").arg(id), {},
                          {}, author, 20 + (id * 37) % 660, 20 + (id * 53) % 480),
                    true);
    int highlightId = 0;
    for (const Text& shown : {small, denseSmall, large}) {
        helper.save(Source(shown.sourceId, text("Interview %1").arg(shown.sourceId), QString(), author, {}));
        helper.save(QuestionAnswer(shown.sourceId, 1, shown.sourceId, author,
                                   sentence.repeated(shown.length / sentence.size() + 1).left(shown.length),
                                   {}));
        QList<Highlight> batch;
        for (int i = 0; i < shown.highlights; ++i) {
            const int start =
                static_cast<int>(static_cast<qint64>(i) * (shown.length - 200) / shown.highlights);
            ++highlightId;
            batch << Highlight(highlightId, 1 + i % kernos, shown.sourceId, 1, {}, start, 120, start + 120,
                               author, {}, 0, 0, 0, false);
        }
        KRNFile::instance()->batchSaveHighlights(batch);
    }
    KRNFile::instance()->kernoIds();
    settle();
}

/// The time of a key with all that it sets off at once, in milliseconds.
double pressKey(Screens& screens, int key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    const double before = threadMilliseconds();
    QCoreApplication::sendEvent(screens.window(), &event);
    QQuickWindowPrivate::get(screens.window())->polishItems();
    const double took = threadMilliseconds() - before;
    QCoreApplication::processEvents();
    return took;
}

/// The longest that the main thread is busy in one piece within the time.
double longestHold(int milliseconds) {
    double longest = 0;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        const double before = threadMilliseconds();
        QCoreApplication::processEvents();
        longest = qMax(longest, threadMilliseconds() - before);
        QThread::msleep(1);
    }
    return longest;
}

QQuickItem* shownText(const Screens& screens, const char* name) {
    for (QQuickItem* item : screens.shown("KernovaTextEdit")) {
        if (item->objectName() == QLatin1String(name))
            return item;
    }
    return nullptr;
}

int stripes(QQuickItem* text) {
    return text ? text->property("highlightsModel").value<QAbstractItemModel*>()->rowCount() : 0;
}

/// When the first frame is shown that has what is waited for. While a frame takes over what stands, nothing
/// changes. The main thread may be busy when it is shown, so the time is taken where the frame is made.
class FirstFrame {
public:
    FirstFrame(QQuickWindow* window, std::function<bool()> stands) : m_stands(std::move(stands)) {
        QObject::connect(
            window, &QQuickWindow::beforeSynchronizing, &m_guard, [this] { m_begun = m_begun || m_stands(); },
            Qt::DirectConnection);
        QObject::connect(
            window, &QQuickWindow::frameSwapped, &m_guard,
            [this] {
                if (m_begun && m_shownAfter < 0)
                    m_shownAfter = static_cast<int>(m_timer.elapsed());
            },
            Qt::DirectConnection);
        m_timer.start();
    }
    /// In milliseconds from the making of this; negative before.
    int shownAfter() const { return m_shownAfter; }

private:
    const std::function<bool()> m_stands;
    QObject m_guard;
    bool m_begun = false;
    QElapsedTimer m_timer;
    std::atomic<int> m_shownAfter{-1};
};

struct Chosen {
    double laidOut, painted, all, own;
};

Chosen choose(Screens& screens, const Text& chosen) {
    const auto at = [&] { return shownText(screens, "answerText"); };
    const auto holds = [&](const char* property, int value) {
        return at() && at()->property("sourceId").toInt() == chosen.sourceId &&
               at()->property(property).toInt() >= value;
    };
    const auto hasText = [&] { return holds("length", chosen.length - 1); };
    const FirstFrame frame(screens.window(), hasText);
    Took laidOut{};
    const Took all = timeUntil(
        [&] {
            laidOut = timeUntil(
                [&] { screens.set(text("CentralManager.currentSourceId = %1").arg(chosen.sourceId)); },
                hasText, "the text");
            screens.window()->update();
        },
        [&] { return frame.shownAfter() >= 0 && holds("length", 1) && stripes(at()) >= chosen.highlights; },
        "the stripes");
    settle();
    return {laidOut.elapsed, static_cast<double>(frame.shownAfter()), all.elapsed, all.own};
}

void measureChoosing(Screens& screens) {
    QList<double> laidOut, painted, all, own;
    for (int round = 0; round < 7; ++round) {
        choose(screens, small);
        const Chosen took = choose(screens, large);
        laidOut << took.laidOut;
        painted << took.painted;
        all << took.all;
        own << took.own;
    }
    std::printf("choose a text of %d characters with %d highlights:\n", large.length, large.highlights);
    tell("... until it is laid out", laidOut);
    tell("... until its first screenful is painted", painted);
    tell("... until its stripes stand", all);
    tell("... of the main thread", own);
}

double codeOne(Screens& screens, Session& session, const Text& shown) {
    QList<double> own;
    // To look for it costs more, the more stripes there are.
    QQuickItem* const item = shownText(screens, "answerText");
    for (int i = 0; i < 9; ++i) {
        const int before = stripes(item);
        const int start = shown.length / 2 + 400 * i;
        Highlight highlight(-1, kernos + 1, shown.sourceId, 1, {}, start, 7, start + 7, {}, {}, 0, 0, 0,
                            false);
        own << timeUntil([&] { session.undoManager().addHighlight(highlight); },
                         [&] { return stripes(item) > before; }, "the stripe")
                   .own;
        settle();
    }
    tell(qPrintable(text("code a passage among %1 in %2 characters").arg(shown.highlights).arg(shown.length)),
         own);
    std::sort(own.begin(), own.end());
    return own[own.size() / 2];
}

void measureReading(Screens& screens) {
    QQuickItem* item = shownText(screens, "answerText");
    QList<double> hovers;
    for (int id = 2300; id < 2400; ++id) {
        const double before = threadMilliseconds();
        item->setProperty("currentHighlight", id);
        QQuickWindowPrivate::get(screens.window())->polishItems();
        hovers << threadMilliseconds() - before;
    }
    item->setProperty("currentHighlight", -1);
    tell("point at another highlight", hovers);

    QQuickItem* view = item;
    while (view && view->objectName() != QLatin1String("answersView"))
        view = view->parentItem();
    int made = 0;
    const int before = screens.window()->findChildren<QQuickItem*>().size();
    QList<double> steps;
    for (int step = 0; step < 100; ++step) {
        const double start = threadMilliseconds();
        view->setProperty("contentY", step * 120.0);
        QQuickWindowPrivate::get(screens.window())->polishItems();
        steps << threadMilliseconds() - start;
    }
    made = screens.window()->findChildren<QQuickItem*>().size() - before;
    tell("scroll by a few lines", steps);
    std::printf("items made by scrolling: %d\n", made);
}

void measureEditing(Screens& screens, const Text& edited) {
    const Took opened = timeUntil(
        [&] {
            screens.set(
                text("CentralManager.showAnswerEditor = { answerId: %1, cursor: 150 }").arg(edited.sourceId));
        },
        [&] {
            QQuickItem* item = shownText(screens, "editedText");
            return item && item->hasActiveFocus() && stripes(item) >= edited.highlights;
        },
        "the editor");
    tell("open the editor", opened);
    settle();
    QList<double> keys;
    QList<double> holds;
    for (int i = 0; i < 60; ++i) {
        keys << pressKey(screens, Qt::Key_A, text("a"));
        if (i % 10 == 9)
            holds << longestHold(1000);
    }
    tell("a key near the start, which moves all highlights", keys);
    tell("... the longest hold of the window in the second after it", holds);
    // Asking the service is dear, so the screen is asked first.
    const auto start = [&] {
        return KRNFile::instance()->highlights(edited.sourceId, 1).value(edited.highlights / 2).start();
    };
    const int before = start();
    const auto moved = [&] {
        QQuickItem* item = shownText(screens, "answerText");
        return item && item->property("length").toInt() >= edited.length + 60 &&
               stripes(item) >= edited.highlights && start() != before;
    };
    QQuickItem* editor = screens.shown("EditAnswerDialogImplementation").value(0);
    tell("save, until all highlights are back",
         timeUntil(
             [&] {
                 for (QQuickItem* button : screens.shown("StyledButton")) {
                     if (editor && button->property("text").toString() == text("Save"))
                         QMetaObject::invokeMethod(button, "clicked");
                 }
             },
             moved, "what was saved"));
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
    makeProject(screens);
    choose(screens, small);
    const double inSmall = codeOne(screens, session, small);
    choose(screens, denseSmall);
    const double inDense = codeOne(screens, session, denseSmall);
    choose(screens, large);
    const double inLarge = codeOne(screens, session, large);
    std::printf("a coding in the large text costs %.2f of one in a small text with as many, %.2f of one with "
                "a tenth\n",
                inLarge / inDense, inLarge / inSmall);
    measureReading(screens);
    measureChoosing(screens);
    measureEditing(screens, large);
    KRNFile::instance()->closeAndReset();
    return 0;
}
