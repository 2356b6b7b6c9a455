#pragma once

#include <QString>

class QWidget;

namespace vexa {

/// Shows a message over the window. Returns at once.
void showMessage(QWidget& window, const QString& text, const QString& information = {});

} // namespace vexa
