#pragma once

#include <QObject>
#include <QVariantList>

class KRNFile;

/// The sources that stand as tabs above the text, kept in step with the project and remembered in it. It
/// reads all sources, so that a filtered list changes no tab. Which source is shown is told to it; what it
/// wants shown, it asks for. Main thread.
class SourceTabs : public QObject {
    Q_OBJECT
    /// A map with `sourceId` and `title` for each.
    Q_PROPERTY(QVariantList tabs READ tabs NOTIFY tabsChanged)
    Q_PROPERTY(
        int currentSourceId READ currentSourceId WRITE setCurrentSourceId NOTIFY currentSourceIdChanged)
    /// The coded share of the shown source, 0 to 100.
    Q_PROPERTY(int percentageCoded READ percentageCoded NOTIFY percentageCodedChanged)

public:
    /// Works with the project of the process.
    explicit SourceTabs(QObject* parent = nullptr);

    QVariantList tabs() const { return m_tabs; }
    int currentSourceId() const { return m_currentSourceId; }
    void setCurrentSourceId(int sourceId);
    int percentageCoded() const { return m_percentageCoded; }

    /// Shows a source; one that is no tab becomes the first.
    Q_INVOKABLE void switchToSource(int sourceId);

signals:
    void tabsChanged();
    void currentSourceIdChanged();
    void percentageCodedChanged();
    /// -1 for none.
    void sourceRequested(int sourceId);

private:
    void updateView();
    void notifyNewSourceAdded(int sourceId);
    void onFileClosed();
    /// Reads what the project remembers, and sees that one of the tabs is shown.
    void restoreSavedCurrentIds();
    void saveCurrentIds() const;
    void request(int sourceId);
    /// Takes titles and figures anew.
    void refresh();

    KRNFile* m_file;
    QList<int> m_currentIds;
    QVariantList m_tabs;
    int m_currentSourceId = -1;
    int m_percentageCoded = 0;
};
