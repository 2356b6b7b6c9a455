#include "controls/PlainFileDialog.h"

#include "controls/plain_text.h"

#include <QChildEvent>
#include <QMessageBox>

namespace vexa {

void PlainFileDialog::childEvent(QChildEvent* event) {
    QFileDialog::childEvent(event);
    if (event->polished())
        if (auto* box = qobject_cast<QMessageBox*>(event->child()))
            setPlainText(*box, box->text(), box->informativeText());
}

} // namespace vexa
