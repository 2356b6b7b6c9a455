#pragma once

#include <QFileDialog>

namespace vexa {

/// A file dialog whose own questions, such as before replacing a file, show names as plain text.
class PlainFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void childEvent(QChildEvent* event) override;
};

} // namespace vexa
