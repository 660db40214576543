#include "Job.h"

#include "models/GroupModel.h"
#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString family = "Family"_s;
const QString work = "Work & <b>money</b>"_s;
const QStringList kernos{"Care"_s, "Time"_s, "Street"_s};

QStringList groupTitles() {
    QStringList titles;
    GroupModel* const groups = KRNFile::instance()->groupModel();
    for (int row = 0; row < groups->count(); ++row)
        titles << groups->at(row).title();
    return titles;
}

/// Makes groups in the editor, puts kernos into them, and has the canvas show those of ticked groups alone.
class GroupsJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        if (!signIn() || !createProject(path("groups.krn"_s)))
            return false;
        for (int i = 0; i < kernos.size(); ++i) {
            if (!addKerno(kernos[i], QPointF(150 + 180 * i, 250)))
                return false;
        }
        return makeGroups() && joinGroups() && filter() && changeWhileFiltered();
    }

private:
    bool makeGroups() {
        const auto titlesAre = [&](const QStringList& titles) {
            return untilIs("the groups"_s, titles, groupTitles);
        };
        const int index = undoIndex();
        if (!menu("Groups"_s, "New/Change Group"_s, "menu-without-groups"_s) ||
            !shown("No Groups to Display in the List"_s) || !enter("groupName"_s, "Familie"_s) ||
            !titlesAre({"Familie"_s}) || !enter("groupName"_s, work) || !titlesAre({"Familie"_s, work}) ||
            !click("Familie"_s) || !fill("groupName"_s, family) || !click("Rename"_s) ||
            !titlesAre({family, work}) || !shoot("editor"_s))
            return false;
        // No further back than to the opening of the editor.
        for (int step = 0; step < 3; ++step) {
            if (!click("Undo"_s) || !untilUndoIndex(index + 2 - step))
                return false;
        }
        const QQuickItem* undo = m_driver.itemsOfType("StyledButton"_s).value(1);
        if (!expect(undo && !undo->isEnabled(), "undo goes past the opening of the editor"_s))
            return false;
        for (int step = 0; step < 3; ++step) {
            if (!click("Redo"_s) || !untilUndoIndex(index + 1 + step))
                return false;
        }
        return titlesAre({family, work}) && click("Close"_s) && gone("Edit Groups"_s);
    }

    // Opens a kerno's properties, clicks at these groups and saves.
    bool toggleGroups(const QString& kerno, const QStringList& groups) {
        if (!kernoMenu(kerno, "Edit"_s) || !shown("Kerno Properties"_s))
            return fail("the properties do not open"_s);
        for (const QString& group : groups) {
            if (!click(group))
                return false;
        }
        shoot("ticks"_s);
        return click("Save"_s) && gone("Kerno Properties"_s);
    }

    bool joinGroups() {
        const int index = undoIndex();
        KRNFile* const file = KRNFile::instance();
        const auto groupsOf = [&](const QString& kerno) {
            return file->getAssociatedGroups(m_canvas.kernoId(kerno)).size();
        };
        return toggleGroups(kernos[0], {family, work}) && toggleGroups(kernos[1], {work}) &&
               untilUndoIndex(index + 2) &&
               until([&] { return groupsOf(kernos[0]) == 2 && groupsOf(kernos[1]) == 1; },
                     "the kernos are in other groups"_s) &&
               undo() && until([&] { return groupsOf(kernos[1]) == 0; }, "undo leaves a group"_s) && redo();
    }

    // Ticks or unticks an entry of the groups menu.
    bool tick(const QString& entry) { return menu("Groups"_s, entry, "menu"_s); }

    // Whether these bubbles are drawn and no others.
    bool shows(const QStringList& titles) {
        m_canvas.leave();
        return untilAlone(titles, kernos);
    }

    bool filter() {
        return shows(kernos) && tick(family) && shows({kernos[0]}) && shoot("family"_s) && tick(work) &&
               shows({kernos[0], kernos[1]}) && tick("Uncheck all"_s) && shows(kernos) &&
               tick("Check All"_s) && shows({kernos[0], kernos[1]}) && tick(work) && shows({kernos[0]}) &&
               tick(family) && shows(kernos);
    }

    // What joins a ticked group shows, and the last tick goes with its group.
    bool changeWhileFiltered() {
        return tick(family) && shows({kernos[0]}) && m_canvas.kernoId(kernos[0]) > 0 &&
               toggleGroups(kernos[0], {family}) && shows({}) && undo() && shows({kernos[0]}) &&
               tick("New/Change Group"_s) && click(family) && (m_driver.press(Qt::Key_Delete), true) &&
               until([] { return groupTitles() == QStringList{work}; }, "the group stays"_s) &&
               click("Close"_s) && gone("Edit Groups"_s) && shows(kernos);
    }
};

const Played<GroupsJob> played{"groups"_s, {"groups"_s}};

}  // namespace
