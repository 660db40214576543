#pragma once

#include "undo/RecordCommands.h"

#include <QList>

class Memo;

/// Sends a list of records with one mutation.
void saveBatch(KRNFile& file, const QList<Highlight>& highlights);
void saveBatch(KRNFile& file, const QList<Memo>& memos);
void removeBatch(KRNFile& file, const QList<Highlight>& highlights);
void removeBatch(KRNFile& file, const QList<Memo>& memos);

/// Saves or removes many records of one kind, so that a thousand of them cost one mutation. One record that
/// isn't valid makes the command invalid; an empty list changes nothing.
template <typename T> class BatchCommand : public FileManipulationCommand {
public:
    void redo() override { run(m_saves); }
    void undo() override { run(!m_saves); }

protected:
    enum class Does { Save, Remove };

    BatchCommand(Does does, const QList<T>& records, KRNFile* file, QUndoCommand* parent)
        : FileManipulationCommand(file, parent), m_saves(does == Does::Save) {
        m_records.reserve(records.size());
        for (const T& record : records) {
            if (!record.isValid()) {
                invalidate();
                break;
            }
            m_records.append(ownCopy(record));
        }
    }

    QList<T>& records() { return m_records; }

private:
    void run(bool saves) { saves ? saveBatch(*file(), m_records) : removeBatch(*file(), m_records); }

    bool m_saves;
    QList<T> m_records;
};
