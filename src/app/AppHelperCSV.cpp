#include "app/AppHelper.h"
#include "import/TransposedCSVImportModel.h"
#include "project/KRNFile.h"
#include "undo/UndoManager.h"

namespace {

const QString cellValue = QStringLiteral("cellValue");
const QString cellType = QStringLiteral("cellType");
constexpr int propertyCell = 1;
constexpr int questionCell = 0;

}  // namespace

QVariantList AppHelper::importCSVHeader(const QUrl& file) {
    CSVImportModel table;
    table.readFile(file.toLocalFile());
    QVariantList cells;
    for (const QString& name : table.header()) {
        const bool asks = name.contains(QLatin1Char('?'));
        cells << QVariantMap{{cellValue, name}, {cellType, asks ? questionCell : propertyCell}};
    }
    return cells;
}

// The project belongs to the main thread.
void AppHelper::importCSV(const QUrl& file, const QVariantList& headersModel) {
    QMetaObject::invokeMethod(
        this,
        [this, file, headersModel] {
            TransposedCSVImportModel model;
            model.openFile(file);
            const int count = model.sourcesCount();
            emit csvImportProgress(0, count, 0, false);
            for (int column = 0; column < headersModel.size(); ++column) {
                const bool isProperty =
                    headersModel.at(column).toMap().value(cellType).toInt() == propertyCell;
                model.setSectionType(column,
                                     isProperty ? CSVImportModel::Property : CSVImportModel::Question);
            }
            connect(&model, &TransposedCSVImportModel::percentChanged, this, [&] {
                emit csvImportProgress(model.percent() * count / 100, count, model.percent(), false);
            });
            const bool imported = m_undoManager->importSourcesFromCSV(&model);
            emit csvImportProgress(imported ? count : 0, count, 100, true);
            emit m_krnFile->metadataUpdated(false, QVariant());
            emit m_krnFile->sourcesChanged();
        },
        Qt::QueuedConnection);
}
