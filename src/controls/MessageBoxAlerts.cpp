#include "controls/MessageBoxAlerts.h"

#include <QMessageBox>
#include <QPushButton>

namespace vexa {

int MessageBoxAlerts::runModal(const Alert& alert) {
    QMessageBox box(QMessageBox::Information, {}, alert.message, QMessageBox::NoButton, &m_window);
    box.setWindowModality(Qt::WindowModal);
    box.setInformativeText(alert.information);
    std::vector<QAbstractButton*> buttons;
    for (const auto& text : alert.buttons)
        buttons.push_back(box.addButton(text, buttons.empty() ? QMessageBox::AcceptRole
                                                              : QMessageBox::RejectRole));
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));
    box.setEscapeButton(buttons.back());
    box.exec();
    // A box that was taken down rather than answered counts as cancelled.
    const auto clicked = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    const auto answer = clicked == buttons.end() ? std::prev(buttons.end()) : clicked;
    return alertFirstButton + static_cast<int>(answer - buttons.begin());
}

} // namespace vexa
