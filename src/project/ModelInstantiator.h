#pragma once

#include "records/ChatMessage.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/Memo.h"
#include "records/Question.h"
#include "records/Source.h"
#include "records/SourceMetadataValue.h"

#include <QObject>

/// Builds empty records for QML, which can't construct value types by itself: the context object
/// `instantiator`.
class ModelInstantiator : public QObject {
    Q_OBJECT

public:
    explicit ModelInstantiator(QObject* parent = nullptr) : QObject(parent) {}

    /// Titled "Untitled"; `assignNewId` reserves an id.
    Q_INVOKABLE Kerno kerno(bool assignNewId);
    /// Placed after the questions of the open project; `assignNewId` reserves an id.
    Q_INVOKABLE Question question(bool assignNewId);
    /// With the time of now and no id.
    Q_INVOKABLE Highlight highlight();
    Q_INVOKABLE Memo memo();
    Q_INVOKABLE Source source();
    /// With a reserved id.
    Q_INVOKABLE SourceMetadataValue sourceMetadataValue();
    Q_INVOKABLE ChatMessage chatMessage();
};
