#pragma once

#include <QObject>
#include <QWidget>

namespace vexa {

/// Accepts files dropped on a window, unless one of its controls takes them.
class FileDrops : public QObject {
    Q_OBJECT

public:
    /// The window must outlive this.
    explicit FileDrops(QWidget& window);

Q_SIGNALS:
    void fileDropped(const QString& path);

protected:
    bool eventFilter(QObject* window, QEvent* event) override;
};

} // namespace vexa
