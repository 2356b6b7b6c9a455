#include "desktop/OpenRequests.h"

#include <QAbstractEventDispatcher>
#include <QThread>

namespace vexa {

void OpenRequests::add(const QString& path) {
    m_waiting += path;
    // Every event loop emits this signal when idle, even one nested in a command.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &OpenRequests::openNext, Qt::UniqueConnection);
}

void OpenRequests::openNext() {
    if (m_waiting.isEmpty() || QThread::currentThread()->loopLevel() > 1)
        return;
    if (!m_open(m_waiting.takeFirst()))
        m_waiting.clear();
    if (m_waiting.isEmpty())
        disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
}

} // namespace vexa
