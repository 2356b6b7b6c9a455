#pragma once

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <functional>

namespace vexa {

/// Undo by recorded inverse calls. All calls of one user event form a group, which is undone and
/// redone as a whole. What a group registers during its undo becomes its redo, and vice versa.
///
/// A group ends before the next input event or queued call is handled, even one already waiting,
/// and at the latest when control returns to the event loop.
class UndoManager : public QObject {
    Q_OBJECT

public:
    explicit UndoManager(QObject* parent = nullptr);

    /// Records the call that reverses the edit just made.
    void registerUndo(std::function<void()> inverse);
    /// Names the edit for the menu, in title case: "Change Start Time". Call this last, because it
    /// announces the edit. Undo and redo announce theirs when they finish.
    void setActionName(const QString& name);

    void undo();
    void redo();
    bool canUndo() const { return m_stack.canUndo(); }
    bool canRedo() const { return m_stack.canRedo(); }
    bool isUndoing() const { return m_replaying == Replaying::undo; }
    bool isRedoing() const { return m_replaying == Replaying::redo; }
    QString undoActionName() const { return m_stack.undoText(); }
    QString redoActionName() const { return m_stack.redoText(); }
    /// "Undo Change Start Time", or "Undo" when there is nothing to undo.
    QString undoMenuItemTitle() const;
    QString redoMenuItemTitle() const;

    /// Ends the open group, if any. Later calls belong to another event.
    void endEvent() { m_open = nullptr; }

Q_SIGNALS:
    /// The undo or redo command has changed. Emitted once per edit, undo and redo.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Group;
    enum class Replaying { no, undo, redo };

    Group& openGroup();
    void replay(Replaying direction, void (QUndoStack::*step)());

    QUndoStack m_stack;
    Group* m_open = nullptr;
    Replaying m_replaying = Replaying::no;
};

} // namespace vexa
