#include "desktop/FileDrops.h"

#include "document/file_uris.h"

#include <QDropEvent>
#include <QMimeData>

namespace vexa {

FileDrops::FileDrops(QWidget& window) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrops::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    auto& drop = *static_cast<QDropEvent*>(event);
    const auto path = firstLocalFile(drop.mimeData()->urls());
    drop.setAccepted(!path.isEmpty() && drop.possibleActions().testFlag(Qt::CopyAction));
    if (!drop.isAccepted())
        return true;
    // After a move, the other program would delete the file.
    drop.setDropAction(Qt::CopyAction);
    if (type == QEvent::Drop)
        Q_EMIT fileDropped(path);
    return true;
}

} // namespace vexa
