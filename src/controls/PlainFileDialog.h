#pragma once

#include <QFileDialog>

namespace vexa {

/// A file dialog whose own questions, as before it replaces a file, show names letter by letter.
class PlainFileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void childEvent(QChildEvent* event) override;
};

} // namespace vexa
