#include "workstation/filehost/FormLayout.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "workstation/filehost/FileDesigner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr double kSignSize = 420;     // of a control without a size
constexpr double kFarAway = -10'000;  // where a tab control puts what is on its other pages
constexpr double kMost = 1'000'000;
constexpr double kBorder = 30;

/// Twips of a unit across and down, by scale mode.
struct Scale {
    double X = 1;
    double Y = 1;
};
constexpr std::array<Scale, 8> kScales = {
    {{1, 1},
     {1, 1},
     {20, 20},                    // points
     {15, 15},                    // pixels
     {120, 240},                  // characters
     {1440, 1440},                // inches
     {1440 / 25.4, 1440 / 25.4},  // millimetres
     {1440 / 2.54, 1440 / 2.54}}};

struct NamedLook {
    std::string_view Word;
    ControlLook Look;
};

/// Words in the names of classes, the longer ones before those that are within them.
constexpr std::array kLooks = {
    NamedLook{"commandbutton", ControlLook::Button},
    NamedLook{"optionbutton", ControlLook::Option},
    NamedLook{"radiobutton", ControlLook::Option},
    NamedLook{"checkbox", ControlLook::CheckBox},
    NamedLook{"drivelistbox", ControlLook::Combo},
    NamedLook{"combobox", ControlLook::Combo},
    NamedLook{"imagecombo", ControlLook::Combo},
    NamedLook{"dropdown", ControlLook::Combo},
    NamedLook{"dtpicker", ControlLook::Combo},
    NamedLook{"datacombo", ControlLook::Combo},
    NamedLook{"imagelist", ControlLook::Timer},
    NamedLook{"commondialog", ControlLook::Timer},
    NamedLook{"winsock", ControlLook::Timer},
    NamedLook{"listview", ControlLook::ListView},
    NamedLook{"flexgrid", ControlLook::ListView},
    NamedLook{"datagrid", ControlLook::ListView},
    NamedLook{"treeview", ControlLook::Tree},
    NamedLook{"dirlistbox", ControlLook::List},
    NamedLook{"filelistbox", ControlLook::List},
    NamedLook{"listbox", ControlLook::List},
    NamedLook{"richtextbox", ControlLook::TextBox},
    NamedLook{"textbox", ControlLook::TextBox},
    NamedLook{"maskedit", ControlLook::TextBox},
    NamedLook{"hscrollbar", ControlLook::HorizontalScroll},
    NamedLook{"vscrollbar", ControlLook::VerticalScroll},
    NamedLook{"picturebox", ControlLook::Picture},
    NamedLook{"statusbar", ControlLook::Bar},
    NamedLook{"toolbar", ControlLook::Bar},
    NamedLook{"coolbar", ControlLook::Bar},
    NamedLook{"progressbar", ControlLook::Progress},
    NamedLook{"slider", ControlLook::Slider},
    NamedLook{"tabstrip", ControlLook::TabControl},
    NamedLook{"sstab", ControlLook::TabControl},
    NamedLook{"timer", ControlLook::Timer},
    NamedLook{"button", ControlLook::Button},
    NamedLook{"label", ControlLook::Label},
    NamedLook{"frame", ControlLook::Frame},
    NamedLook{"image", ControlLook::Image},
    NamedLook{"shape", ControlLook::Shape}};

/// Those that are drawn on their container itself, and so below all others that are in it.
bool IsDrawn(ControlLook look) {
    return look == ControlLook::Label || look == ControlLook::Image || look == ControlLook::Shape ||
           look == ControlLook::Line;
}

double Limited(double value) {
    return std::clamp(value, -kMost, kMost);
}

Scale ScaleOf(const DesignerProperties& properties, double width, double height) {
    const auto mode = properties.WholeNumber("ScaleMode", 1);
    const double across = properties.Number("ScaleWidth").value_or(0);
    const double down = properties.Number("ScaleHeight").value_or(0);
    if (mode == 0 && across != 0 && down != 0) {
        return {Limited(width / across), Limited(height / down)};
    }
    return kScales.at(mode > 0 && mode < 8 ? static_cast<std::size_t>(mode) : 1);
}

}  // namespace

