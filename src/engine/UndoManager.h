#pragma once

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <functional>

namespace vexa {

/// Undo by recorded inverse calls. What one user event registers forms one group, undone and
/// redone as a whole; what a group registers while it is undone becomes its redo, and the other
/// way round. Groups end with the event: before the next input event or queued call is handled,
/// even one that has been waiting, and at the latest when the event loop takes over again.
class UndoManager : public QObject {
    Q_OBJECT

public:
    explicit UndoManager(QObject* parent = nullptr);

    /// Records the call that takes back the edit just made.
    void registerUndo(std::function<void()> inverse);
    /// Names the edit for the menu, in title case: "Change Start Time". Call last: outside undo and
    /// redo, which announce what they changed at their end, this announces the edit.
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

    /// Ends the open group, if any: what comes next belongs to another event.
    void endEvent() { m_open = nullptr; }

Q_SIGNALS:
    /// What can be undone or redone, or its name, is another. Once for each edit, undo and redo.
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
