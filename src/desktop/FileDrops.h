#pragma once

#include <QObject>
#include <QWidget>

namespace vexa {

/// Takes files that are dropped on a window, wherever no control of it takes them for itself.
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