/// What controls are placed in.
struct FormLayout::Container {
    double Left = 0;  // of its origin
    double Top = 0;
    Scale Unit;
    TwipRect Clip;
    bool HasPages = false;
    bool IsOnTop = true;
};

TwipRect TwipRect::Intersected(const TwipRect& other) const {
    TwipRect common;
    common.Left = std::max(Left, other.Left);
    common.Top = std::max(Top, other.Top);
    common.Width = std::max(0.0, std::min(Right(), other.Right()) - common.Left);
    common.Height = std::max(0.0, std::min(Bottom(), other.Bottom()) - common.Top);
    return common;
}

ControlLook LookOf(const std::string& type) {
    if (modTextCase::Equal(type, "VB.Menu")) {
        return ControlLook::Menu;
    }
    if (modTextCase::Equal(type, "VB.Line")) {
        return ControlLook::Line;
    }
    const std::string name = modTextCase::ToLower(type.substr(type.find('.') + 1));
    for (const NamedLook& named : kLooks) {
        if (name.find(named.Word) != std::string::npos) {
            return named.Look;
        }
    }
    return ControlLook::Unknown;
}

std::vector<std::string> TabCaptions(const DesignerProperties& properties) {
    std::vector<std::string> captions;
    const auto take = [&](const std::string& before, int first, const std::string& after) {
        for (int tab = first; captions.size() < 100; ++tab) {
            const std::string* caption = properties.Find(before + std::to_string(tab) + after);
            if (caption == nullptr) {
                return;
            }
            captions.push_back(*caption);
        }
    };
    take("TabCaption(", 0, ")");
    if (captions.empty()) {
        take("Tabs.Tab", 1, ".Caption");
    }
    return captions;
}

std::size_t ShownTab(const DesignerProperties& properties) {
    return static_cast<std::size_t>(std::max(properties.WholeNumber("Tab"), 0));
}

FormLayout::FormLayout(FileDesigner& designer) {
    PlaceForm(designer);
    PlaceAll(designer);
}

void FormLayout::PlaceForm(FileDesigner& designer) {
    const DesignerProperties& form = designer.Properties();
    const auto side = [&](const char* client, const char* outer, const char* inner, double unit) {
        for (const char* name : {client, outer}) {
            if (const auto size = form.Number(name); size && *size > 0) {
                return std::min(*size, kMost);
            }
        }
        const double size = form.Number(inner).value_or(0) * unit;
        return size > 0 ? std::min(size, kMost) : 4800;
    };
    const Scale unit = ScaleOf(form, 1, 1);
    m_width = side("ClientWidth", "Width", "ScaleWidth", unit.X);
    m_height = side("ClientHeight", "Height", "ScaleHeight", unit.Y);
}

void FormLayout::PlaceAll(FileDesigner& designer) {
    const auto count = static_cast<std::size_t>(designer.ControlCount());
    std::vector<std::vector<std::int32_t>> within(count + 1);
    for (std::int32_t number = 1; number <= designer.ControlCount(); ++number) {
        const FileDesignerControl& control = designer.Control(number);
        if (LookOf(control.Type()) != ControlLook::Menu) {
            within[static_cast<std::size_t>(control.Container())].push_back(number);
        } else if (control.Container() == 0 && control.Properties().Flag("Visible", true)) {
            m_menus.push_back(number);
        }
    }
    Container form;
    form.Unit = ScaleOf(designer.Properties(), m_width, m_height);
    form.Left = -designer.Properties().Number("ScaleLeft").value_or(0) * form.Unit.X;
    form.Top = -designer.Properties().Number("ScaleTop").value_or(0) * form.Unit.Y;
    form.Clip = {0, 0, m_width, m_height};
    std::vector<std::pair<std::int32_t, Container>> open;
    const auto add = [&](std::int32_t number, const Container& container) {
        // The one that is written first is in front; the last one of the stack is drawn next.
        for (const bool isDrawn : {false, true}) {
            for (const std::int32_t child : within[static_cast<std::size_t>(number)]) {
                if (IsDrawn(LookOf(designer.Control(child).Type())) == isDrawn) {
                    open.emplace_back(child, container);
                }
            }
        }
    };
    add(0, form);
    while (!open.empty()) {
        const auto [number, container] = open.back();
        open.pop_back();
        m_controls.push_back(Placed(designer, number, container));
        if (!within[static_cast<std::size_t>(number)].empty()) {
            add(number, Inside(designer, m_controls.back()));
        }
    }
}

