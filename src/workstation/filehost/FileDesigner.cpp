#include "workstation/filehost/FileDesigner.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kBegin = "Begin ";

/// The number of a line `Index = 3 'comment`.
std::optional<std::int32_t> IndexIn(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos ||
        !modTextCase::Equal(modText::Trim(line.substr(0, equals)), "Index")) {
        return std::nullopt;
    }
    const std::string_view value = line.substr(equals + 1);
    return modText::WholeNumber(modText::Trim(value.substr(0, value.find('\''))));
}

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
    } else if (modTextCase::StartsWith(line, "BeginProperty ")) {
        ++m_propertyDepth;
    } else if (modTextCase::Equal(line, "EndProperty")) {
        m_propertyDepth -= m_propertyDepth > 0 ? 1 : 0;
    } else if (modTextCase::Equal(line, "End")) {
        m_propertyDepth = 0;
        if (!m_open.empty()) {
            m_open.pop_back();
        }
    } else if (m_propertyDepth == 0 && !m_open.empty() && m_open.back() != 0) {
        if (const auto index = IndexIn(line)) {
            Control(m_open.back()).m_index = index;
        }
    }
}

void FileDesigner::TakeBegin(std::string_view definition) {
    const std::size_t blank = definition.find(' ');
    std::string type(definition.substr(0, blank));
    std::string name(
        blank == std::string_view::npos ? "" : modText::Trim(definition.substr(blank)));
    if (m_open.empty()) {
        m_type = std::move(type);
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
