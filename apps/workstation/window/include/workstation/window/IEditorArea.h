#pragma once

#include "workstation/controls/Event.h"

#include <cstdint>
#include <optional>
#include <string>

class QWidget;

namespace dorvik {

/// What the user does to the code in front.
enum class EditorCommand : std::int32_t {
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Find,
    Replace,
    FindNext,
    FindPrevious,
    GoToLine,
    Comment,
    Uncomment,
    CloseTab,
    NextTab,
    PreviousTab,
    ZoomIn,
    ZoomOut,
    ZoomReset,
};

/// Where the user is in the code.
struct EditorPlace {
    std::string Project;
    std::string File;       // full path
    std::int32_t Line = 0;  // 0 on a designer
    std::int32_t Column = 0;
};

/// The tabs with the code and the designers of the open projects. Which there are follows the windows of the environment.
class IEditorArea {
public:
    virtual ~IEditorArea() = default;

    virtual QWidget& Widget() = 0;
    virtual bool IsEmpty() const = 0;
    /// Nothing without a tab.
    virtual std::optional<EditorPlace> Place() const = 0;
    /// Does nothing where it makes no sense.
    virtual void Do(EditorCommand command) = 0;
    /// Marks the violations that are shown now beside their lines.
    virtual void ShowFindings() = 0;

    /// Another tab, another place in it, or none any more.
    Event<> PlaceChanged;
};

}  // namespace dorvik
