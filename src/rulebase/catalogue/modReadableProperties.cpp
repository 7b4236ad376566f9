#include "rulebase/catalogue/modReadableProperties.h"

#include "base/modTextCase.h"
#include "parser/ScopeName.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/PropertyDescriptions.h"
#include "source/PropertyName.h"

#include <algorithm>
#include <span>

namespace dorvik::modReadableProperties {

namespace {

using namespace std::string_view_literals;

struct ExtraRow {
    std::string_view Object;
    std::string_view Property;
};

/// Set by the parser or the review, and in no list of the catalogue.
constexpr ExtraRow kUnlisted[] = {
    {scopename::kFile, propertyname::kReviewStatus},
    {scopename::kSource, propertyname::kIsBlank},
    {scopename::kReference, propertyname::kFilename},
    {scopename::kProjectFile, propertyname::kName},
    {scopename::kProjectFile, propertyname::kType},
    {scopename::kProjectFile, propertyname::kFullFilename},
    {scopename::kProjectFile, propertyname::kPath},
    {scopename::kProjectFile, propertyname::kFilename},
    {scopename::kProjectFile, propertyname::kExtension},
    // Keys that Visual Basic writes and the catalogue leaves out; near others in spelling.
    {scopename::kProject, "Path32"},
    {scopename::kProject, "AutoRefresh"},
    {scopename::kProject, "Keyword"},
};

constexpr ExtraRow kNeverSet[] = {{scopename::kReference, propertyname::kFullFilename}};

/// Objects in scope that are no objects of the catalogue.
constexpr std::string_view kUncatalogued[] = {scopename::kProjectFile, scopename::kDeclarations};

/// Their properties are those of the control or form.
constexpr std::string_view kOpenObjects[] = {
    scopename::kControlProperties, scopename::kLayoutProperties};

const ObjectRow* FindRoot(std::string_view objectName) {
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        if (row.Type == row.Root && modTextCase::Equal(row.Name, objectName)) {
            return &row;
        }
    }
    return nullptr;
}

bool Holds(std::span<const std::string_view> names, std::string_view sought) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view name) {
        return modTextCase::Equal(name, sought);
    });
}

bool Holds(std::span<const ExtraRow> rows, std::string_view object, std::string_view property) {
    return std::any_of(rows.begin(), rows.end(), [&](const ExtraRow& row) {
        return modTextCase::Equal(row.Object, object) && modTextCase::Equal(row.Property, property);
    });
}

/// Letters to change, add, leave out or swap with the next to come from one name to the other.
std::size_t Distance(std::string_view left, std::string_view right) {
    const std::string a = modTextCase::ToLower(left);
    const std::string b = modTextCase::ToLower(right);
    std::vector<std::vector<std::size_t>> cost(
        a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
            cost[i][j] =
                std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
            }
        }
    }
    return cost[a.size()][b.size()];
}

std::string
Nearest(const std::vector<std::string_view>& names, std::string_view sought, std::size_t farthest) {
    constexpr std::size_t kLongestName = 64;  // a longer name is not a mistyped one
    std::string_view nearest;
    std::size_t least = farthest + 1;
    for (const std::string_view name : names) {
        const std::size_t distance = sought.size() > kLongestName ? least : Distance(name, sought);
        if (distance < least && distance * 2 < name.size()) {
            nearest = name;
            least = distance;
        }
    }
    return std::string(nearest);
}

bool IsProject(std::string_view objectName) {
    return modTextCase::Equal(objectName, scopename::kProject);
}

bool IsWorkfield(std::string_view objectName, std::string_view propertyName) {
    const ObjectRow* row = FindRoot(objectName);
    return modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix) &&
           (row == nullptr || row->HasWorkfields);
}

}  // namespace

std::vector<std::string_view> KnownProperties(std::string_view objectName) {
    std::vector<std::string_view> names;
    const ObjectRow* row = FindRoot(objectName);
    const ObjectPropertyList* list =
        row == nullptr ? nullptr : modPropertyDescriptions::FindList(row->Root);
    if (list != nullptr) {
        for (const PropertyDescription& property : list->Properties) {
            names.push_back(
                modPropertyCatalogue::Find(static_cast<std::int32_t>(property.Number))->Name);
        }
    }
    for (const ExtraRow& extra : kUnlisted) {
        if (modTextCase::Equal(extra.Object, objectName)) {
            names.push_back(extra.Property);
        }
    }
    return names;
}

Reading FindReading(std::string_view objectName, std::string_view propertyName) {
    if (FindRoot(objectName) == nullptr && !Holds(kUncatalogued, objectName)) {
        return Reading::UnknownObject;
    }
    if (Holds(kNeverSet, objectName, propertyName)) {
        return Reading::Never;
    }
    if (propertyName.empty()) {
        return Reading::UnknownProperty;
    }
    if (Holds(kOpenObjects, objectName) || IsWorkfield(objectName, propertyName) ||
        Holds(KnownProperties(objectName), propertyName)) {
        return Reading::Possible;
    }
    // Any key of a project file is a property, so only what looks like a typing error is rejected.
    if (IsProject(objectName) && Nearest(KnownProperties(objectName), propertyName, 1).empty()) {
        return Reading::Possible;
    }
    return Reading::UnknownProperty;
}

std::string NearestObject(std::string_view objectName) {
    std::vector<std::string_view> names(std::begin(kUncatalogued), std::end(kUncatalogued));
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        if (row.Type == row.Root) {
            names.push_back(row.Name);
        }
    }
    return Nearest(names, objectName, 2);
}

std::string NearestProperty(std::string_view objectName, std::string_view propertyName) {
    return Nearest(KnownProperties(objectName), propertyName, 2);
}

}  // namespace dorvik::modReadableProperties
