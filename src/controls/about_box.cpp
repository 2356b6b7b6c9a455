#include "controls/about_box.h"

#include "controls/plain_text.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace vexa {

void showAboutBox(QWidget& window) {
    auto* box = new QMessageBox(QMessageBox::NoIcon, QObject::tr("About Vexa Remote"), {},
                                QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIconPixmap(window.windowIcon().pixmap(64));
    setPlainText(*box, QObject::tr("Vexa Remote %1").arg(QCoreApplication::applicationVersion()),
                 QObject::tr("Stripes tape with timecode: remote control of a timecode generator "
                             "over MIDI.\n\nFree software under the MIT licence."));
    box->open();
}

} // namespace vexa
