#pragma once

#include "engine/status_line.h"

#include <QWidget>

namespace vexa {

class DestinationButton;
class ElidedLabel;

/// The last line of the window: what concerns the operator, and the MIDI destination with what was
/// last sent there. A press on the destination asks for the preferences.
class StatusLineView : public QWidget {
    Q_OBJECT

public:
    explicit StatusLineView(QWidget* parent = nullptr);

    void tell(const StatusLine& line);
    void tellDestination(const QString& text, bool isThere);
    /// Tells assistive technology of the destination, of whose age it hears nothing by itself.
    void announceDestination();

Q_SIGNALS:
    void destinationPressed();

private:
    ElidedLabel& m_status;
    DestinationButton& m_destination;
};

} // namespace vexa
