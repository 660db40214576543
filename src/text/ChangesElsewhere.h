#pragma once

#include "text/EditShift.h"

#include <QHash>
#include <QObject>
#include <QSet>

class KRNFile;

/// What others do to an answer and its highlights while it is edited here. Main thread.
class ChangesElsewhere : public QObject {
    Q_OBJECT

public:
    explicit ChangesElsewhere(QObject* parent = nullptr) : QObject(parent) {}

    /// Follows the answer from now on; what was followed before is forgotten. The file isn't owned.
    void follow(KRNFile* file, int sourceId, int questionId);
    void stop();

    /// Whether the stored text is another one than when this began, or is gone.
    bool isTextChanged() const { return m_textChanged; }

    /// Brings what is to be saved in line with what has happened to the highlights: what is gone stays away,
    /// what got another kerno keeps it, and what is new or stands elsewhere moves by the edits as the others
    /// did. What a highlight had joined to itself stands alone again when somebody has changed that one.
    /// `old` are the stored highlights that give way, `fresh` what comes in their place, `path` the edits
    /// that lead from the stored text to what is saved.
    void apply(QList<Highlight>& old, QList<Highlight>& fresh, const QList<Highlight>& initial,
               const QVector<edits::Edit>& path);

signals:
    void textChangedChanged();

private:
    void compareText();
    void noteMany(const QSet<int>& sources, const QSet<int>& questions);
    void readChanges(const QList<Highlight>& initial);
    void separate(const QList<Highlight>& old, QList<Highlight>& fresh, const QList<Highlight>& initial,
                  const QVector<edits::Edit>& path) const;
    bool concerns(const Highlight& highlight) const {
        return highlight.sourceId() == m_sourceId && highlight.questionId() == m_questionId;
    }

    KRNFile* m_file = nullptr;
    int m_sourceId = -1;
    int m_questionId = -1;
    QString m_text;  ///< as it was stored at the beginning
    bool m_textChanged = false;
    QHash<int, Highlight> m_saved;
    QSet<int> m_deleted;
    bool m_manyChanged = false;  ///< by a message that tells no more than where
};
