#pragma once

#include <string>
#include <string_view>

namespace vexa::xml {

/// Appends UTF-8 text with its references put in: the five entities of XML and characters by
/// their number, decimal or hexadecimal, surrogates excepted. False if there is any other `&`.
[[nodiscard]] bool appendUnescaped(std::string_view text, std::string& to);

} // namespace vexa::xml
