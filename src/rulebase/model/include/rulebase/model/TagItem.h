#pragma once

#include <string>

namespace dorvik {

/// A row of a tag table: the text that stands for a control type, data type or scope in names.
/// Every write but that of `Locked` sets `Dirty`.
class TagItem {
public:
    const std::string& TagName() const { return m_tagName; }
    void SetTagName(std::string name);
    const std::string& TagValue() const { return m_tagValue; }
    void SetTagValue(std::string value);
    /// True on the rows of the default tables; for the rulebase editor.
    bool Locked() const { return m_locked; }
    void SetLocked(bool locked) { m_locked = locked; }
    bool Dirty() const { return m_dirty; }
    void SetDirty(bool dirty) { m_dirty = dirty; }
    const std::string& TagDescription() const { return m_tagDescription; }
    void SetTagDescription(std::string description);
    const std::string& TagExample() const { return m_tagExample; }
    void SetTagExample(std::string example);

private:
    std::string m_tagName;
    std::string m_tagValue;
    std::string m_tagDescription;
    std::string m_tagExample;
    bool m_locked = false;
    bool m_dirty = false;
};

}  // namespace dorvik
