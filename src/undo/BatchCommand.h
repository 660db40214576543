#pragma once

#include "undo/RecordCommands.h"

#include <QList>

/// Sends a list of records with one mutation, or a few. Defined for highlights, memos, and what a table
/// brings.
template <typename T> void saveBatch(KRNFile& file, const QList<T>& records);
template <typename T> void removeBatch(KRNFile& file, const QList<T>& records);

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

/// Adds new records, which have their ids and authors.
template <typename T> class BatchAddCommand : public BatchCommand<T> {
public:
    BatchAddCommand(const QList<T>& records, KRNFile* file, QUndoCommand* parent = nullptr)
        : BatchCommand<T>(BatchCommand<T>::Does::Save, records, file, parent) {}
};
