#pragma once

#include "document/Bundle.h"

#include <QString>

#include <functional>

namespace vexa {

/// Opens the user guide: the resource that the program's Info.plist names as KelUserGuideName, with
/// KelUserGuideType as its extension.
class VexaHelpController {
public:
    /// Asks the desktop to open a file.
    using OpenFile = std::function<void(const QString& path)>;

    /// Uses the running program's bundle and the desktop's viewer.
    VexaHelpController();
    VexaHelpController(Bundle bundle, OpenFile openFile);

    /// Shows the guide in the desktop's program for that file type. Does nothing if a key or the
    /// guide is missing.
    void openUserGuide() const;

private:
    Bundle m_bundle;
    OpenFile m_openFile;
};

} // namespace vexa
