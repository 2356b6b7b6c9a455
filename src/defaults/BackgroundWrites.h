#pragma once

#include "defaults/settings_file.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <mutex>

namespace vexa::defaults {

/// While this exists, write() returns at once and a thread does the writing, because a slow disk
/// must not hold up the clock. The changes of one event are one write. The destructor waits until
/// all of them are on disk. Create at most one, and let it outlive everything that writes.
class BackgroundWrites {
public:
    using Store = std::function<void(const Preferences& change)>;

    /// store: called on the thread for each write.
    explicit BackgroundWrites(Store store = changeSettingsFile);
    ~BackgroundWrites();
    BackgroundWrites(const BackgroundWrites&) = delete;
    BackgroundWrites& operator=(const BackgroundWrites&) = delete;

    /// The existing one, if any.
    static BackgroundWrites* current();

    void add(const Preferences& change);
    /// Changes that may not be on disk yet.
    Preferences unwritten() const;

private:
    void writeAll();

    const Store m_store;
    mutable std::mutex m_mutex;
    Preferences m_unwritten; ///< guarded by the mutex, like m_isDue
    bool m_isDue = false;    ///< changes were added since the last write began
    QThreadPool m_thread;
    QObject m_atTheEventsEnd;
};

} // namespace vexa::defaults
