#pragma once

#include "workstation/controls/CommandControl.h"
#include "workstation/controls/Event.h"
#include "workstation/host/IHostProject.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// The environment's numbers of the kinds of file that are of interest.
enum class HostFileType : std::int32_t { Form = 0, Module = 1, Class = 2, Project = 3, Other = 4 };

/// Commands and menus of the environment by their numbers.
namespace hostcommand {
inline constexpr std::int32_t kProjectProperties = 2578;
inline constexpr std::int32_t kReferences = 942;
inline constexpr std::int32_t kProjectMenu = 30005;
inline constexpr std::int32_t kToolsMenu = 30007;
}  // namespace hostcommand

/// What a tool window is made with.
struct ToolWindowRequest {
    std::string ProgrammaticId;
    std::string Caption;
    std::string Guid;
};

/// The document that a tool window shows.
class IUserDocument {
public:
    virtual ~IUserDocument() = default;
    /// The window was shown or hidden, by the user or the program.
    virtual void VisibleChanged(bool visible) = 0;
};

/// What happens in the environment. Names are those after the event, where nothing else is said.
struct HostEvents {
    Event<IHostProject&> ProjectActivated;
    Event<IHostProject&> ProjectAdded;
    Event<const std::string&> ProjectRemoved;                 // its name
    Event<IHostProject&, const std::string&> ProjectRenamed;  // and the old name
    Event<IHostProject&, HostFileType, const std::string&>
        AfterChangeFileName;                                 // and the new file name
    Event<IHostComponent&, const std::string&> FileRenamed;  // and the old name
    Event<IHostProject&, IHostComponent&> FileSelected;
    Event<> StartupComplete;
};

/// The development environment, as far as the work bench needs it. All calls and events are on one thread. An operation
/// that the environment refuses raises a `BasicError`.
class IHostEnvironment {
public:
    virtual ~IHostEnvironment() = default;

    /// Projects from 1, in the order in which they were opened.
    virtual std::int32_t ProjectCount() const = 0;
    /// Raises `kSubscriptOutOfRange`.
    virtual IHostProject& Project(std::int32_t index) = 0;
    virtual IHostProject& Project(std::string_view name) = 0;
    /// Null where no project is open.
    virtual IHostProject* ActiveProject() = 0;

    /// Shows `document`, which has to live until the window is closed. The window is hidden at first.
    virtual std::unique_ptr<IHostWindow>
    CreateToolWindow(const ToolWindowRequest& request, IUserDocument& document) = 0;

    /// The menu bar, and all other bars as popups in the order in which they were added.
    virtual CommandControl& MenuBar() = 0;
    virtual CommandControl& AddCommandBar(std::string_view name) = 0;
    virtual void RemoveCommandBar(CommandControl& bar) = 0;

    /// Runs a command of the environment by its number.
    virtual void ExecuteCommand(std::int32_t id) = 0;
    /// Begins to save a project; `IsIdle` says when the user and the environment have done so.
    virtual void BeginSave(IHostProject& project) = 0;
    virtual bool IsIdle() const = 0;

    virtual HostEvents& Events() = 0;
};

}  // namespace dorvik
