#include "document/file_uris.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

namespace vexa {

namespace {

/// Some file managers include the host: file://studio/reels.vexaB
bool isThisMachine(const QString& host) {
    return host.isEmpty() || host == QLatin1String("localhost") ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

/// Null if the path is too long, or has bytes that a QString cannot represent: file names may
/// contain any bytes.
QString pathOf(const QUrl& uri) {
    const auto bytes = QByteArray::fromPercentEncoding(uri.path(QUrl::FullyEncoded).toLatin1());
    if (bytes.size() >= PATH_MAX || bytes.contains('\0'))
        return {};
    const auto path = QFile::decodeName(bytes);
    return !path.isEmpty() && QFile::encodeName(path) == bytes ? path : QString();
}

} // namespace

QString fileUri(const QString& path) {
    return QString::fromLatin1(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toEncoded());
}

QString firstLocalFile(const QList<QUrl>& uris) {
    for (const auto& uri : uris)
        if (uri.isLocalFile() && isThisMachine(uri.host()))
            if (auto path = pathOf(uri); !path.isNull())
                return path;
    return {};
}

} // namespace vexa
