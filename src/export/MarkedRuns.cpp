#include "export/MarkedRuns.h"

namespace {

/// The length of the mark that stands at `at`, or 0; `run` is then switched as it says.
int switchAt(const QString& rich, int at, MarkedRun& run) {
    const int name = rich.midRef(at, 2) == QLatin1String("</") ? at + 2 : at + 1;
    if (name + 1 >= rich.size() || rich.at(at) != QLatin1Char('<') || rich.at(name + 1) != QLatin1Char('>'))
        return 0;
    const bool opens = name == at + 1;
    switch (rich.at(name).unicode()) {
    case 'b':
        run.bold = opens;
        break;
    case 'i':
        run.italic = opens;
        break;
    case 'u':
        run.underline = opens;
        break;
    default:
        return 0;
    }
    return name + 2 - at;
}

}  // namespace

QVector<MarkedRun> markedRuns(const QString& plain, const QString& rich) {
    QVector<MarkedRun> runs;
    MarkedRun run;
    const auto endAt = [&](int end) {
        run.length = end - run.start;
        if (run.length > 0)
            runs.append(run);
        run.start = end;
    };
    int at = 0;
    int inPlain = 0;
    while (rich.size() > plain.size() && inPlain < plain.size()) {
        const int mark = rich.indexOf(QLatin1Char('<'), at);
        if (mark < 0)
            break;
        inPlain += mark - at;
        at = mark;
        MarkedRun next = run;
        const int length = switchAt(rich, at, next);
        if (length == 0 || plain.midRef(inPlain, length) == rich.midRef(at, length)) {
            const int taken = std::max(length, 1);
            at += taken;
            inPlain += taken;
            continue;
        }
        endAt(inPlain);
        next.start = run.start;
        run = next;
        at += length;
    }
    endAt(plain.size());
    return runs;
}
