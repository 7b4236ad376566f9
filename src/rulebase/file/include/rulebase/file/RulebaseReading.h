#pragma once

#include "foundation/xml/KyXMLElement.h"
#include "platform/xml/XmlNode.h"
#include "rulebase/file/AttributeRow.h"
#include "rulebase/file/RulebaseContents.h"
#include "rulebase/file/RulebaseFault.h"
#include "rulebase/model/NamingConvention.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace dorvik {

/// Reads a rulebase document the way a load does, but continues after everything that would end a
/// load, and reports each such place as a fault.
class RulebaseReading {
public:
    /// REQUIRES: `root` is of the current schema and outlives this, as does `faults`.
    RulebaseReading(const KyXMLElement& root, std::vector<RulebaseFault>& faults);

    RulebaseContents Read();

private:
    using Element = std::shared_ptr<KyXMLElement>;

    void ReadProperties();
    void ReadToleranceLists(const KyXMLElement& section);
    void ReadTags(
        std::string_view section,
        std::span<const AttributeRow<TagItem>> rows,
        std::vector<RulebaseContents::Tag>& tags);
    void ReadDefaultViolations();
    void ReadCategories();
    void ReadSeverities();
    template <class Item>
    void ReadAuthorised(
        std::string_view section,
        std::type_identity_t<std::span<const AttributeRow<Item>>> rows,
        std::vector<RulebaseContents::Identified>& items);
    template <class RuleClass>
    void ReadRules(
        const Element& parent,
        std::string_view section,
        std::type_identity_t<std::span<const AttributeRow<RuleClass>>> rows);
    void ReadRulesOfTheirSection();
    void ReadViolation(const KyXMLElement& element, RulebaseContents::Rule& rule);
    void ReadNameItems(const KyXMLElement& element, RulebaseContents::Rule& rule);
    void ReadNameItemsOf(
        const KyXMLElement& element,
        std::string_view section,
        ObjectArrayList<PrefixSuffixItem>& items,
        const RulebaseContents::Rule& rule);
    void ReadReport();

    /// The child of that name, without a line in the log where there is none.
    static Element FindChild(const KyXMLElement& parent, std::string_view name);
    /// The section, or a fault and null.
    Element
    RequiredChild(const KyXMLElement& parent, std::string_view name, std::string_view where);
    /// The child elements of a list; a piece of text among them is a fault.
    std::vector<Element> ListElements(const KyXMLElement& section, const std::string& where);

    template <class Owner>
    void ReadRows(
        const KyXMLElement& element,
        std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
        Owner& owner,
        const std::function<void(std::string_view attribute, std::string sentence)>& tell);
    /// A number of an element that is read by itself; nothing, and a fault, if it is none.
    std::optional<std::int32_t>
    Number(const KyXMLElement& element, std::string_view name, const std::string& where);
    std::optional<std::string>
    Text(const KyXMLElement& element, std::string_view name, const std::string& where);

    /// What is reported from here on is in that element.
    void SetPlace(const KyXMLElement& element) { m_line = element.XMLNode().Line(); }
    void Report(std::string element, std::string_view attribute, std::string sentence);

    const KyXMLElement& m_root;
    std::vector<RulebaseFault>& m_faults;
    std::int32_t m_line = 0;
    RulebaseContents m_contents;
};

}  // namespace dorvik
