#pragma once

#include <QString>
#include <QStringView>

namespace vexa {

/// A spreadsheet computes a cell that begins with '=', '+', '-', '@' or a tab, and a formula can
/// call programs. With an apostrophe in front it is text. Texts that look guarded already get
/// another one, so that taking it away gives back what there was.
QString withFormulaGuard(const QString& text);
QString withoutFormulaGuard(QStringView text);

} // namespace vexa
