#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

namespace vexa {

/// Files to open that come in at any time. One is opened when no command of the operator is under
/// way: while a command asks something, or shows a panel, the files wait, in their order.
class OpenRequests : public QObject {
    Q_OBJECT

public:
    explicit OpenRequests(std::function<void(const QString&)> open) : m_open(std::move(open)) {}

    void add(const QString& path);

private:
    void openNext();

    std::function<void(const QString&)> m_open;
    QStringList m_waiting;
};

} // namespace vexa
