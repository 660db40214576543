#pragma once

#include "models/IModelList.h"
#include "models/PendingRead.h"
#include "records/Highlight.h"
#include "records/Source.h"

class QTimer;

extern template class IModelList<Source, int, SourceField>;

/// All sources of the project, with the share of each that is coded.
class SourceModel : public IModelList<Source, int, SourceField> {
    Q_OBJECT
    Q_PROPERTY(int globalPercentageCoded READ globalPercentageCoded NOTIFY globalPercentageCodedChanged)

public:
    enum Role {
        SourcePercentageCodedRole =
            static_cast<int>(SourceField::timestamp) + 1,  ///< share of the row's source
        GlobalPercentageCodedRole                          ///< the same; the project's share is the property
    };

    explicit SourceModel(DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The coded share of all text of the project, 0 to 100.
    int globalPercentageCoded() const { return m_globalPercentageCoded; }
    /// The coded share of one source's text, 0 to 100; 0 for a source without text.
    int percentageCoded(int sourceId) const;

    /// Takes the coded length of each source; sources that are missing count as not coded.
    void applyCodedLengths(const QHash<int, int>& codedLengths);
    static QHash<int, int> codedLengthsFromJson(const QJsonArray& array);

signals:
    void dataFetched(QList<Source> data);
    void globalPercentageCodedChanged();
    void modelUpdated(Source model);

public slots:
    void refreshAsync() override;

protected:
    void onModelUpdated(int row, const Source& source, const QVector<int>& changedRoles) override;
    void onFileClosed() override;

private slots:
    void onDataFetched(QList<Source> data);
    void updateAllCodingStatsAsync();
    void delayedUpdateAllCodingStatsAsync();
    void onHighlightDeletedOrUpdated(Highlight highlight);

private:
    bool hasTexts() const;
    void takeTextLengths();

    QHash<int, int> m_codedLengths;
    QHash<int, int> m_textLengths;
    qint64 m_totalTextLength = 0;
    int m_globalPercentageCoded = 0;
    QTimer* m_statsTimer = nullptr;  ///< made by the first request
    PendingRead m_count;
};
