#include "controls/AddToBatchPanel.h"

#include "controls/ReelValidator.h"
#include "controls/plain_text.h"
#include "ui_AddToBatchPanel.h"

#include <QPushButton>

namespace vexa {

AddToBatchPanel::AddToBatchPanel(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AddToBatchPanel>()) {
    m_ui->setupUi(this);
    m_ui->reelField->setValidator(new ReelValidator(this));
    const QFontMetrics metrics(m_ui->reelField->font());
    constexpr int digits = 12; // nine, and space around them
    m_ui->reelField->setFixedWidth(digits * metrics.horizontalAdvance(QLatin1Char('0')));
    connect(m_ui->reelField, &QLineEdit::textChanged, this, &AddToBatchPanel::checkReel);
    auto policy = m_ui->reelHint->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->reelHint->setSizePolicy(policy);
    checkReel();
}

AddToBatchPanel::~AddToBatchPanel() = default;

void AddToBatchPanel::setReel(std::uint64_t reel) {
    m_ui->reelField->setText(QString::number(reel));
}

std::uint64_t AddToBatchPanel::reel() const {
    return m_ui->reelField->text().trimmed().toULongLong();
}

void AddToBatchPanel::checkReel() {
    const bool acceptable = m_ui->reelField->hasAcceptableInput();
    m_ui->reelHint->setVisible(!acceptable);
    m_ui->reelField->setAccessibleDescription(acceptable ? QString() : m_ui->reelHint->text());
    m_ui->buttons->button(QDialogButtonBox::Ok)->setEnabled(acceptable);
}

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
