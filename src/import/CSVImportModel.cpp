#include "import/CSVImportModel.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

bool CSVImportModel::readFile(const QString& path) {
    m_types.clear();
    QFile file(path);
    QBuffer nothing;
    // Anything but a file, such as a pipe, could have the reading wait for ever.
    const bool opened = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
    nothing.open(QIODevice::ReadOnly);
    setSource(opened ? static_cast<QIODevice*>(&file) : &nothing, true);
    QStringList names = header();
    for (QString& name : names) {
        if (name.size() > 1 && name.startsWith(QLatin1Char('"')) && name.endsWith(QLatin1Char('"')))
            name = name.mid(1, name.size() - 2);
    }
    setHeader(names);
    return rowCount() > 0;
}

QString CSVImportModel::columnName(int column) const {
    const QString name = header().value(column);
    return name.isEmpty() ? tr("Column %1").arg(column + 1) : name;
}

QList<int> CSVImportModel::columnsOf(ColumnType type) const {
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column) {
        if (columnType(column) == type)
            columns.append(column);
    }
    return columns;
}

QStringList CSVImportModel::namesOf(ColumnType type) const {
    QStringList names;
    for (const int column : columnsOf(type))
        names.append(columnName(column));
    return names;
}

QString CSVImportModel::refusal(bool singleQuestion) const {
    QStringList questions = namesOf(Question);
    const int duplicates = questions.removeDuplicates();
    if (questions.isEmpty())
        return tr("Please select at least one question.");
    if (questions.size() > 1 && singleQuestion)
        return tr("Only one question may be selected in free flow text mode.");
    if (duplicates > 0)
        return tr("One or more identical questions appear multiple times.");
    if (rowCount() == 0)
        return tr("The selected file has no entries to import.");
    return {};
}
