#include "controls/VexaHelpController.h"

#include <QDesktopServices>
#include <QUrl>

namespace vexa {

VexaHelpController::VexaHelpController()
    : VexaHelpController(Bundle::mainBundle(), [](const QString& path) {
          QDesktopServices::openUrl(QUrl::fromLocalFile(path));
      }) {}

VexaHelpController::VexaHelpController(Bundle bundle, OpenFile openFile)
    : m_bundle(std::move(bundle)), m_openFile(std::move(openFile)) {}

void VexaHelpController::openUserGuide() const {
    const auto name = m_bundle.infoString(QStringLiteral("KelUserGuideName"));
    if (!name)
        return;
    const auto type = m_bundle.infoString(QStringLiteral("KelUserGuideType"));
    if (!type)
        return;
    if (const auto path = m_bundle.pathForResource(*name, *type))
        m_openFile(*path);
}

} // namespace vexa
