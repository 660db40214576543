#include "exchange/QDPXReader.h"

#include "project/ProjectPreferences.h"

#include <QDebug>
#include <QRandomGenerator>
#include <algorithm>

namespace {

/// More than any person nests codes.
constexpr int deepest = 256;
constexpr int canvasMargin = 50;
constexpr int noParent = -1;
constexpr int theQuestion = 1;
const QColor colourOfNone(QStringLiteral("#ffff00"));

struct Section {
    const char* name;
    const char* logged;  ///< null for one that isn't
};

constexpr Section sections[] = {{"Users", nullptr},       {"CodeBook", "codes"},  {"Variables", "variables"},
                                {"Cases", "cases"},       {"Sources", "sources"}, {"Notes", "notes"},
                                {"Sets", "sets"},         {"Links", nullptr},     {"Graphs", nullptr},
                                {"Description", nullptr}, {"NoteRef", nullptr}};

int somewhere(int size) {
    return QRandomGenerator::global()->bounded(std::max(size - canvasMargin, 1));
}

}  // namespace

int QDPXReader::Guids::idOf(const QUuid& guid) {
    const auto found = ids.constFind(guid);
    if (found != ids.cend())
        return *found;
    const int id = ids.size() + 1;
    ids.insert(guid, id);
    return id;
}

QDPXReader::QDPXReader(QDPXArchive& archive, QIODevice& document, const QDPXImportOptions& options)
    : m_archive(archive), m_document(document), m_options(options), m_xml(&document, {deepest}),
      m_now(QDateTime::currentDateTimeUtc()) {}

QString QDPXReader::attribute(const char* name) const {
    return m_xml.attributes().value(QLatin1String(name)).toString();
}

QUuid QDPXReader::guid(const char* name) const {
    return QUuid(attribute(name).trimmed());
}

QUuid QDPXReader::targetGuid() {
    const QUuid target = guid("targetGUID");
    m_xml.skipCurrentElement();
    return target;
}

QString QDPXReader::authorNamed(std::initializer_list<const char*> attributes) const {
    for (const char* name : attributes) {
        const auto user = m_users.constFind(guid(name));
        if (user != m_users.cend())
            return *user;
    }
    return m_options.author;
}

QDateTime QDPXReader::time(std::initializer_list<const char*> attributes) const {
    for (const char* name : attributes) {
        const QDateTime time = QDateTime::fromString(attribute(name), Qt::ISODate);
        if (time.isValid())
            return time;
    }
    return {};
}

void QDPXReader::skip(Kind kind) {
    skipped.add(kind);
    m_xml.skipCurrentElement();
}

// An element without a GUID is one that nothing refers to.
bool QDPXReader::define(Guids& guids, int& id) {
    const QUuid own = guid("guid");
    id = guids.idOf(own.isNull() ? QUuid::createUuid() : own);
    if (guids.defined.contains(id))
        return false;
    guids.defined.insert(id);
    return true;
}

QDPXReader::Result QDPXReader::read(const Progress& progress) {
    m_progress = progress;
    if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("Project"))
        return Result::NoProject;
    m_form = formOf(attribute("origin"));
    records.preferences = {Preference(preference::singleQuestion, QStringLiteral("1"))};
    records.questions = {Question(theQuestion, QString(), 1)};
    while (m_xml.readNextStartElement())
        readSection(m_xml.name().toString());
    if (m_cancelled)
        return Result::Cancelled;
    if (m_xml.hasError()) {
        qDebug() << "ERROR IN XML PARSING" << m_xml.failure();
        return Result::Malformed;
    }
    finishKernos();
    finishCases();
    finishRemarks();
    return Result::Read;
}

// The order of the cases is that of the table.
void QDPXReader::readSection(const QString& name) {
    const auto* const found = std::find_if(std::begin(sections), std::end(sections), [&](const Section& row) {
        return name == QLatin1String(row.name);
    });
    const auto place = found - std::begin(sections);
    const char* const logged = found == std::end(sections) ? nullptr : found->logged;
    if (logged)
        qDebug() << "process" << logged;
    switch (place) {
    case 0:
        readUsers();
        break;
    case 1:
        eachChild([this](const QString&) {
            eachChild([this](const QString& child) {
                child == QLatin1String("code") ? readCode(noParent) : skip(Kind::Other);
            });
        });
        break;
    case 2:
        readVariables();
        break;
    case 3:
        eachChild([this](const QString& child) {
            child == QLatin1String("case") ? readCase() : skip(Kind::Other);
        });
        break;
    case 4:
        readSources();
        break;
    case 5:
        eachChild([this](const QString& child) {
            child == QLatin1String("note") ? readNote() : skip(Kind::Other);
        });
        break;
    case 6:
        eachChild(
            [this](const QString& child) { child == QLatin1String("set") ? readSet() : skip(Kind::Other); });
        break;
    case 7:
        countChildren(QStringLiteral("link"), Kind::Link);
        break;
    case 8:
        countChildren(QStringLiteral("graph"), Kind::Graph);
        break;
    case 9:
        if (!m_xml.readElementText().trimmed().isEmpty())
            skipped.add(Kind::ProjectDescription);
        break;
    case 10:
        readRemark(QStringLiteral("noteref"), Remark::Nothing, 0, m_remarks);
        break;
    default:
        skip(Kind::Other);
    }
    if (logged)
        qDebug() << "process" << logged << "end";
}

void QDPXReader::countChildren(const QString& name, Kind kind) {
    eachChild([&](const QString& child) { skip(child == name ? kind : Kind::Other); });
}

