#include "files/extended_attributes.h"

#include <linux/limits.h>
#include <sys/xattr.h>

#include <cstring>
#include <string_view>
#include <vector>

namespace vexa {

namespace {

constexpr auto accessList = "system.posix_acl_access";

/// All others are the system's own; some are computed from the contents.
bool isForUsers(std::string_view name) { return name.starts_with("user.") || name == accessList; }

} // namespace

void copyExtendedAttributes(int from, int to) {
    std::vector<char> names(XATTR_LIST_MAX);
    std::vector<char> value(XATTR_SIZE_MAX);
    fremovexattr(to, accessList); // may be inherited from the folder
    const auto length = flistxattr(from, names.data(), names.size());
    for (const char* name = names.data(); name < names.data() + length;
         name += std::strlen(name) + 1) {
        const auto size = isForUsers(name) ? fgetxattr(from, name, value.data(), value.size()) : -1;
        if (size >= 0)
            fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0);
    }
}

} // namespace vexa
