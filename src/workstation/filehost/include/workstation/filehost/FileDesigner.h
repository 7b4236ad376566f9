#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/DesignerProperties.h"
#include "workstation/host/IDesigner.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class FileDesigner;

/// A control as the layout of its form has it.
class FileDesignerControl final : public IDesignerControl {
public:
    FileDesignerControl(FileDesigner& designer, std::string type, std::string name)
        : m_designer(designer), m_type(std::move(type)), m_name(std::move(name)) {}

    const std::string& Name() const override { return m_name; }
    std::optional<std::int32_t> Index() const override { return m_index; }
    bool Selected() const override { return m_selected; }
    void SetSelected(bool selected) override;

    /// As written: "VB.TextBox".
    const std::string& Type() const { return m_type; }
    /// The number of the control that it is in; 0 for one that is on the form itself.
    std::int32_t Container() const { return m_container; }
    const DesignerProperties& Properties() const { return m_properties; }

private:
    friend class FileDesigner;

    FileDesigner& m_designer;
    std::string m_type;
    std::string m_name;
    std::optional<std::int32_t> m_index;
    std::int32_t m_container = 0;
    DesignerProperties m_properties;
    bool m_selected = false;
};

/// The controls of a layout, menus among them. Each comes after the one that it is in.
class FileDesigner final : public IDesigner {
public:
    /// `lines` are those above the code of a file. A layout that breaks off has the controls up to there.
    FileDesigner(const std::vector<std::string>& lines, bool isFormDesigner);
    FileDesigner(const FileDesigner&) = delete;
    FileDesigner& operator=(const FileDesigner&) = delete;

    bool IsFormDesigner() const override { return m_isFormDesigner; }
    std::int32_t ControlCount() const override {
        return static_cast<std::int32_t>(m_controls.size());
    }
    /// Raises `kSubscriptOutOfRange`.
    FileDesignerControl& Control(std::int32_t index) override;
    FileDesignerControl*
    FindControl(std::string_view name, std::optional<std::int32_t> index) override;

    /// What the layout is of: "VB.Form". Empty without a layout.
    const std::string& Type() const { return m_type; }
    /// The name of the form itself, and its properties.
    const std::string& Name() const { return m_name; }
    const DesignerProperties& Properties() const { return m_properties; }

    /// After a control was selected or deselected.
    Event<FileDesignerControl&> SelectionChanged;

private:
    void TakeLine(std::string_view line);
    void TakeBegin(std::string_view definition);
    void TakeProperty(std::string_view line);

    bool m_isFormDesigner;
    std::string m_type;
    std::string m_name;
    DesignerProperties m_properties;
    std::vector<std::unique_ptr<FileDesignerControl>> m_controls;
    std::vector<std::int32_t> m_open;   // the objects around the line at hand; 0 is the form
    std::vector<std::string> m_blocks;  // of properties around it
};

}  // namespace dorvik
