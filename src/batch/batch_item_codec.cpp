#include "batch/batch_item_codec.h"

#include <QLocale>

#include <cstdint>
#include <memory>
#include <utility>

namespace vexa {

namespace {

const PropertyList* find(const PropertyList& element, QStringView key) {
    const auto* dictionary = element.as<PropertyList::Dictionary>();
    return dictionary ? dictionary->find(key) : nullptr;
}

QString textIn(const PropertyList& element, QStringView key) {
    const PropertyList* value = find(element, key);
    if (!value)
        return {};
    if (const auto* text = value->as<QString>())
        return *text;
    if (const auto* number = value->as<std::uint64_t>())
        return QString::number(*number);
    if (const auto* negative = value->as<std::int64_t>())
        return QString::number(*negative);
    if (const auto* real = value->as<double>())
        return QString::number(*real, 'g', QLocale::FloatingPointShortest);
    return {};
}

/// Negative numbers wrap around; fractions are truncated.
std::uint64_t numberIn(const PropertyList& element, QStringView key) {
    const PropertyList* value = find(element, key);
    if (!value)
        return 0;
    if (const auto* number = value->as<std::uint64_t>())
        return *number;
    if (const auto* negative = value->as<std::int64_t>())
        return static_cast<std::uint64_t>(*negative);
    if (const auto* real = value->as<double>())
        return *real >= 0 && *real < 0x1p64 ? static_cast<std::uint64_t>(*real) : 0;
    if (const auto* text = value->as<QString>())
        return text->toULongLong();
    return 0;
}

} // namespace

BatchItemRef itemFromElement(PropertyList element) {
    auto item = std::make_shared<BatchItem>(
        BatchItem{numberIn(element, item_key::reel), textIn(element, item_key::title),
                  numberIn(element, item_key::start), numberIn(element, item_key::stop),
                  numberIn(element, item_key::rate), numberIn(element, item_key::type),
                  numberIn(element, item_key::id)});
    if (elementFromItem(*item) != element)
        item->original = std::make_shared<const PropertyList>(std::move(element));
    return item;
}

PropertyList elementFromItem(const BatchItem& item) {
    if (item.original) {
        PropertyList element = *item.original;
        if (item.title == textIn(element, item_key::title))
            return element;
        if (auto* dictionary = element.as<PropertyList::Dictionary>()) {
            dictionary->set(item_key::title, PropertyList(item.title));
            return element;
        }
    }
    // Created once and shared by all elements.
    static const PropertyListKey id(item_key::id), rate(item_key::rate), reel(item_key::reel),
        start(item_key::start), stop(item_key::stop), title(item_key::title), type(item_key::type);
    return PropertyList(PropertyList::Dictionary({{id, PropertyList(item.id)},
                                                  {rate, PropertyList(item.rate)},
                                                  {reel, PropertyList(item.reel)},
                                                  {start, PropertyList(item.start)},
                                                  {stop, PropertyList(item.stop)},
                                                  {title, PropertyList(item.title)},
                                                  {type, PropertyList(item.type)}},
                                                 PropertyList::Duplicates::keepLast));
}

QString storedText(const BatchItem& item, QStringView key) {
    return textIn(elementFromItem(item), key);
}

} // namespace vexa
