#pragma once

#include <string>
#include <string_view>

namespace vexa::xml {

/// Appends UTF-8 text and resolves its references: XML's five entities, and decimal or hexadecimal
/// character numbers except surrogates. False if there is any other `&`.
[[nodiscard]] bool appendUnescaped(std::string_view text, std::string& to);

} // namespace vexa::xml
