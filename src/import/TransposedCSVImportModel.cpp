#include "import/TransposedCSVImportModel.h"

#include "import/ImportSourcesFromCSVCommand.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QMessageBox>

namespace {

QVariantMap entry(const QString& text, CSVImportModel::ColumnType type) {
    return {{QStringLiteral("text"), text}, {QStringLiteral("value"), type}};
}

}  // namespace

TransposedCSVImportModel::TransposedCSVImportModel(QObject* parent) : QAbstractListModel(parent) {}

int TransposedCSVImportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_table.columnCount();
}

QVariant TransposedCSVImportModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case ColumnTypeRole:
        return m_table.columnType(index.row());
    case ColumnNameRole:
    case Qt::DisplayRole:
        return m_table.columnName(index.row());
    default:
        return {};
    }
}

QHash<int, QByteArray> TransposedCSVImportModel::roleNames() const {
    return {{ColumnTypeRole, "columnType"}, {ColumnNameRole, "columnName"}};
}

std::unique_ptr<FileManipulationCommand> TransposedCSVImportModel::importCommand(KRNFile* file) {
    m_cancelled = false;
    m_importing = true;
    emit importingChanged();
    const QJsonObject project = file->currentProject();
    auto command = std::make_unique<ImportSourcesFromCSVCommand>(m_table, file, [&](qint64 row, qint64 of) {
        return (m_progress ? m_progress(row, of) : goOn(row, of)) && file->currentProject() == project;
    });
    m_importing = false;
    emit importingChanged();
    return command;
}

bool TransposedCSVImportModel::goOn(qint64 row, qint64 of) {
    m_percent = static_cast<int>(100 * row / of);
    emit percentChanged();
    QCoreApplication::processEvents();
    return !m_cancelled;
}

bool TransposedCSVImportModel::openFile(const QUrl& url) {
    beginResetModel();
    const bool hasRows = m_table.readFile(url.toLocalFile());
    endResetModel();
    emit sourcesCountChanged();
    return hasRows;
}

void TransposedCSVImportModel::setSectionType(int section, int type) {
    if (section < 0 || section >= rowCount() || type < CSVImportModel::Ignore || type > CSVImportModel::Title)
        return;
    m_table.setColumnType(section, static_cast<CSVImportModel::ColumnType>(type));
    emit dataChanged(index(section), index(section), {ColumnTypeRole});
}

QVariantList TransposedCSVImportModel::columnTypeDropDownModel() const {
    return {entry(tr("Ignore"), CSVImportModel::Ignore), entry(tr("Question"), CSVImportModel::Question),
            entry(tr("Property"), CSVImportModel::Property), entry(tr("Title"), CSVImportModel::Title)};
}

int TransposedCSVImportModel::columnTypeDropDownIndex(int value) const {
    const QVariantList entries = columnTypeDropDownModel();
    for (int i = 0; i < entries.size(); ++i) {
        if (entries.at(i).toMap().value(QStringLiteral("value")).toInt() == value)
            return i;
    }
    return 0;
}

bool TransposedCSVImportModel::canImport(bool showErrorDialog) {
    const QString refusal = m_table.refusal(KRNFile::instance()->singleQuestionMode());
    if (!refusal.isEmpty() && showErrorDialog) {
        QMessageBox::critical(nullptr, tr("Error"),
                              tr("Cannot start import. Please fix the following problem:\n\n%1").arg(refusal),
                              QMessageBox::Ok);
    }
    return refusal.isEmpty();
}
