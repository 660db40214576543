#pragma once

#include "Job.h"

/// Takes what was made out of the program: tables and Word documents, each from the menu to the file; gives
/// an export up in the middle; and brings a table in.
class ExportJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool exportTables();
    bool exportDocuments();
    bool cancelExport();
    bool importTable();
    /// Chooses a file in the dialog, which then has to tell this.
    bool chooseTable(const QString& path, const QString& told);

    /// Triggers an entry of the export menu, and gives its dialog a file or folder.
    bool exportTo(const QString& entry, const QString& path);
    bool fileHolds(const QString& path, const QByteArray& bytes);
    QString folder(const QString& name);
};
