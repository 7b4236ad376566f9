#include "rulebase/catalogue/PropertyDescriptions.h"

#include <algorithm>
#include <array>

namespace dorvik::modPropertyDescriptions {

namespace {

using enum PropertyNumber;
using Row = PropertyDescription;

// One list of rows for each object: kProcedureProperties and its like.
// clang-format off
#define OBJECT(object, firstName) constexpr std::array k##object##Properties = {
#define OWN(number, name, type, sentence) Row{name, sentence},
#define HAS(name, sentence) Row{name, sentence},
#define HAS_AS(name, type, sentence) Row{name, sentence, PropertyType::type},
#define END_OBJECT };
#include "source/Properties.def"

constexpr ObjectPropertyList kLists[] = {
#define OBJECT(object, firstName) {ObjectType::object, k##object##Properties, firstName},
#include "source/Properties.def"
};
// clang-format on

constexpr bool Holds(std::span<const PropertyDescription> rows, PropertyNumber number) {
    return std::ranges::find(rows, number, &PropertyDescription::Number) != rows.end();
}

constexpr bool IsNothingTwice() {
    for (const ObjectPropertyList& list : kLists) {
        for (std::size_t i = 0; i < list.Properties.size(); ++i) {
            if (Holds(list.Properties.subspan(i + 1), list.Properties[i].Number)) {
                return false;
            }
        }
    }
    return true;
}
static_assert(IsNothingTwice());

constexpr bool IsEveryFirstNameInItsList() {
    return std::ranges::all_of(kLists, [](const ObjectPropertyList& list) {
        return Holds(list.Properties, list.FirstName);
    });
}
static_assert(IsEveryFirstNameInItsList());

}  // namespace

std::span<const ObjectPropertyList> Lists() {
    return kLists;
}

const ObjectPropertyList* FindList(ObjectType root) {
    const auto* list = std::ranges::find(kLists, root, &ObjectPropertyList::Object);
    return list == std::end(kLists) ? nullptr : list;
}

const PropertyDescription* Find(ObjectType root, PropertyNumber number) {
    const ObjectPropertyList* list = FindList(root);
    if (list == nullptr) {
        return nullptr;
    }
    const auto row = std::ranges::find(list->Properties, number, &PropertyDescription::Number);
    return row == list->Properties.end() ? nullptr : &*row;
}

bool IsLineStatistic(PropertyNumber number) {
    return number >= TotalLineCount && number <= InLineCommentCount;
}

}  // namespace dorvik::modPropertyDescriptions
