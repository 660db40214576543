#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "models/BatchOperationManager.h"
#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/AnswerCache.h"
#include "project/ProjectModels.h"
#include "records/SimpleCipher.h"

#include <QCoreApplication>
#include <QPointer>

KRNFile::KRNFile(QObject* parent, const ProjectTimings& timings) : KRNFile(LinkTimings(), timings, parent) {}

KRNFile::KRNFile(const LinkTimings& linkTimings, const ProjectTimings& timings, QObject* parent)
    : ProjectEvents(parent), m_timings(timings), m_dataHelper(std::make_unique<DataHelper>(linkTimings)),
      m_cipher(std::make_unique<SimpleCipher>()), m_answerCache(std::make_unique<AnswerCache>()),
      m_batchOperationManager(new BatchOperationManager(this)), m_models(std::make_unique<ProjectModels>()) {
    ProjectContext::setCurrent(this);
    connect(this, &KRNFile::isOpenedChanged, this, &KRNFile::handleFileOpenChanged);
    connectLink();
    connectNotifications();
}

KRNFile::~KRNFile() {
    if (isOpened())
        close();
    // The models hold the query layer, so they go first.
    const QList<QAbstractItemModel*> models =
        findChildren<QAbstractItemModel*>(QString(), Qt::FindDirectChildrenOnly);
    *m_models = ProjectModels();
    qDeleteAll(models);
}

KRNFile* KRNFile::instance() {
    static QPointer<KRNFile> file;
    if (!file)
        file = new KRNFile(QCoreApplication::instance());
    return file;
}

void KRNFile::initModels() {
    if (m_models->chat)
        return;
    DataHelper* helper = dataHelper();
    // Models look each other up while they are made: each must stand in its place before the next.
    m_models->metadataKeys = new SourceMetadataKeyModel(helper, this);
    m_models->metadataValues = new SourceMetadataValueModel(helper, this);
    m_models->metadata = new SourceMetadataModel(helper, this);
    m_models->kernos = new KernoModel(helper, this);
    m_models->questions = new QuestionModel(helper, this);
    m_models->answers = new QuestionAnswerMainModel(helper, this);
    m_models->sources = new SourceModel(helper, this);
    m_models->kernoGroups = new KernoGroupModel(helper, this);
    m_models->groups = new GroupModel(helper, this);
    m_models->shortcutKeys = new KernoShortcutKeyModel(helper, this);
    m_models->chat = new ChatModel(helper, this);
    connectTexts();
}

void KRNFile::connectLink() {
    const DataHelper* helper = m_dataHelper.get();
    connect(helper, &DataHelper::wsConnected, this, &KRNFile::connected);
    connect(helper, &DataHelper::wsDisconnected, this, &KRNFile::disconnected);
    connect(helper, &DataHelper::closedDueToAnotherSession, this, &KRNFile::closedDueToAnotherSession);
    connect(helper, &DataHelper::accessChanged, this, &KRNFile::onAccessChanged);
    connect(helper, &DataHelper::accessRevoked, this, &KRNFile::onAccessRevoked);
    connect(helper, &DataHelper::reopenFailed, this, &KRNFile::onReopenFailed);
    connect(helper, &DataHelper::writeUnanswered, this, [this] {
        emit errorOccurred(
            tr("The data service did not answer. Please check whether the last change is stored."));
    });
    connect(helper, &DataHelper::mutationNotAllowed, this,
            [this] { emit notifyUser(tr("You are not allowed to change this project.")); });
    connect(helper, &DataHelper::queryNotAllowed, this,
            [this] { emit notifyUser(tr("You are not allowed to read this project.")); });
}

void KRNFile::handleFileOpenChanged() {
    m_answerCache->clear();
}

KernoModel* KRNFile::kernoModel() const {
    return m_models->kernos;
}

SourceModel* KRNFile::sourceModel() const {
    return m_models->sources;
}

QuestionModel* KRNFile::questionListModel() const {
    return m_models->questions;
}

QObject* KRNFile::questionModel() const {
    return m_models->questions;
}

QuestionAnswerMainModel* KRNFile::answerModel() const {
    return m_models->answers;
}

SourceMetadataKeyModel* KRNFile::metadataKeyModel() const {
    return m_models->metadataKeys;
}

SourceMetadataValueModel* KRNFile::metadataValueModel() const {
    return m_models->metadataValues;
}

SourceMetadataModel* KRNFile::metadataModel() const {
    return m_models->metadata;
}

GroupModel* KRNFile::groupModel() const {
    return m_models->groups;
}

KernoGroupModel* KRNFile::kernoGroupModel() const {
    return m_models->kernoGroups;
}

KernoShortcutKeyModel* KRNFile::shortcutKeyModel() const {
    return m_models->shortcutKeys;
}

ChatModel* KRNFile::chatModel() const {
    return m_models->chat;
}
