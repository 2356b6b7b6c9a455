#include "desktop/file_uris.h"

#include <QFileInfo>
#include <QSysInfo>

namespace vexa {

namespace {

/// Some file managers name the machine: file://studio/reels.vexaB
bool isThisMachine(const QString& host) {
    return host.isEmpty() || host == QLatin1String("localhost") ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

} // namespace

QString fileUri(const QString& path) {
    return QString::fromLatin1(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toEncoded());
}

QString firstLocalFile(const QList<QUrl>& uris) {
    for (const auto& uri : uris)
        if (uri.isLocalFile() && isThisMachine(uri.host()))
            return uri.path(QUrl::FullyDecoded);
    return {};
}

} // namespace vexa
