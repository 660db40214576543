#include "app/TypeRegistration.h"

#include "app/SourceTabs.h"
#include "app/WidgetColors.h"
#include "import/TransposedCSVImportModel.h"
#include "models/ComboBoxProxyModel.h"
#include "models/FetchMoreListModel.h"
#include "models/KernoHierarchyModel.h"
#include "models/KernoOverlapModel.h"
#include "models/KernoProxyModel.h"
#include "models/KernoShortcutKeyProxyModel.h"
#include "models/KernovaQML.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataProxyModels.h"
#include "models/SourceProxyModel.h"
#include "models/VariantListModel.h"
#include "search/QueryResult.h"
#include "text/DocumentChangeTracker.h"
#include "text/KernovaTextEdit.h"
#include "text/KernovaWindow.h"
#include "text/SourceHighlighter.h"

#include <private/qqmlchangeset_p.h>
#include <qqml.h>

namespace registration {

namespace {

constexpr const char* uri = "Kernova";

template <typename T> void creatable(int minor, const char* name) {
    qmlRegisterType<T>(uri, 1, minor, name);
}

/// Makes what Qt added to its item and window in later versions reachable in the types that derive from them.
void registerBaseRevisions() {
    qmlRegisterRevision<QQuickItem, 1>(uri, 1, 2);
    qmlRegisterRevision<QQuickItem, 4>(uri, 1, 2);
    qmlRegisterRevision<QQuickItem, 7>(uri, 1, 2);
    qmlRegisterRevision<QQuickItem, 11>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 1>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 2>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 3>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 4>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 6>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 7>(uri, 1, 2);
    qmlRegisterRevision<QQuickTextEdit, 10>(uri, 1, 2);
    qmlRegisterRevision<QWindow, 1>(uri, 1, 2);
    qmlRegisterRevision<QWindow, 14>(uri, 1, 2);
    qmlRegisterRevision<QQuickWindow, 1>(uri, 1, 2);
    qmlRegisterRevision<QQuickWindow, 2>(uri, 1, 2);
    qmlRegisterRevision<QQuickWindow, 14>(uri, 1, 2);
}

}  // namespace

void registerEarlyMetaTypes() {
    qRegisterMetaType<QVector<int>>("QVector<int>");
    qRegisterMetaType<QuestionModel*>("QuestionModel*");
    qRegisterMetaType<QQmlChangeSet>("QQmlChangeSet");
}

void registerQmlTypes() {
    registerBaseRevisions();
    creatable<SourceHighlighter>(0, "SourceHighlighter");
    creatable<DocumentChangeTracker>(0, "DocumentChangeTracker");
    creatable<KernovaTextEdit>(2, "KernovaTextEditBase");
    creatable<KernovaWindow>(2, "KernovaWindow");
    creatable<VariantListModel>(0, "VariantListModel");
    creatable<KernovaQML>(0, "KernovaQML");
    creatable<KernoProxyModel>(4, "KernoProxyModel");
    creatable<KernoHierarchyModel>(4, "KernoHierarchyModel");
    creatable<KernoOverlapModel>(4, "KernoOverlapModel");
    creatable<KernoShortcutKeyProxyModel>(4, "KernoShortcutKeyProxyModel");
    creatable<KernoComboBoxModel>(4, "KernoComboBoxModel");
    creatable<SourceTabs>(4, "SourceTabs");
    creatable<WidgetColors>(4, "WidgetColors");
    creatable<SourceProxyModel>(4, "SourceProxyModel");
    creatable<SourceMetadataKeyProxyModel>(4, "MetadataKeyModel");
    creatable<SourceMetadataValueProxyModel>(4, "MetadataValueModel");
    creatable<SourceMetadataProxyModel>(4, "SourceMetadataModel");
    creatable<FetchMoreListModel>(4, "FetchMoreListModel");
    creatable<SourceMetadataValueComboBoxProxyModel>(4, "SourceMetadataValueComboBoxModelProxy");
    creatable<Search::QueryResult>(4, "QueryResult");
    creatable<QuestionAnswerProxyModel>(4, "AnswerModel");
    creatable<TransposedCSVImportModel>(4, "TransposedCSVImportModel");
    qmlRegisterUncreatableType<CSVImportModel>(uri, 1, 4, "CSVImportModel",
                                               QStringLiteral("CSVImportModel cannot be instantiated!"));
}

}  // namespace registration
