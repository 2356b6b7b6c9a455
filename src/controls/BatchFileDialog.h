#pragma once

#include "controls/PlainFileDialog.h"

#include <QMessageBox>

#include <optional>

namespace vexa {

/// The desktop's dialog for a batch list file. If the file cannot exist or its name is not that of
/// a batch list, the dialog says why and stays open.
class BatchFileDialog final : public PlainFileDialog {
public:
    BatchFileDialog(AcceptMode mode, const QString& title, QWidget* parent);

    /// Returns when the operator has chosen a file, or cancelled: then empty. A file to save to has
    /// the batch list extension; an existing one may be replaced.
    std::optional<QString> ask();

protected:
    void accept() override;

private:
    bool isOfDesktop() const { return testAttribute(Qt::WA_DontShowOnScreen); }
    QString chosenFile() const;
    bool mayTakeChosenFile();
    int showMessage(const QString& text, QMessageBox::StandardButtons buttons);
};

} // namespace vexa
