#pragma once

#include "models/IModelList.h"
#include "records/SourceMetadataKey.h"

extern template class IModelList<SourceMetadataKey, int, SourceMetadataKeyField>;

/// The properties that sources can have.
class SourceMetadataKeyModel : public IModelList<SourceMetadataKey, int, SourceMetadataKeyField> {
    Q_OBJECT

public:
    explicit SourceMetadataKeyModel(DataHelper* helper, QObject* parent = nullptr);
};
