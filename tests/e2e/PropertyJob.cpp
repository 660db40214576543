#include "Job.h"

#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString age = "Age"_s;
const QString trusts = "Trusts the plan"_s;
const QString agreement = "(Strongly) Agree - (Strongly) Disagree"_s;

/// Gives sources properties: new ones, predefined values, several values; renames and takes back in the
/// editor; and reads the overview.
class PropertyJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("properties.krn"_s)) &&
               importTexts({{"Anna"_s, "What Anna said."_s}, {"Ben"_s, "What Ben said."_s}}) &&
               addQuickly() && addPredefined() && renameInEditor() && giveSeveral() && changeSource() &&
               readOverview();
    }

private:
    // The row of the list whose field of that object name reads so.
    QQuickItem* rowOf(const char* type, const QString& field, const QString& text) {
        const QList<QQuickItem*> rows = m_driver.itemsOfType(QString::fromLatin1(type));
        for (QQuickItem* row : rows) {
            const QQuickItem* part = partOf(row, field);
            if (part && part->property("text").toString() == text)
                return row;
        }
        return nullptr;
    }

    bool isEnabled(const QString& objectName) {
        const QQuickItem* item = m_driver.itemNamed(objectName);
        return item && item->isEnabled();
    }

    QStringList tags() {
        QStringList texts;
        const QList<QQuickItem*> items = m_driver.itemsOfType("MetadataTag"_s);
        for (const QQuickItem* item : items)
            texts << item->property("text").toString();
        return texts;
    }

    bool untilTags(const QStringList& texts) {
        return untilIs("the values"_s, texts, [&] { return tags(); });
    }

    // Return in the value's field leaves a good value to the button.
    bool addQuickly() {
        if (!clickOn("propertiesTab"_s) || !shown("No Properties to Display"_s) || !shoot("none"_s) ||
            !click("+") || !shown("Quick Property Editor"_s) || !fill("quickPropertyKey"_s, age) ||
            !fill("quickPropertyValue"_s, "34"_s))
            return fail("no property can be added"_s);
        m_driver.press(Qt::Key_Return);
        return expect(m_driver.isShown("Quick Property Editor"_s), "Return takes a good value"_s) &&
               shoot("quick"_s) && click("OK"_s) && untilTags({"34"}) && shown(age) && shoot("first-value"_s);
    }

    bool addPredefined() {
        if (!click("Properties and Values Editor"_s) || !shown("New Property"_s) ||
            !expect(!isEnabled("undoInEditor"_s), "the editor undoes what was done before"_s) ||
            !click("New Property and Value"_s) || !fill("quickPropertyKey"_s, trusts))
            return false;
        return toggle("usePredefined"_s) && choose(m_driver.itemNamed("predefinedSet"_s), agreement) &&
               shoot("predefined"_s) && click("OK"_s) && gone("Quick Property Editor"_s) &&
               until([&] { return rowOf("MetadataEditorKeyRow", "keyName"_s, trusts); },
                     "the property does not come"_s);
    }

    // A name that is taken is refused, says so, and leaves the stored one.
    bool renameInEditor() {
        const auto nameOf = [&](const QString& key) {
            return partOf(rowOf("MetadataEditorKeyRow", "keyName"_s, key), "keyName"_s);
        };
        QQuickItem* name = nameOf(trusts);
        if (!m_driver.fill(name, age) || !shoot("renaming"_s))
            return fail("the name can't be edited"_s);
        m_driver.press(Qt::Key_Return);
        if (!shown("Property already exists!"_s) ||
            !expect(name->property("text").toString() == trusts, "the refused name stays"_s) ||
            !shown("Strongly Disagree"_s) || !shoot("rename-refused"_s))
            return false;
        QQuickItem* value = m_driver.itemWithText("Not Sure"_s);
        m_driver.fill(value, "Agree"_s);
        m_driver.press(Qt::Key_Return);
        if (!shown("Value already exists!"_s) ||
            !expect(value->property("text").toString() == "Not Sure"_s, "the refused value stays"_s))
            return false;
        const int before = undoIndex();
        m_driver.fill(name, "Trust"_s);
        m_driver.press(Qt::Key_Return);
        QQuickItem* undoing = m_driver.itemNamed("undoInEditor"_s);
        const auto isNamed = [&](const QString& key) {
            return until([&] { return rowOf("MetadataEditorKeyRow", "keyName"_s, key); },
                         "no property is named "_s + key);
        };
        if (!isNamed("Trust"_s) || !untilUndoIndex(before + 1) || !m_driver.click(undoing) ||
            !isNamed(trusts) || !clickOn("redoInEditor"_s) || !isNamed("Trust"_s))
            return false;
        m_driver.click(undoing);
        m_driver.click(undoing);
        return until([&] { return !rowOf("MetadataEditorKeyRow", "keyName"_s, trusts); },
                     "the new property stays"_s) &&
               expect(!isEnabled("undoInEditor"_s), "the editor undoes more than was done in it"_s) &&
               clickOn("redoInEditor"_s) && isNamed(trusts);
    }

    bool giveSeveral() {
        const auto choiceOf = [&](int row) {
            return partOf(m_driver.itemsOfType("MetadataKeyRow"_s).value(row), "propertyValues"_s);
        };
        QQuickItem* row = rowOf("MetadataEditorKeyRow", "keyName"_s, trusts);
        m_driver.clickAt(partOf(row, "multipleChoice"_s), QPointF(15, 10));
        const auto isMultiple = [] { return KRNFile::instance()->metadataKey(2).multipleChoice(); };
        if (!until(isMultiple, "the property does not take several values"_s) || !shoot("editor"_s) ||
            !click("Close"_s) || !gone("New Property"_s) || !choose(choiceOf(1), "Agree"_s) ||
            !untilTags({"34", "Agree"}) || !choose(choiceOf(1), "Not Sure"_s) ||
            !untilTags({"34", "Agree", "Not Sure"}) || !choose(choiceOf(0), "-- New Value --"_s) ||
            !shown("Enter Value"_s))
            return false;
        if (!fillField(m_driver.itemsOfType("DialogTextField"_s).size() - 1, "35"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        if (!untilTags({"35", "Agree", "Not Sure"}) || !shoot("values"_s))
            return false;
        m_driver.click(partOf(m_driver.itemsOfType("MetadataTag"_s).value(1), "removeValue"_s));
        return untilTags({"35", "Not Sure"});
    }

    bool changeSource() {
        const int source = KRNFile::instance()->sourceIds().value(1).toInt();
        const auto stored = [&] { return KRNFile::instance()->source(source); };
        if (!fill("sourceTitle"_s, "  Ben B.  "_s))
            return false;
        m_driver.press(Qt::Key_Return);
        return untilIs("the title"_s, "Ben B."_s, [&] { return stored().title(); }) &&
               clickOn("sourceIcon"_s) && shoot("icons"_s) && click("Female"_s) &&
               until([&] { return stored().icon() == "md_female"_s; }, "the icon stays"_s);
    }

    bool readOverview() {
        clickOn("propertiesOverview"_s);
        if (!shown("Properties Overview"_s) || !shown("35: 1"_s) || !shown("Not Defined: 1"_s) ||
            !shown("50%"_s) || !shoot("overview"_s))
            return false;
        clickOn("closeOverview"_s);
        return shown("Source Properties"_s) && clickOn("clearProperty"_s) && untilTags({"35"}) &&
               clickOn("closeProperties"_s) && gone("Source Properties"_s);
    }
};

const Played<PropertyJob> played{"properties"_s, {"properties"_s}};

}  // namespace
