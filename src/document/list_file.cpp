#include "document/list_file.h"

#include "batch/batch_item_codec.h"
#include "files/atomic_file.h"
#include "files/regular_file.h"
#include "property_list/PropertyList.h"
#include "property_list/property_list_limits.h"
#include "property_list/property_list_reader.h"
#include "property_list/property_list_xml_writer.h"

#include <optional>
#include <utility>

namespace vexa {

namespace {

const QString listKey = QStringLiteral("vexabatchlist");

constexpr std::size_t valuesInAnItem = 3; ///< values that take as much memory as an item itself

std::optional<PropertyList> readFile(const QString& path, MemoryBudget& budget) {
    const auto bytes = readRegularFile(path, property_list::maximumInput);
    return bytes ? readPropertyList(*bytes, budget) : std::nullopt;
}

} // namespace

std::optional<BatchItems> listInFile(const QString& path) {
    MemoryBudget budget;
    auto root = readFile(path, budget);
    auto* const dictionary = root ? root->as<PropertyList::Dictionary>() : nullptr;
    auto* const list = dictionary ? dictionary->find(listKey) : nullptr;
    auto* const elements = list ? list->as<PropertyList::Array>() : nullptr;
    if (!elements || !budget.takeValues(elements->size() * valuesInAnItem))
        return {};
    BatchItems items;
    items.reserve(elements->size());
    for (auto& element : *elements)
        items.push_back(itemFromElement(std::move(element)));
    return items;
}

BatchItems readListFile(const QString& path) { return listInFile(path).value_or(BatchItems()); }

bool writeListFile(const QString& path, const BatchItems& items) {
    PropertyList::Array elements;
    elements.reserve(items.size());
    for (const auto& item : items)
        elements.push_back(elementFromItem(*item));
    PropertyList::Dictionary root;
    root.set(listKey, PropertyList(std::move(elements)));
    return replaceFile(path, xmlPropertyList(PropertyList(std::move(root))));
}

} // namespace vexa
