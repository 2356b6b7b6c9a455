#include "defaults/BackgroundWrites.h"

#include <utility>

namespace vexa::defaults {

namespace {
BackgroundWrites* currentWrites = nullptr;
} // namespace

BackgroundWrites::BackgroundWrites(Store store) : m_store(std::move(store)) {
    m_thread.setMaxThreadCount(1);
    currentWrites = this;
}

BackgroundWrites::~BackgroundWrites() {
    currentWrites = nullptr;
    m_thread.waitForDone();
    writeAll();
}

BackgroundWrites* BackgroundWrites::current() { return currentWrites; }

void BackgroundWrites::add(const Preferences& change) {
    const std::lock_guard lock(m_mutex);
    append(m_unwritten, change);
    if (m_isDue)
        return;
    m_isDue = true;
    QMetaObject::invokeMethod(
        &m_atTheEventsEnd, [this] { m_thread.start([this] { writeAll(); }); },
        Qt::QueuedConnection);
}

Preferences BackgroundWrites::unwritten() const {
    const std::lock_guard lock(m_mutex);
    return m_unwritten;
}

void BackgroundWrites::writeAll() {
    std::unique_lock lock(m_mutex);
    if (!m_isDue)
        return;
    m_isDue = false;
    const auto change = m_unwritten;
    lock.unlock();
    m_store(change);
    lock.lock();
    if (!m_isDue)
        m_unwritten = {};
}

} // namespace vexa::defaults
