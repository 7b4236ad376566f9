#include "workstation/filehost/FileDesigner.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kBegin = "Begin ";

constexpr std::string_view kBeginProperty = "BeginProperty ";
constexpr std::size_t kMostBlocks = 16;  // in one another; properties deeper down are ignored

}  // namespace

void FileDesignerControl::SetSelected(bool selected) {
    if (m_selected != selected) {
        m_selected = selected;
        m_designer.SelectionChanged.Raise(*this);
    }
}

FileDesigner::FileDesigner(const std::vector<std::string>& lines, bool isFormDesigner)
    : m_isFormDesigner(isFormDesigner) {
    for (const std::string& line : lines) {
        TakeLine(modText::Trim(line));
        if (!m_type.empty() && m_open.empty()) {
            break;
        }
    }
}

void FileDesigner::TakeLine(std::string_view line) {
    if (modTextCase::StartsWith(line, kBegin)) {
        TakeBegin(modText::Trim(line.substr(kBegin.size())));
    } else if (modTextCase::StartsWith(line, kBeginProperty)) {
        const std::string_view block = modText::Trim(line.substr(kBeginProperty.size()));
        m_blocks.emplace_back(block.substr(0, block.find(' ')));
    } else if (modTextCase::Equal(line, "EndProperty")) {
        if (!m_blocks.empty()) {
            m_blocks.pop_back();
        }
    } else if (modTextCase::Equal(line, "End")) {
        m_blocks.clear();
        if (!m_open.empty()) {
            m_open.pop_back();
        }
    } else if (!m_open.empty()) {
        TakeProperty(line);
    }
}

void FileDesigner::TakeProperty(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || m_blocks.size() > kMostBlocks) {
        return;
    }
    std::string name;
    for (const std::string& block : m_blocks) {
        name += block + '.';
    }
    name += modText::TrimRight(line.substr(0, equals));
    const bool isForm = m_open.back() == 0;
    DesignerProperties& properties = isForm ? m_properties : Control(m_open.back()).m_properties;
    properties.Add(name, modText::TrimLeft(line.substr(equals + 1)));
    if (!isForm && m_blocks.empty() && modTextCase::Equal(name, "Index")) {
        Control(m_open.back()).m_index = modText::WholeNumber(properties.Text("Index"));
    }
}

void FileDesigner::TakeBegin(std::string_view definition) {
    const std::size_t blank = definition.find(' ');
    std::string type(definition.substr(0, blank));
    std::string name(
        blank == std::string_view::npos ? "" : modText::Trim(definition.substr(blank)));
    if (m_open.empty()) {
        m_type = std::move(type);
        m_name = std::move(name);
        m_open.push_back(0);
        return;
    }
    m_controls.push_back(
        std::make_unique<FileDesignerControl>(*this, std::move(type), std::move(name)));
    m_controls.back()->m_container = m_open.back();
    m_open.push_back(ControlCount());
}

FileDesignerControl& FileDesigner::Control(std::int32_t index) {
    if (index < 1 || index > ControlCount()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_controls[static_cast<std::size_t>(index) - 1];
}

FileDesignerControl*
FileDesigner::FindControl(std::string_view name, std::optional<std::int32_t> index) {
    for (const auto& control : m_controls) {
        if ((!index || control->Index() == index) && modTextCase::Equal(control->Name(), name)) {
            return control.get();
        }
    }
    return nullptr;
}

}  // namespace dorvik
