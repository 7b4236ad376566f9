#include "parser/NamingTags.h"

#include "modNames.h"
#include "source/PropertyName.h"

#include <array>

namespace dorvik {

const std::string* NamingTags::Find(std::string_view propertyName) const {
    struct Row {
        std::string_view Name;
        std::string NamingTags::*Tag;
    };
    static constexpr std::array kTags = {
        Row{propertyname::kArrayTag, &NamingTags::Array},
        Row{propertyname::kControlTag, &NamingTags::Control},
        Row{propertyname::kScopeTag, &NamingTags::Scope},
        Row{propertyname::kDataTypeTag, &NamingTags::DataType},
    };
    const Row* row = modNames::FindRow(kTags, propertyName);
    return row == nullptr ? nullptr : &(this->*row->Tag);
}

}  // namespace dorvik
