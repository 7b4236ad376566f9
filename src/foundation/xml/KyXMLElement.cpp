#include "foundation/xml/KyXMLElement.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "platform/xml/XmlDocument.h"

#include <optional>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "KyXMLElement";

struct Substitution {
    std::string_view Characters;
    std::string_view Tag;
};

constexpr Substitution kSubstitutions[] = {
    {"\r\n", "%CRLF%"},
    {"\t", "%TAB%"},
    {"<", "%LT%"},
    {">", "%GT%"},
};

void LogEvent(const std::string& message, std::string_view procedure) {
    modLog::Log().LogEvent(message, procedure, kModule);
}

std::string ValueOrRaise(const std::optional<std::string>& value) {
    if (!value) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *value;
}

[[noreturn]] void RaiseMissingAttribute(const KyXMLElement& element, std::string_view name) {
    throw BasicError(
        runtimeerror::kObjectNotSet,
        RuntimeErrorText(runtimeerror::kObjectNotSet) + ": " + element.PlaceText() +
            " has no attribute " + std::string(name));
}

}  // namespace

KyXMLElement::KyXMLElement(std::shared_ptr<XmlDocument> document, const XmlNode& node)
    : m_document(std::move(document)), m_node(node) {}

std::shared_ptr<KyXMLElement>
KyXMLElement::Bind(const std::shared_ptr<XmlDocument>& document, const XmlNode& node) {
    return std::shared_ptr<KyXMLElement>(new KyXMLElement(document, node));
}

std::string KyXMLElement::XMLString() const {
    return m_node.Xml();
}

std::string KyXMLElement::PlaceText() const {
    const std::string name = ElementName();
    std::string text = name.empty() ? "a piece of text" : "the element " + name;
    const std::int32_t line = m_node.Line();
    const std::string& path = m_document->Path();
    if (line == 0 && path.empty()) {
        return text;
    }
    text += " (";
    text += line == 0 ? path : "line " + std::to_string(line) + (path.empty() ? "" : " of " + path);
    return text + ")";
}

std::int32_t KyXMLElement::ElementCount() const {
    return m_node.ChildCount();
}

std::int32_t KyXMLElement::ElementType() const {
    return m_node.Type();
}

std::string KyXMLElement::ElementName() const {
    return m_node.BaseName();
}

std::int32_t KyXMLElement::AttributeCount() const {
    return m_node.AttributeCount();
}

std::string KyXMLElement::AttributeName(std::int32_t index) const {
    return ValueOrRaise(m_node.AttributeName(index));
}

std::string KyXMLElement::AttributeValue(std::int32_t index) const {
    return RestoreIllegalChars(ValueOrRaise(m_node.AttributeValue(index)));
}

void KyXMLElement::SetAttributeValue(std::int32_t index, std::string_view value) {
    Trap({kModule, "AttributeValue"}, [&] {
        if (!m_node.SetAttributeValue(index, ReplaceIllegalChars(value))) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
    });
}

std::string KyXMLElement::AttributeValueByName(std::string_view name) const {
    const std::optional<std::string> value = m_node.Attribute(name);
    if (!value) {
        RaiseMissingAttribute(*this, name);
    }
    return RestoreIllegalChars(*value);
}

void KyXMLElement::SetAttributeValueByName(std::string_view name, std::string_view value) {
    Trap({kModule, "AttributeValueByName"}, [&] {
        if (m_node.Attribute(name)) {
            m_node.SetAttribute(name, ReplaceIllegalChars(value));
        } else {
            AddAttribute(name, value);
        }
    });
}

void KyXMLElement::AddAttribute(std::string_view name, std::string_view value) {
    Trap({kModule, "AddAttribute"}, [&] {
        if (!m_document->AllowsName(name)) {
            LogParserError("AddAttribute");
            return;
        }
        m_node.SetAttribute(name, ReplaceIllegalChars(value));
    });
}

std::shared_ptr<KyXMLElement> KyXMLElement::ElementByName(
    std::string_view name, std::int32_t& position, std::int32_t startPosition) const {
    std::shared_ptr<KyXMLElement> found;
    position = -1;
    Trap({kModule, "ElementByName"}, [&] {
        if (name.empty()) {
            LogEvent("An element name must be specified.", "ElementByName");
            return;
        }
        const std::int32_t count = m_node.ChildCount();
        const bool inside = startPosition >= 0 && startPosition < count;
        for (std::int32_t at = inside ? startPosition : 0; at < count && !found; ++at) {
            const XmlNode child = m_node.Child(at);
            if (modTextCase::Equal(child.BaseName(), name)) {
                found = Bind(m_document, child);
                position = at;
            }
        }
    });
    return found;
}

std::shared_ptr<KyXMLElement> KyXMLElement::ElementByName(std::string_view name) const {
    std::int32_t position = -1;
    return ElementByName(name, position);
}

