#include "app/TypeRegistration.h"

#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"

#include <QMetaType>

namespace registration {

// QML looks the types of the project's getters up by name.
void registerModelMetaTypes() {
    qRegisterMetaType<GroupModel*>("GroupModel*");
    qRegisterMetaType<ChatModel*>("ChatModel*");
    qRegisterMetaType<SourceMetadataKeyModel*>("SourceMetadataKeyModel*");
    qRegisterMetaType<SourceMetadataValueModel*>("SourceMetadataValueModel*");
    qRegisterMetaType<SourceModel*>("SourceModel*");
    qRegisterMetaType<KernoModel*>("KernoModel*");
}

}  // namespace registration
