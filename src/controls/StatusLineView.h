#pragma once

#include "engine/status_line.h"

#include <QWidget>

namespace vexa {

class DestinationButton;
class ElidedLabel;

/// The last line of the window: what concerns the operator, and the MIDI destination with the last
/// message sent there. Pressing the destination asks for the preferences.
class StatusLineView : public QWidget {
    Q_OBJECT

public:
    explicit StatusLineView(QWidget* parent = nullptr);

    void tell(const StatusLine& line);
    void tellDestination(const QString& text, bool isThere);
    /// Announces the destination to assistive technology, which is not told when only its age
    /// changes.
    void announceDestination();

Q_SIGNALS:
    void destinationPressed();

private:
    ElidedLabel& m_status;
    DestinationButton& m_destination;
};

} // namespace vexa
