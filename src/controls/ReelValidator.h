#pragma once

#include <QValidator>

namespace vexa {

/// Up to nine digits, as a list can hold any such number, with spaces or line breaks around them
/// as in pasted text; or nothing. Anything else can be typed but is not acceptable: dropping
/// characters would turn "1.5" into 15.
class ReelValidator final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& cursor) const override;
};

} // namespace vexa
