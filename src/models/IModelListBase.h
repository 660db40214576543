#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QVariant>

class DataHelper;
class ProjectEvents;

/// What all list models of the project share that doesn't depend on their record: they follow the opening and
/// closing of the project and answer QML's questions for rows. A model outlives project files. Main thread.
class IModelListBase : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY modelUpdated)

public:
    /// `helper` isn't owned; the project is the one of the process at this moment.
    explicit IModelListBase(DataHelper* helper, QObject* parent = nullptr);

    int count() const { return rowCount(); }

    /// All roles of a row by name; empty for a row out of range.
    Q_INVOKABLE QVariantMap get(int index) const;

    /// One role of a row; invalid for an unknown name or a row out of range.
    Q_INVOKABLE QVariant get(int index, const QByteArray& roleName) const;

    /// Fetches everything anew.
    virtual void refreshAsync();

    /// Reads what the opening of the project will put into the rows, blocking. False when the read failed, so
    /// that the opening can end before anything shows.
    virtual bool readAhead() = 0;

signals:
    /// The first rows since the project was opened have come.
    void initialDataSet();
    void asyncDataFetched(QVariant data);
    /// Rows came, went or changed.
    void modelUpdated();
    /// One record was removed.
    void modelDeleted();

protected:
    virtual bool shouldRefreshOnOpen() const { return true; }
    virtual void onFileOpened();
    virtual void onFileClosed();
    virtual void beforeFileClosed() {}

    /// Blocks until the records have come, then emits `asyncDataFetched`.
    virtual void fetchAndPublish() = 0;
    virtual void onVariantData(const QVariant& data) = 0;

    DataHelper* dataHelper() const { return m_dataHelper; }
    /// The project; null without one.
    ProjectEvents* project() const;

    /// Emits `initialDataSet()` unless it was emitted since the project was opened.
    void announceInitialData();

private slots:
    void onFileClosedInternal();
    void onFileOpenedInternal();
    void onAsyncDataFetched(const QVariant& data);

private:
    DataHelper* m_dataHelper;
    QPointer<ProjectEvents> m_project;
    bool m_initialDataSet = false;
};
