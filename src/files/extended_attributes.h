#pragma once

namespace vexa {

/// Gives one open file the access control list of the other, and the attributes that programs
/// attach to files for their users, such as tags and comments, as far as the system allows.
void copyExtendedAttributes(int from, int to);

} // namespace vexa
