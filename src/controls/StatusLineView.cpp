#include "controls/StatusLineView.h"

#include "controls/DestinationButton.h"
#include "controls/ElidedLabel.h"
#include "controls/gray_caption.h"
#include "controls/plain_text.h"

#include <QHBoxLayout>

namespace vexa {

StatusLineView::StatusLineView(QWidget* parent)
    : QWidget(parent), m_status(*new ElidedLabel), m_destination(*new DestinationButton) {
    m_status.setObjectName(QStringLiteral("statusLabel"));
    m_status.setAccessibleName(tr("Status"));
    m_destination.setObjectName(QStringLiteral("destinationButton"));
    m_destination.setAccessibleName(tr("Destination"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2 * fontMetrics().averageCharWidth());
    layout->addWidget(&m_status);
    layout->addWidget(&m_destination);
    connect(&m_destination, &QAbstractButton::clicked, this, &StatusLineView::destinationPressed);
}

void StatusLineView::tell(const StatusLine& line) {
    const auto text = singleLine(line.text);
    const QColor strong(0x8a, 0x3f, 0x00);
    auto colors = m_status.palette();
    colors.setColor(QPalette::WindowText, line.isConcern ? strong : captionGray());
    m_status.setPalette(colors);
    m_status.setText(text);
    m_status.setAccessibleDescription(text);
    setPlainToolTip(m_status, line.text);
}

void StatusLineView::announceDestination() { tellReading(m_destination); }

void StatusLineView::tellDestination(const QString& text, bool isThere) {
    m_destination.tell(text, isThere);
}

} // namespace vexa
