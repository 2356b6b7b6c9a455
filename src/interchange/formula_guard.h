#pragma once

#include <QString>
#include <QStringView>

namespace vexa {

/// A spreadsheet computes a cell that begins with '=', '+', '-', '@', a tab or a carriage return,
/// and a formula can start programs. A leading apostrophe makes the cell text. Texts that already
/// look guarded get another apostrophe, so removing one restores the original.
QString withFormulaGuard(const QString& text);
QString withoutFormulaGuard(QStringView text);

} // namespace vexa
