#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

namespace vexa {

/// Files to open that come in at any time. One is opened when no command of the operator is under
/// way: while a command asks something, or shows a panel, the files wait, in their order. When one
/// is not opened after all, those that wait are let go: the answer would be the same again.
class OpenRequests : public QObject {
    Q_OBJECT

public:
    /// open: false when the file is not opened because the operator does not want to.
    explicit OpenRequests(std::function<bool(const QString&)> open) : m_open(std::move(open)) {}

    void add(const QString& path);

private:
    void openNext();

    std::function<bool(const QString&)> m_open;
    QStringList m_waiting;
};

} // namespace vexa
