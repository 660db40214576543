#include "GroupsJob.h"

#include "models/GroupModel.h"
#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString family = QStringLiteral("Family");
const QString work = QStringLiteral("Work & <b>money</b>");
const QStringList kernos{QStringLiteral("Care"), QStringLiteral("Time"), QStringLiteral("Street")};

QStringList groupTitles() {
    QStringList titles;
    GroupModel* const groups = KRNFile::instance()->groupModel();
    for (int row = 0; row < groups->count(); ++row)
        titles << groups->at(row).title();
    return titles;
}

}  // namespace

bool GroupsJob::play(const QString&) {
    if (!signIn() || !createProject(path(QStringLiteral("groups.krn"))))
        return false;
    for (int i = 0; i < kernos.size(); ++i) {
        if (!addKerno(kernos[i]) || !m_canvas.drag(kernos[i], QPointF(150 + 180 * i, 250)))
            return false;
    }
    return makeGroups() && joinGroups() && filter() && changeWhileFiltered();
}

bool GroupsJob::makeGroups() {
    const auto titlesAre = [&](const QStringList& titles) {
        return until([&] { return groupTitles() == titles; },
                     QStringLiteral("the groups are ") + groupTitles().join(QLatin1Char(',')));
    };
    const int index = undoIndex();
    if (!click(QStringLiteral("Groups")) || !shoot(QStringLiteral("menu-without-groups")) ||
        !click(QStringLiteral("New/Change Group")) ||
        !shown(QStringLiteral("No Groups to Display in the List")))
        return false;
    m_driver.type(QStringLiteral("Familie"));
    m_driver.press(Qt::Key_Return);
    m_driver.type(work);
    m_driver.press(Qt::Key_Return);
    if (!titlesAre({QStringLiteral("Familie"), work}) || !click(QStringLiteral("Familie")))
        return false;
    m_driver.fill(m_driver.itemNamed(QStringLiteral("groupName")), family);
    if (!click(QStringLiteral("Rename")) || !titlesAre({family, work}) || !shoot(QStringLiteral("editor")))
        return false;
    // No further back than to the opening of the editor.
    for (int step = 0; step < 3; ++step) {
        if (!click(QStringLiteral("Undo")) || !untilUndoIndex(index + 2 - step))
            return false;
    }
    const QQuickItem* undo = m_driver.itemsOfType(QStringLiteral("StyledButton")).value(1);
    if (!expect(undo && !undo->isEnabled(), QStringLiteral("undo goes past the opening of the editor")))
        return false;
    for (int step = 0; step < 3; ++step) {
        if (!click(QStringLiteral("Redo")) || !untilUndoIndex(index + 1 + step))
            return false;
    }
    return titlesAre({family, work}) && click(QStringLiteral("Close")) && gone(QStringLiteral("Edit Groups"));
}

bool GroupsJob::toggleGroups(const QString& kerno, const QStringList& groups) {
    if (!m_canvas.chooseInMenu(kerno, QStringLiteral("Edit")) || !shown(QStringLiteral("Kerno Properties")))
        return fail(QStringLiteral("the properties do not open"));
    for (const QString& group : groups) {
        if (!click(group))
            return false;
    }
    shoot(QStringLiteral("ticks"));
    return click(QStringLiteral("Save")) && gone(QStringLiteral("Kerno Properties"));
}

bool GroupsJob::joinGroups() {
    const int index = undoIndex();
    KRNFile* const file = KRNFile::instance();
    const auto groupsOf = [&](const QString& kerno) {
        return file->getAssociatedGroups(m_canvas.kernoId(kerno)).size();
    };
    return toggleGroups(kernos[0], {family, work}) && toggleGroups(kernos[1], {work}) &&
           untilUndoIndex(index + 2) &&
           until([&] { return groupsOf(kernos[0]) == 2 && groupsOf(kernos[1]) == 1; },
                 QStringLiteral("the kernos are in other groups")) &&
           undo() && until([&] { return groupsOf(kernos[1]) == 0; }, QStringLiteral("undo leaves a group")) &&
           redo();
}

bool GroupsJob::tick(const QString& entry) {
    return click(QStringLiteral("Groups")) && shoot(QStringLiteral("menu")) && click(entry);
}

bool GroupsJob::shows(const QStringList& titles) {
    m_canvas.leave();
    return until(
        [&] {
            return std::all_of(kernos.begin(), kernos.end(), [&](const QString& kerno) {
                return titles.contains(kerno) == (m_canvas.bubble(kerno) != nullptr);
            });
        },
        QStringLiteral("not exactly \"%1\" show").arg(titles.join(QLatin1Char(','))));
}

bool GroupsJob::filter() {
    return shows(kernos) && tick(family) && shows({kernos[0]}) && shoot(QStringLiteral("family")) &&
           tick(work) && shows({kernos[0], kernos[1]}) && tick(QStringLiteral("Uncheck all")) &&
           shows(kernos) && tick(QStringLiteral("Check All")) && shows({kernos[0], kernos[1]}) &&
           tick(work) && shows({kernos[0]}) && tick(family) && shows(kernos);
}

// What joins a ticked group shows, and the last tick goes with its group.
bool GroupsJob::changeWhileFiltered() {
    return tick(family) && shows({kernos[0]}) && m_canvas.kernoId(kernos[0]) > 0 &&
           toggleGroups(kernos[0], {family}) && shows({}) && undo() && shows({kernos[0]}) &&
           tick(QStringLiteral("New/Change Group")) && click(family) &&
           (m_driver.press(Qt::Key_Delete), true) &&
           until([] { return groupTitles() == QStringList{work}; }, QStringLiteral("the group stays")) &&
           click(QStringLiteral("Close")) && gone(QStringLiteral("Edit Groups")) && shows(kernos);
}
