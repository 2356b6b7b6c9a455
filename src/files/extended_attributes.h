#pragma once

namespace vexa {

/// Copies the access control list from one open file to another, and users' attributes such as tags
/// and comments, where the system allows.
void copyExtendedAttributes(int from, int to);

} // namespace vexa
