#pragma once

#include <QValidator>

namespace vexa {

/// Up to nine digits, every number of which a list can hold, with spaces or line breaks around
/// them as pasted text has; or nothing. Anything else can be typed, but is not acceptable: a
/// character that vanishes would turn "1.5" into 15.
class ReelValidator final : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& cursor) const override;
};

} // namespace vexa
