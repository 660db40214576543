#pragma once

#include "protocol/Fault.h"
#include "wire/QueryParser.h"

#include <QByteArray>
#include <optional>

/// A frame of a client, read.
struct Request {
    int messageId = 0;
    bool ok = false;
    wire::ParsedQuery query;  ///< when ok
    Fault fault;              ///< when not

    /// Whether it opens or closes a project, and so isn't about the records of one.
    bool concernsProjects() const;
};

Request readRequest(const QByteArray& frame);

/// What a client says when it opens a project.
struct ProjectName {
    QString name;
    QString uuid;
};
std::optional<ProjectName> readOpenRequest(const wire::ParsedQuery& query, std::vector<Fault>* faults);

QByteArray openedPayload(const ProjectName& project, const QString& access);
QByteArray closedPayload();
QByteArray connectionCountPayload(int count);
