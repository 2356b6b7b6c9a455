#pragma once

class QWidget;

namespace vexa {

/// Tells, over the window, what the program is, its version and its licence. Returns at once; the
/// box goes when it is closed.
void showAboutBox(QWidget& window);

} // namespace vexa
