#include "PropertyJob.h"

#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString age = QStringLiteral("Age");
const QString trusts = QStringLiteral("Trusts the plan");
const QString agreement = QStringLiteral("(Strongly) Agree - (Strongly) Disagree");

}  // namespace

bool PropertyJob::play(const QString&) {
    const QString first = path(QStringLiteral("Anna.txt"));
    const QString second = path(QStringLiteral("Ben.txt"));
    return signIn() && createProject(path(QStringLiteral("properties.krn"))) &&
           writeFile(first, QStringLiteral("What Anna said.")) &&
           writeFile(second, QStringLiteral("What Ben said.")) && importFiles({first, second}) &&
           addQuickly() && addPredefined() && renameInEditor() && giveSeveral() && changeSource() &&
           readOverview();
}

QQuickItem* PropertyJob::rowOf(const char* type, const QString& field, const QString& text) {
    const QList<QQuickItem*> rows = m_driver.itemsOfType(QString::fromLatin1(type));
    for (QQuickItem* row : rows) {
        const QQuickItem* part = partOf(row, field);
        if (part && part->property("text").toString() == text)
            return row;
    }
    return nullptr;
}

bool PropertyJob::enter(const QString& field, const QString& text) {
    QQuickItem* item = m_driver.itemNamed(field);
    return expect(item && m_driver.fill(item, text), QStringLiteral("there is no ") + field);
}

bool PropertyJob::isEnabled(const QString& objectName) {
    const QQuickItem* item = m_driver.itemNamed(objectName);
    return item && item->isEnabled();
}

QStringList PropertyJob::tags() {
    QStringList texts;
    const QList<QQuickItem*> items = m_driver.itemsOfType(QStringLiteral("MetadataTag"));
    for (const QQuickItem* item : items)
        texts << item->property("text").toString();
    return texts;
}

bool PropertyJob::untilTags(const QStringList& texts) {
    return until([&] { return tags() == texts; },
                 QStringLiteral("the values are %1, not %2").arg(tags().join(','), texts.join(',')));
}

// Return in the value's field leaves a good value to the button.
bool PropertyJob::addQuickly() {
    if (!m_driver.click(m_driver.itemNamed(QStringLiteral("propertiesTab"))) ||
        !shown(QStringLiteral("No Properties to Display")) || !shoot(QStringLiteral("none")) || !click("+") ||
        !shown(QStringLiteral("Quick Property Editor")) || !enter(QStringLiteral("quickPropertyKey"), age) ||
        !enter(QStringLiteral("quickPropertyValue"), QStringLiteral("34")))
        return fail(QStringLiteral("no property can be added"));
    m_driver.press(Qt::Key_Return);
    return expect(m_driver.isShown(QStringLiteral("Quick Property Editor")),
                  QStringLiteral("Return takes a good value")) &&
           shoot(QStringLiteral("quick")) && click(QStringLiteral("OK")) && untilTags({"34"}) && shown(age) &&
           shoot(QStringLiteral("first-value"));
}

bool PropertyJob::addPredefined() {
    if (!click(QStringLiteral("Properties and Values Editor")) || !shown(QStringLiteral("New Property")) ||
        !expect(!isEnabled(QStringLiteral("undoInEditor")),
                QStringLiteral("the editor undoes what was done before")) ||
        !click(QStringLiteral("New Property and Value")) ||
        !enter(QStringLiteral("quickPropertyKey"), trusts))
        return false;
    QQuickItem* set = m_driver.itemNamed(QStringLiteral("usePredefined"));
    return m_driver.clickAt(set, QPointF(15, set->height() / 2)) &&
           choose(m_driver.itemNamed(QStringLiteral("predefinedSet")), agreement) &&
           shoot(QStringLiteral("predefined")) && click(QStringLiteral("OK")) &&
           gone(QStringLiteral("Quick Property Editor")) &&
           until([&] { return rowOf("MetadataEditorKeyRow", QStringLiteral("keyName"), trusts); },
                 QStringLiteral("the property does not come"));
}

