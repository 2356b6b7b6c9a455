#include "controls/ReelValidator.h"

#include <QRegularExpression>

namespace vexa {

QValidator::State ReelValidator::validate(QString& text, int&) const {
    static const QRegularExpression reel(QStringLiteral("\\A\\s*[0-9]{0,9}\\s*\\z"));
    return reel.match(text).hasMatch() ? Acceptable : Intermediate;
}

} // namespace vexa