PlacedControl
FormLayout::Placed(FileDesigner& designer, std::int32_t number, const Container& container) const {
    const FileDesignerControl& control = designer.Control(number);
    const DesignerProperties& properties = control.Properties();
    // Controls of other libraries are written in twips whatever the scale.
    const bool isOwn = modTextCase::StartsWith(control.Type(), "VB.");
    const Scale unit = isOwn ? container.Unit : Scale();
    const auto at = [&](const char* name, double factor) {
        return Limited(properties.Number(name).value_or(0) * factor);
    };
    PlacedControl placed;
    placed.Control = number;
    placed.Look = LookOf(control.Type());
    placed.Clip = container.Clip;
    placed.IsOnTop = container.IsOnTop;
    if (placed.Look == ControlLook::Line) {
        placed.Line = {
            container.Left + at("X1", unit.X),
            container.Top + at("Y1", unit.Y),
            container.Left + at("X2", unit.X),
            container.Top + at("Y2", unit.Y)};
        const TwipLine& line = placed.Line;
        placed.Bounds = {
            std::min(line.X1, line.X2),
            std::min(line.Y1, line.Y2),
            std::abs(line.X1 - line.X2),
            std::abs(line.Y1 - line.Y2)};
        return placed;
    }
    const double left = at("Left", unit.X);
    placed.IsOnTop = placed.IsOnTop && !(container.HasPages && left < kFarAway);
    placed.Bounds = {
        container.Left + left,
        container.Top + at("Top", unit.Y),
        std::max(0.0, at("Width", unit.X)),
        std::max(0.0, at("Height", unit.Y))};
    if (properties.Find("Width") == nullptr) {
        // What has no size is a sign, whatever it is.
        placed.Look = placed.Look == ControlLook::Unknown ? ControlLook::Timer : placed.Look;
        placed.Bounds.Width = kSignSize;
        placed.Bounds.Height = kSignSize;
    }
    return placed;
}

FormLayout::Container
FormLayout::Inside(FileDesigner& designer, const PlacedControl& control) const {
    const DesignerProperties& properties = designer.Control(control.Control).Properties();
    const bool hasScale =
        control.Look != ControlLook::Frame && control.Look != ControlLook::TabControl;
    const bool hasBorder =
        control.Look == ControlLook::Picture && properties.WholeNumber("BorderStyle", 1) != 0;
    Container inside;
    if (hasScale) {
        inside.Unit = ScaleOf(properties, control.Bounds.Width, control.Bounds.Height);
    }
    const double border = hasBorder ? kBorder : 0;
    inside.Left = control.Bounds.Left + border;
    inside.Top = control.Bounds.Top + border;
    if (hasScale) {
        inside.Left -= properties.Number("ScaleLeft").value_or(0) * inside.Unit.X;
        inside.Top -= properties.Number("ScaleTop").value_or(0) * inside.Unit.Y;
    }
    inside.Clip = control.Clip.Intersected(control.Bounds);
    inside.HasPages = control.Look == ControlLook::TabControl;
    inside.IsOnTop = control.IsOnTop;
    return inside;
}

std::int32_t FormLayout::ControlAt(double x, double y) const {
    constexpr double kReach = 60;  // around a line
    const auto isHit = [&](const PlacedControl& placed) {
        TwipRect bounds = placed.Bounds;
        if (placed.Look == ControlLook::Line) {
            bounds = {
                bounds.Left - kReach,
                bounds.Top - kReach,
                bounds.Width + 2 * kReach,
                bounds.Height + 2 * kReach};
        }
        return placed.IsOnTop && bounds.Contains(x, y) && placed.Clip.Contains(x, y);
    };
    const auto found = std::find_if(m_controls.rbegin(), m_controls.rend(), isHit);
    return found == m_controls.rend() ? 0 : found->Control;
}

const PlacedControl* FormLayout::Find(std::int32_t control) const {
    const auto found = std::ranges::find(m_controls, control, &PlacedControl::Control);
    return found == m_controls.end() ? nullptr : &*found;
}

}  // namespace dorvik
