#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// A control on the designer of a form.
class IDesignerControl {
public:
    virtual ~IDesignerControl() = default;
    virtual const std::string& Name() const = 0;
    /// Its index in an array of controls.
    virtual std::optional<std::int32_t> Index() const = 0;
    virtual bool Selected() const = 0;
    virtual void SetSelected(bool selected) = 0;
};

/// The designer of a component. Controls are numbered from 1, in the order of the layout.
class IDesigner {
public:
    virtual ~IDesigner() = default;
    /// Whether it is one of a form, with controls to be selected.
    virtual bool IsFormDesigner() const = 0;
    virtual std::int32_t ControlCount() const = 0;
    virtual IDesignerControl& Control(std::int32_t index) = 0;
    /// By the name, without regard to case, and by the index where one is given; null where there is none.
    virtual IDesignerControl*
    FindControl(std::string_view name, std::optional<std::int32_t> index) = 0;
};

}  // namespace dorvik
