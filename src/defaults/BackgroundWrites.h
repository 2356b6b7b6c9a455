#pragma once

#include "defaults/settings_file.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <mutex>

namespace vexa::defaults {

/// While it lives, write() returns at once, and a thread does the work: a disk may keep it waiting,
/// and the clock does not wait. What one event changes is one write. When this goes, everything is
/// on disk. One at a time. It must outlive everything that writes.
class BackgroundWrites {
public:
    using Store = std::function<void(const Preferences& change)>;

    /// The thread calls store for each write.
    explicit BackgroundWrites(Store store = changeSettingsFile);
    ~BackgroundWrites();
    BackgroundWrites(const BackgroundWrites&) = delete;
    BackgroundWrites& operator=(const BackgroundWrites&) = delete;

    /// The one that lives, if any.
    static BackgroundWrites* current();

    void add(const Preferences& change);
    /// What may not be on disk yet.
    Preferences unwritten() const;

private:
    void writeAll();

    const Store m_store;
    mutable std::mutex m_mutex;
    Preferences m_unwritten; ///< guarded by the mutex, like what follows
    bool m_isDue = false;    ///< some of it has been added since a write began
    QThreadPool m_thread;
    QObject m_atTheEventsEnd;
};

} // namespace vexa::defaults