void QDPXReader::readUsers() {
    eachChild([this](const QString& child) {
        if (child != QLatin1String("user")) {
            skip(Kind::Other);
            return;
        }
        const QUuid user = guid("guid");
        if (m_users.contains(user)) {
            skip(Kind::Duplicate);
            return;
        }
        m_users.insert(user, attribute("name"));
        m_xml.skipCurrentElement();
    });
}

void QDPXReader::readCode(int parentId) {
    int id = 0;
    const bool isNew = define(m_kernos, id);
    if (isNew) {
        if (parentId == noParent) {
            m_x = somewhere(m_options.canvasWidth);
            m_y = somewhere(m_options.canvasHeight);
        }
        const QColor colour(attribute("color"));
        m_kernoRows.insert(id, records.kernos.size());
        records.kernos.append(Kerno(id, parentId, colour.isValid() ? colour : colourOfNone, attribute("name"),
                                    QString(), m_now, m_options.author, m_x, m_y));
    } else {
        skipped.add(Kind::Duplicate);
    }
    eachChild([&](const QString& child) {
        if (child == QLatin1String("description") && isNew)
            records.kernos[m_kernoRows.value(id)].setDescription(m_xml.readElementText());
        else if (child == QLatin1String("code"))
            readCode(id);
        else if (child == QLatin1String("noteref"))
            readRemark(child, Remark::Code, id, m_remarks);
        else
            skip(Kind::Other);
    });
}

void QDPXReader::readVariables() {
    eachChild([this](const QString& child) {
        int id = 0;
        if (child != QLatin1String("variable")) {
            skip(Kind::Other);
        } else if (!define(m_keys, id)) {
            skip(Kind::Duplicate);
        } else {
            records.metadataKeys.append(SourceMetadataKey(id, false, false, attribute("name")));
            eachChild([this](const QString&) { skip(Kind::Other); });
        }
    });
}

void QDPXReader::readCase() {
    Case found;
    QList<Remark> remarks;
    const int row = m_cases.size();
    if (!attribute("name").isEmpty())
        skipped.add(Kind::CaseName);
    eachChild([&](const QString& child) {
        if (child == QLatin1String("variablevalue"))
            readVariableValue(found.values);
        else if (child == QLatin1String("sourceref"))
            found.sourceIds.append(m_sources.idOf(targetGuid()));
        else if (child == QLatin1String("noteref") || child == QLatin1String("description"))
            readRemark(child, Remark::Case, row, remarks);
        else
            skip(Kind::Case);
    });
    m_cases.append(found);
    m_remarks += remarks;
}

// Values of all types are texts here.
void QDPXReader::readVariableValue(QList<Value>& values) {
    Value value{0, {}};
    bool hasValue = false;
    eachChild([&](const QString& child) {
        if (child == QLatin1String("variableref")) {
            value.keyId = m_keys.idOf(targetGuid());
        } else if (child.endsWith(QLatin1String("value"))) {
            value.text = m_xml.readElementText();
            hasValue = true;
        } else {
            skip(Kind::Other);
        }
    });
    if (hasValue)
        values.append(value);
}

void QDPXReader::readSet() {
    int id = 0;
    if (!define(m_groups, id)) {
        skip(Kind::Duplicate);
        return;
    }
    records.groups.append(Group(id, attribute("name"), true));
    eachChild([&](const QString& child) {
        if (child == QLatin1String("membercode")) {
            const QPair<int, int> member(id, m_kernos.idOf(targetGuid()));
            if (!m_members.contains(member))
                records.groupKernos.append(KernoGroup(m_members.size() + 1, member.first, member.second));
            m_members.insert(member);
        } else if (child == QLatin1String("description")) {
            if (!m_xml.readElementText().trimmed().isEmpty())
                skipped.add(Kind::SetDescription);
        } else {
            skip(Kind::SetMember);
        }
    });
}

void QDPXReader::finishKernos() {
    const auto count = [this](int kernoId) {
        const bool unknown = !m_kernos.defined.contains(kernoId);
        if (unknown)
            skipped.add(Kind::UnknownCode);
        return unknown;
    };
    QList<Highlight>& highlights = records.highlights;
    highlights.erase(std::remove_if(highlights.begin(), highlights.end(),
                                    [&](const Highlight& h) { return count(h.kernoId()); }),
                     highlights.end());
    QList<KernoGroup>& links = records.groupKernos;
    links.erase(
        std::remove_if(links.begin(), links.end(), [&](const KernoGroup& l) { return count(l.kernoId()); }),
        links.end());
}

void QDPXReader::finishCases() {
    QHash<QPair<int, QString>, int> valueIds;
    QHash<QPair<int, int>, QSet<int>> given;  // source and key to values
    for (const Case& found : qAsConst(m_cases)) {
        for (int sourceId : found.sourceIds) {
            if (!m_sources.defined.contains(sourceId))
                skipped.add(Kind::Case);
        }
        for (const Value& value : found.values) {
            if (!m_keys.defined.contains(value.keyId)) {
                skipped.add(Kind::Variable);
                continue;
            }
            int& valueId = valueIds[{value.keyId, value.text}];
            if (valueId == 0) {
                valueId = valueIds.size();
                records.metadataValues.append(SourceMetadataValue(valueId, value.keyId, value.text));
            }
            for (int sourceId : found.sourceIds) {
                QSet<int>& values = given[{sourceId, value.keyId}];
                if (!m_sources.defined.contains(sourceId) || values.contains(valueId))
                    continue;
                values.insert(valueId);
                records.metadatas.append(SourceMetadata(records.metadatas.size() + 1, sourceId, value.keyId,
                                                        valueId, m_options.author, m_now));
            }
        }
    }
    for (SourceMetadataKey& key : records.metadataKeys) {
        for (auto it = given.cbegin(); it != given.cend() && !key.multipleChoice(); ++it)
            key.setMultipleChoice(it.key().second == key.id() && it->size() > 1);
    }
}
