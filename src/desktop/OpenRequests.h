#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

namespace vexa {

/// A queue of files to open, which arrive at any time. Opens one only while no command is running;
/// while a command asks something or shows a panel, files wait in order. If the operator declines
/// one file, the others are dropped, since the answer would be the same.
class OpenRequests : public QObject {
    Q_OBJECT

public:
    /// open: returns false if the operator declines.
    explicit OpenRequests(std::function<bool(const QString&)> open) : m_open(std::move(open)) {}

    void add(const QString& path);

private:
    void openNext();

    std::function<bool(const QString&)> m_open;
    QStringList m_waiting;
};

} // namespace vexa