// A name that is taken is refused, says so, and leaves the stored one.
bool PropertyJob::renameInEditor() {
    const auto nameOf = [&](const QString& key) {
        return partOf(rowOf("MetadataEditorKeyRow", QStringLiteral("keyName"), key),
                      QStringLiteral("keyName"));
    };
    QQuickItem* name = nameOf(trusts);
    if (!m_driver.fill(name, age) || !shoot(QStringLiteral("renaming")))
        return fail(QStringLiteral("the name can't be edited"));
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Property already exists!")) ||
        !expect(name->property("text").toString() == trusts, QStringLiteral("the refused name stays")) ||
        !shown(QStringLiteral("Strongly Disagree")) || !shoot(QStringLiteral("rename-refused")))
        return false;
    QQuickItem* value = m_driver.itemWithText(QStringLiteral("Not Sure"));
    m_driver.fill(value, QStringLiteral("Agree"));
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Value already exists!")) ||
        !expect(value->property("text").toString() == QLatin1String("Not Sure"),
                QStringLiteral("the refused value stays")))
        return false;
    const int before = undoIndex();
    m_driver.fill(name, QStringLiteral("Trust"));
    m_driver.press(Qt::Key_Return);
    QQuickItem* undoing = m_driver.itemNamed(QStringLiteral("undoInEditor"));
    const auto isNamed = [&](const QString& key) {
        return until([&] { return rowOf("MetadataEditorKeyRow", QStringLiteral("keyName"), key); },
                     QStringLiteral("no property is named ") + key);
    };
    if (!isNamed(QStringLiteral("Trust")) || !untilUndoIndex(before + 1) || !m_driver.click(undoing) ||
        !isNamed(trusts) || !m_driver.click(m_driver.itemNamed(QStringLiteral("redoInEditor"))) ||
        !isNamed(QStringLiteral("Trust")))
        return false;
    m_driver.click(undoing);
    m_driver.click(undoing);
    return until([&] { return !rowOf("MetadataEditorKeyRow", QStringLiteral("keyName"), trusts); },
                 QStringLiteral("the new property stays")) &&
           expect(!isEnabled(QStringLiteral("undoInEditor")),
                  QStringLiteral("the editor undoes more than was done in it")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("redoInEditor"))) && isNamed(trusts);
}

bool PropertyJob::giveSeveral() {
    const auto choiceOf = [&](int row) {
        return partOf(m_driver.itemsOfType(QStringLiteral("MetadataKeyRow")).value(row),
                      QStringLiteral("propertyValues"));
    };
    QQuickItem* row = rowOf("MetadataEditorKeyRow", QStringLiteral("keyName"), trusts);
    m_driver.clickAt(partOf(row, QStringLiteral("multipleChoice")), QPointF(15, 10));
    const auto isMultiple = [] { return KRNFile::instance()->metadataKey(2).multipleChoice(); };
    if (!until(isMultiple, QStringLiteral("the property does not take several values")) ||
        !shoot(QStringLiteral("editor")) || !click(QStringLiteral("Close")) ||
        !gone(QStringLiteral("New Property")) || !choose(choiceOf(1), QStringLiteral("Agree")) ||
        !untilTags({"34", "Agree"}) || !choose(choiceOf(1), QStringLiteral("Not Sure")) ||
        !untilTags({"34", "Agree", "Not Sure"}) || !choose(choiceOf(0), QStringLiteral("-- New Value --")) ||
        !shown(QStringLiteral("Enter Value")))
        return false;
    m_driver.type(QStringLiteral("35"));
    m_driver.press(Qt::Key_Return);
    if (!untilTags({"35", "Agree", "Not Sure"}) || !shoot(QStringLiteral("values")))
        return false;
    m_driver.click(
        partOf(m_driver.itemsOfType(QStringLiteral("MetadataTag")).value(1), QStringLiteral("removeValue")));
    return untilTags({"35", "Not Sure"});
}

bool PropertyJob::changeSource() {
    const int source = KRNFile::instance()->sourceIds().value(1).toInt();
    const auto stored = [&] { return KRNFile::instance()->source(source); };
    if (!enter(QStringLiteral("sourceTitle"), QStringLiteral("  Ben B.  ")))
        return false;
    m_driver.press(Qt::Key_Return);
    return until([&] { return stored().title() == QLatin1String("Ben B."); },
                 QStringLiteral("the title is \"%1\"").arg(stored().title())) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("sourceIcon"))) &&
           shoot(QStringLiteral("icons")) && click(QStringLiteral("Female")) &&
           until([&] { return stored().icon() == QLatin1String("md_female"); },
                 QStringLiteral("the icon stays"));
}

bool PropertyJob::readOverview() {
    m_driver.click(m_driver.itemNamed(QStringLiteral("propertiesOverview")));
    if (!shown(QStringLiteral("Properties Overview")) || !shown(QStringLiteral("35: 1")) ||
        !shown(QStringLiteral("Not Defined: 1")) || !shown(QStringLiteral("50%")) ||
        !shoot(QStringLiteral("overview")))
        return false;
    m_driver.click(m_driver.itemNamed(QStringLiteral("closeOverview")));
    return shown(QStringLiteral("Source Properties")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("clearProperty"))) && untilTags({"35"}) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("closeProperties"))) &&
           gone(QStringLiteral("Source Properties"));
}
