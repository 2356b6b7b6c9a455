#include "ltc_tool/list_rows.h"

#include "arguments/option_values.h"
#include "document/list_file.h"

#include <QFileInfo>

namespace vexa::ltc_tool {

std::vector<TapeRow> listRows(const QString& path, const std::set<std::size_t>& numbers) {
    const auto refuse = [&path](const QString& fault) {
        throw Refusal{QStringLiteral("\"%1\" %2").arg(path, fault)};
    };
    if (!QFileInfo::exists(path))
        refuse(QStringLiteral("does not exist"));
    const auto items = readListFile(path);
    if (items.empty())
        refuse(QStringLiteral("is not a batch list, or is empty"));
    if (!numbers.empty() && *numbers.rbegin() >= items.size())
        refuse(QStringLiteral("has %1 rows: there is no row %2")
                   .arg(QString::number(items.size()), QString::number(*numbers.rbegin() + 1)));
    return tapeRows(items, numbers);
}

} // namespace vexa::ltc_tool
