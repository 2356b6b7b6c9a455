#pragma once

class QWidget;

namespace vexa {

/// Shows the program's description, version and licence in a box over the window. Returns at once;
/// the box deletes itself when closed.
void showAboutBox(QWidget& window);

} // namespace vexa
