#include "link/IdManager.h"

#include "link/DataHelper.h"

#include <QCoreApplication>
#include <QPointer>
#include <array>

namespace {

const std::array<wire::Record, 12> counted{wire::Record::Kerno,
                                           wire::Record::Highlight,
                                           wire::Record::Memo,
                                           wire::Record::Source,
                                           wire::Record::Question,
                                           wire::Record::QuestionAnswer,
                                           wire::Record::SourceMetadata,
                                           wire::Record::SourceMetadataKey,
                                           wire::Record::SourceMetadataValue,
                                           wire::Record::KernoGroup,
                                           wire::Record::Group,
                                           wire::Record::ChatMessage};

}  // namespace

IdManager* IdManager::instance() {
    static QPointer<IdManager> manager;
    if (!manager)
        manager = new IdManager(QCoreApplication::instance());
    return manager;
}

void IdManager::init(bool fetch, DataHelper* helper) {
    m_helper = helper;
    dropStock();
    m_stockedSources.clear();
    for (wire::Record record : counted) {
        const int highest = fetch && helper ? helper->nextId(wire::word(record), false) : 0;
        m_counters.insert(static_cast<int>(record), highest);
    }
}

int IdManager::next(wire::Record record) {
    QList<int>& stocked = m_stock[static_cast<int>(record)];
    int id = 0;
    const bool fromStock = !stocked.isEmpty();
    if (fromStock)
        id = stocked.takeFirst();
    else if (m_helper)
        id = m_helper->nextId(wire::word(record), true);
    m_counters.insert(static_cast<int>(record), id);
    if (fromStock && record == wire::Record::Source)
        m_stockedSources.insert(id);
    return id;
}

bool IdManager::stock(wire::Record record, int count) {
    const QList<int> ids = m_helper ? m_helper->nextIds(wire::word(record), count) : QList<int>();
    m_stock.insert(static_cast<int>(record), ids);
    return ids.size() == count;
}

QList<int> IdManager::nextIds(wire::Record record, int count) {
    const QList<int> ids = m_helper ? m_helper->nextIds(wire::word(record), count) : QList<int>();
    if (!ids.isEmpty())
        m_counters.insert(static_cast<int>(record), ids.last());
    return ids;
}
