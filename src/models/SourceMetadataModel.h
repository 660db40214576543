#pragma once

#include "models/IModelList.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataValue.h"

extern template class IModelList<SourceMetadata, int, SourceMetadataField>;

/// Which source has which values.
class SourceMetadataModel : public IModelList<SourceMetadata, int, SourceMetadataField> {
    Q_OBJECT

public:
    enum Role {
        ValueRole = static_cast<int>(SourceMetadataField::timestamp) + 1  ///< the value that is linked
    };

    explicit SourceMetadataModel(DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The first link of a key and a source, or an empty record.
    SourceMetadata link(int keyId, int sourceId) const;
    /// All links of a key and a source, in row order.
    QList<SourceMetadata> links(int keyId, int sourceId) const;
    QList<SourceMetadata> linksOfValue(int valueId) const;
    QList<SourceMetadata> linksOfSource(int sourceId) const;
    bool hasLink(int keyId, int valueId, int sourceId) const;
    /// The values that a source has for a key, without those that are missing.
    QList<SourceMetadataValue> valuesOf(int sourceId, int keyId) const;

protected:
    void onModelUpdated(int row, const SourceMetadata& link, const QVector<int>& changedRoles) override;

private slots:
    void onValueUpdated(SourceMetadataValue model);

private:
    RowIndex<SourceMetadata, int> m_byValue;
    RowIndex<SourceMetadata, int> m_bySource;  ///< a source has few links, so its key is sought among them
};
