#pragma once

#include "workstation/host/HostCallList.h"
#include "workstation/host/IHostEnvironment.h"

#include <cstdint>
#include <string_view>

namespace dorvik {

/// The environment of a session: what the add-in sees of it, and what the session's user does in it.
///
/// Projects are named by their names, files by component or file, of the active project first; lines count from 1. What
/// is not there raises `kSubscriptOutOfRange`; what the environment refuses raises another `BasicError`.
class ISessionHost {
public:
    virtual ~ISessionHost() = default;

    virtual IHostEnvironment& Environment() = 0;
    /// What the add-in asked of the environment, and of the system through its screen.
    virtual HostCallList& Calls() = 0;

    /// Opens a project or all projects of a group. `path` is the program's own. False where none was opened.
    virtual bool Open(std::string_view path) = 0;
    /// Changes that were not saved are lost.
    virtual void CloseProject(std::string_view project) = 0;
    virtual void ActivateProject(std::string_view project) = 0;
    virtual void RenameProject(std::string_view oldName, std::string_view newName) = 0;
    virtual void SelectFile(std::string_view file) = 0;
    /// What the project says of itself, whatever is so.
    virtual void SetDirty(std::string_view project, bool dirty) = 0;
    virtual void SetNeverSaved(std::string_view project, bool neverSaved) = 0;
    /// False where not all could be saved.
    virtual bool Save(std::string_view project) = 0;
    /// The projects that are dirty or were never saved.
    virtual bool SaveAll() = 0;

    /// Null where no project has the file.
    virtual IHostComponent* FindComponent(std::string_view file) = 0;
    virtual void ReplaceLine(std::string_view file, std::int32_t line, std::string_view text) = 0;
    /// In front of the line; the one after the last is allowed.
    virtual void InsertLine(std::string_view file, std::int32_t line, std::string_view text) = 0;
    virtual void DeleteLine(std::string_view file, std::int32_t line) = 0;
};

}  // namespace dorvik
