#include "interchange/formula_guard.h"

#include <algorithm>

namespace vexa {

namespace {

/// Whether the text is a formula, optionally behind apostrophes.
bool looksLikeFormula(QStringView text) {
    const auto* const first =
        std::ranges::find_if(text, [](QChar letter) { return letter != u'\''; });
    constexpr QStringView signs = u"=+-@\t\r";
    return first != text.end() && signs.contains(*first);
}

} // namespace

QString withFormulaGuard(const QString& text) {
    return looksLikeFormula(text) ? u'\'' + text : text;
}

QString withoutFormulaGuard(QStringView text) {
    const bool isGuarded = text.startsWith(u'\'') && looksLikeFormula(text);
    return (isGuarded ? text.sliced(1) : text).toString();
}

} // namespace vexa
