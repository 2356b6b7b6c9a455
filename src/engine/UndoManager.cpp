#include "engine/UndoManager.h"

#include <QCoreApplication>
#include <QEvent>
#include <QUndoCommand>

#include <utility>
#include <vector>

namespace vexa {

class UndoManager::Group final : public QUndoCommand {
public:
    using Calls = std::vector<std::function<void()>>;

    explicit Group(UndoManager& manager) : m_manager(manager) {}

    void add(std::function<void()> inverse) { m_calls.push_back(std::move(inverse)); }

    void undo() override { replay(); }

    void redo() override {
        // Pushing a command makes the stack redo it, but the edit has already been made.
        if (std::exchange(m_pushed, true))
            replay();
    }

private:
    void replay() {
        const auto calls = std::exchange(m_calls, {});
        m_manager.m_open = this;
        for (auto call = calls.rbegin(); call != calls.rend(); ++call)
            (*call)();
        m_manager.m_open = nullptr;
        setObsolete(m_calls.empty());
    }

    UndoManager& m_manager;
    Calls m_calls;
    bool m_pushed = false;
};

UndoManager::UndoManager(QObject* parent) : QObject(parent) {
    if (auto* application = QCoreApplication::instance())
        application->installEventFilter(this);
}

UndoManager::Group& UndoManager::openGroup() {
    if (!m_open) {
        m_open = new Group(*this);
        m_stack.push(m_open);
        QMetaObject::invokeMethod(this, &UndoManager::endEvent, Qt::QueuedConnection);
    }
    return *m_open;
}

void UndoManager::registerUndo(std::function<void()> inverse) {
    openGroup().add(std::move(inverse));
}

void UndoManager::setActionName(const QString& name) {
    openGroup().setText(name);
    if (m_replaying == Replaying::no)
        Q_EMIT changed();
}

void UndoManager::undo() { replay(Replaying::undo, &QUndoStack::undo); }
void UndoManager::redo() { replay(Replaying::redo, &QUndoStack::redo); }

void UndoManager::replay(Replaying direction, void (QUndoStack::*step)()) {
    if (m_replaying != Replaying::no)
        return;
    endEvent();
    m_replaying = direction;
    (m_stack.*step)();
    m_replaying = Replaying::no;
    Q_EMIT changed();
}

QString UndoManager::undoMenuItemTitle() const {
    return canUndo() ? QStringLiteral("Undo ") + undoActionName() : QStringLiteral("Undo");
}

QString UndoManager::redoMenuItemTitle() const {
    return canRedo() ? QStringLiteral("Redo ") + redoActionName() : QStringLiteral("Redo");
}

bool UndoManager::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: // releasing Space presses a button
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
    case QEvent::Drop:
    case QEvent::MetaCall: // how assistive technology presses a control
        if (m_replaying == Replaying::no)
            endEvent();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vexa
