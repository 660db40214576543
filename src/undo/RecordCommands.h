#pragma once

#include "undo/FileManipulationCommand.h"
#include "undo/RecordFacts.h"

class Highlight;
class Memo;

/// Highlights and memos share their state between copies: a command must own what it holds.
template <typename T> T ownCopy(const T& record) {
    T copy(record);
    if constexpr (std::is_same_v<T, Highlight> || std::is_same_v<T, Memo>)
        copy.detach();
    return copy;
}

/// Saves or removes one record; the opposite takes it back. The children are what goes with it.
template <typename T> class RecordCommand : public FileManipulationCommand {
public:
    enum class Does { Save, Remove };
    /// `ChildrenFirst`: `redo` runs the children, then the own mutation, and `undo` the own mutation and then
    /// the children. `SelfFirst` is the other way round in both.
    enum class Order { ChildrenFirst, SelfFirst };

    void redo() override { run(true); }
    void undo() override { run(false); }

    const T& record() const { return m_record; }

protected:
    RecordCommand(Does does, KRNFile* file, QUndoCommand* parent, Order order = Order::ChildrenFirst)
        : FileManipulationCommand(file, parent), m_does(does), m_order(order) {}

    /// Takes a copy of its own; a record that can't be worked with makes the command invalid. The result says
    /// which.
    bool take(const T& record) {
        m_record = ownCopy(record);
        const bool usable = isUsable(m_record);
        if (!usable)
            invalidate();
        return usable;
    }

    /// The same with a record that the project is asked for.
    bool takeStored(const typename T::Key& key) { return take(factsOf<T>().stored(*file(), key)); }

    virtual void run(bool forward) {
        const bool childrenNow = (m_order == Order::ChildrenFirst) == forward;
        if (childrenNow)
            runChildren(forward);
        const bool saves = (m_does == Does::Save) == forward;
        (saves ? factsOf<T>().save : factsOf<T>().remove)(*file(), m_record);
        if (!childrenNow)
            runChildren(forward);
    }

private:
    void runChildren(bool forward) { forward ? redoChildren() : undoChildren(); }

    Does m_does;
    Order m_order;
    T m_record;
};

/// Adds a new record: gives it an id if it has none, and the current author.
template <typename T> class AddRecordCommand : public RecordCommand<T> {
public:
    AddRecordCommand(const T& record, KRNFile* file, QUndoCommand* parent = nullptr)
        : RecordCommand<T>(RecordCommand<T>::Does::Save, file, parent) {
        T added = ownCopy(record);
        factsOf<T>().create(added, this->currentAuthor());
        this->take(added);
    }
};

/// Removes a record of which nothing depends.
template <typename T> class DeleteRecordCommand : public RecordCommand<T> {
public:
    DeleteRecordCommand(const T& record, KRNFile* file, QUndoCommand* parent = nullptr)
        : RecordCommand<T>(RecordCommand<T>::Does::Remove, file, parent) {
        this->take(record);
    }
    DeleteRecordCommand(const typename T::Key& key, KRNFile* file, QUndoCommand* parent = nullptr)
        : RecordCommand<T>(RecordCommand<T>::Does::Remove, file, parent) {
        this->takeStored(key);
    }
};

/// Replaces the record that the project has under the same id by a new version. Invalid when there is none,
/// or when nothing would change.
template <typename T> class IModelUpdateFileManipulationCommand : public FileManipulationCommand {
public:
    IModelUpdateFileManipulationCommand(const T& model, KRNFile* file, QUndoCommand* parent = nullptr)
        : FileManipulationCommand(file, parent), m_newModel(ownCopy(model)),
          m_oldModel(ownCopy(factsOf<T>().stored(*file, model.id()))) {
        if (!isUsable(m_newModel) || !isUsable(m_oldModel) || m_newModel.equals(m_oldModel))
            invalidate();
    }

    void redo() override { factsOf<T>().save(*file(), m_newModel); }
    void undo() override { factsOf<T>().save(*file(), m_oldModel); }

protected:
    T m_newModel;
    T m_oldModel;
};