ObjectArrayList<KyXMLElement> KyXMLElement::ElementListByName(std::string_view name) const {
    ObjectArrayList<KyXMLElement> elements;
    Trap({kModule, "ElementListByName"}, [&] {
        if (name.empty()) {
            LogEvent("An element name must be specified.", "ElementListByName");
            return;
        }
        for (const XmlNode& node : m_node.DescendantsByName(name)) {
            elements.Add(Bind(m_document, node));
        }
    });
    return elements;
}

std::shared_ptr<KyXMLElement> KyXMLElement::ElementAtPosition(std::int32_t position) const {
    return Trapped({kModule, "ElementAtPosition"}, nullptr, [&]() -> std::shared_ptr<KyXMLElement> {
        const XmlNode child = m_node.Child(position);
        if (child.IsNull()) {
            LogEvent("No element at position " + std::to_string(position), "ElementAtPosition");
            return nullptr;
        }
        return Bind(m_document, child);
    });
}

XmlNode
KyXMLElement::ChildByAttributeValue(std::string_view attributeName, std::string_view value) const {
    const std::string stored = ReplaceIllegalChars(value);
    const std::int32_t count = m_node.ChildCount();
    for (std::int32_t at = 0; at < count; ++at) {
        XmlNode child = m_node.Child(at);
        const std::optional<std::string> candidate = child.Attribute(attributeName);
        if (candidate && modTextCase::Equal(*candidate, stored)) {
            return child;
        }
    }
    return {};
}

std::shared_ptr<KyXMLElement> KyXMLElement::ElementByAttributeValue(
    std::string_view attributeName, std::string_view value) const {
    return Trapped(
        {kModule, "ElementByAttributeValue"}, nullptr, [&]() -> std::shared_ptr<KyXMLElement> {
            if (attributeName.empty()) {
                LogEvent("An attribute name must be specified.", "ElementByAttributeValue");
                return nullptr;
            }
            const XmlNode child = ChildByAttributeValue(attributeName, value);
            return child.IsNull() ? nullptr : Bind(m_document, child);
        });
}

std::shared_ptr<KyXMLElement>
KyXMLElement::AddElement(std::string_view name, std::int32_t position) {
    return Trapped({kModule, "AddElement"}, nullptr, [&]() -> std::shared_ptr<KyXMLElement> {
        if (!m_document->AllowsName(name)) {
            LogParserError("AddElement");
            return nullptr;
        }
        return Bind(m_document, m_node.AddElement(name, position));
    });
}

bool KyXMLElement::RemoveElement(std::int32_t position) {
    return Trapped({kModule, "RemoveElement"}, false, [&] {
        const XmlNode child = m_node.Child(position);
        if (child.IsNull()) {
            LogEvent(
                "No element to remove at position " + std::to_string(position), "RemoveElement");
            return false;
        }
        return RemoveChild(child, "RemoveElement");
    });
}

bool KyXMLElement::RemoveElementByAttributeValue(
    std::string_view attributeName, std::string_view value) {
    return Trapped({kModule, "RemoveElementByAttributeValue"}, false, [&] {
        const auto element = ElementByAttributeValue(attributeName, ReplaceIllegalChars(value));
        return RemoveChild(ExistingElement(element).XMLNode(), "RemoveElementByAttributeValue");
    });
}

bool KyXMLElement::RemoveChild(const XmlNode& child, std::string_view procedure) {
    const bool removed = m_node.RemoveChild(child);
    if (!removed) {
        LogParserError(procedure);
    }
    return removed;
}

void KyXMLElement::RemoveAllElements() {
    Trap({kModule, "RemoveAllElements"}, [&] {
        std::vector<XmlNode> children;
        for (std::int32_t at = 0; at < m_node.ChildCount(); ++at) {
            children.push_back(m_node.Child(at));
        }
        for (const XmlNode& child : children) {
            m_node.RemoveChild(child);
        }
    });
}

std::string KyXMLElement::ReplaceIllegalChars(std::string_view text) {
    std::string replaced(text);
    for (const Substitution& row : kSubstitutions) {
        replaced = modTextCase::ReplaceAll(replaced, row.Characters, row.Tag);
    }
    return replaced;
}

std::string KyXMLElement::RestoreIllegalChars(std::string_view text) {
    std::string restored(text);
    if (text.find('%') == std::string_view::npos) {
        return restored;
    }
    for (const Substitution& row : kSubstitutions) {
        restored = modTextCase::ReplaceAll(restored, row.Tag, row.Characters);
    }
    return restored;
}

void KyXMLElement::LogParserError(std::string_view procedure) const {
    LogEvent(m_document->Error().Message(), procedure);
}

KyXMLElement& ExistingElement(const std::shared_ptr<KyXMLElement>& element) {
    if (!element) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *element;
}

}  // namespace dorvik
