#include "controls/AddToBatchPanel.h"

#include "controls/plain_text.h"
#include "ui_AddToBatchPanel.h"

#include <QRegularExpressionValidator>

namespace vexa {

AddToBatchPanel::AddToBatchPanel(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AddToBatchPanel>()) {
    m_ui->setupUi(this);
    // Every number of that many digits is one that the list can hold.
    m_ui->reelField->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), this));
}

AddToBatchPanel::~AddToBatchPanel() = default;

void AddToBatchPanel::setReel(std::uint64_t reel) {
    m_ui->reelField->setText(QString::number(reel));
}

std::uint64_t AddToBatchPanel::reel() const { return m_ui->reelField->text().toULongLong(); }

QString AddToBatchPanel::title() const { return singleLine(m_ui->titleField->text()); }

void AddToBatchPanel::setTitlePlaceholder(const QString& text) {
    m_ui->titleField->setPlaceholderText(text);
}

int AddToBatchPanel::runModal() {
    m_ui->reelField->setFocus();
    m_ui->reelField->selectAll();
    return exec();
}

} // namespace vexa
