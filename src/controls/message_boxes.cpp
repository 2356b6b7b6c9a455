#include "controls/message_boxes.h"

#include "controls/plain_text.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace vexa {

void showMessage(QWidget& window, const QString& text, const QString& information) {
    auto* box = new QMessageBox(QMessageBox::Warning, QCoreApplication::applicationName(), {},
                                QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    setPlainText(*box, text, information);
    box->open();
}

} // namespace vexa
