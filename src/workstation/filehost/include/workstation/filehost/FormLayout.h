#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {

class DesignerProperties;
class FileDesigner;

/// What a control is drawn as.
enum class ControlLook : std::uint8_t {
    Unknown,
    Label,
    TextBox,
    Frame,
    Button,
    CheckBox,
    Option,
    Combo,
    List,
    HorizontalScroll,
    VerticalScroll,
    Picture,
    Image,
    Shape,
    Line,
    Timer,  // and all others that have no size: a sign where they are
    TabControl,
    Tree,
    ListView,
    Bar,  // of tools or status
    Progress,
    Slider,
    Menu
};

/// In twips, from the corner of the form's inner area.
struct TwipRect {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;

    double Right() const { return Left + Width; }
    double Bottom() const { return Top + Height; }
    bool Contains(double x, double y) const {
        return x >= Left && x < Right() && y >= Top && y < Bottom();
    }
    TwipRect Intersected(const TwipRect& other) const;

    friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

struct TwipLine {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
};

/// A control where the form has it.
struct PlacedControl {
    std::int32_t Control = 0;  // its number in the designer
    ControlLook Look = ControlLook::Unknown;
    TwipRect Bounds;
    TwipRect Clip;        // what its containers leave of the form
    TwipLine Line;        // of a line
    bool IsOnTop = true;  // of its container: false on a page of a tab control that is not shown
};

/// Where the controls of a form are: their properties, each in the scale of its container, as places on the form.
class FormLayout {
public:
    /// REQUIRES: the designer outlives the layout.
    explicit FormLayout(FileDesigner& designer);

    /// Of the inner area.
    double Width() const { return m_width; }
    double Height() const { return m_height; }
    /// In the order in which they are drawn: containers before what is in them, those in front last. Without menus.
    const std::vector<PlacedControl>& Controls() const { return m_controls; }
    /// The numbers of the menus of the menu bar.
    const std::vector<std::int32_t>& Menus() const { return m_menus; }
    /// The number of the control in front at a place; 0 where there is the form itself.
    std::int32_t ControlAt(double x, double y) const;
    /// Null for a menu.
    const PlacedControl* Find(std::int32_t control) const;

private:
    struct Container;

    void PlaceForm(FileDesigner& designer);
    void PlaceAll(FileDesigner& designer);
    PlacedControl
    Placed(FileDesigner& designer, std::int32_t number, const Container& container) const;
    Container Inside(FileDesigner& designer, const PlacedControl& control) const;

    double m_width = 0;
    double m_height = 0;
    std::vector<PlacedControl> m_controls;
    std::vector<std::int32_t> m_menus;
};

ControlLook LookOf(const std::string& type);
/// The captions of a tab control, in their order, and the number of the one that is shown, from 0.
std::vector<std::string> TabCaptions(const DesignerProperties& properties);
std::size_t ShownTab(const DesignerProperties& properties);

}  // namespace dorvik
