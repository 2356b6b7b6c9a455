#include "engine/Vexa_RemoteAppDelegate.h"

#include <QFileInfo>

namespace vexa {

void Vexa_RemoteAppDelegate::setListTitle() {
    m_fileTitle = m_url.isNull() ? QStringLiteral("Untitled Batch List")
                                 : QFileInfo(m_url).fileName().section(QLatin1Char('.'), 0, 0);
    m_outlets.window->setTitle(QStringLiteral("Vexa Remote: %1").arg(m_fileTitle));
}

} // namespace vexa
