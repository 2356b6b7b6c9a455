#pragma once

#include "document/Bundle.h"

#include <QString>

#include <functional>

namespace vexa {

/// Opens the user guide, the resource that the program's Info.plist names under KelUserGuideName
/// and, for its extension, KelUserGuideType.
class VexaHelpController {
public:
    /// Asks the desktop to open a file.
    using OpenFile = std::function<void(const QString& path)>;

    /// That of the running program, in the desktop's own viewer.
    VexaHelpController();
    VexaHelpController(Bundle bundle, OpenFile openFile);

    /// Shows the guide in the program that the desktop has for its kind. Does nothing when a key
    /// or the guide is missing.
    void openUserGuide() const;

private:
    Bundle m_bundle;
    OpenFile m_openFile;
};

} // namespace vexa
