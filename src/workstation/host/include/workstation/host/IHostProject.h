#pragma once

#include "workstation/host/HostProjectType.h"
#include "workstation/host/ICodeModule.h"
#include "workstation/host/IDesigner.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// A form, module, class or the like of an open project. It lives as long as the project holds it.
class IHostComponent {
public:
    virtual ~IHostComponent() = default;
    /// The name in the code; that of the file without its extension where the file has none.
    virtual const std::string& Name() const = 0;
    /// Full path.
    virtual const std::string& FileName() const = 0;
    virtual ICodeModule& CodeModule() = 0;
    /// Null where the component has no designer, as a module.
    virtual IHostWindow* DesignerWindow() = 0;
    virtual IDesigner* Designer() = 0;
};

/// A project that is open in the environment. It lives until the project is closed.
class IHostProject {
public:
    virtual ~IHostProject() = default;
    virtual const std::string& Name() const = 0;
    /// Full path; empty for a project that was never saved.
    virtual const std::string& FileName() const = 0;
    virtual HostProjectType Type() const = 0;
    virtual bool IsDirty() const = 0;
    virtual void SaveAs(std::string_view fileName) = 0;

    virtual std::int32_t ComponentCount() const = 0;
    virtual IHostComponent& Component(std::int32_t index) = 0;
    /// By its name or its file name, with or without folder, without regard to case. Raises `kSubscriptOutOfRange` where
    /// there is none.
    virtual IHostComponent& Component(std::string_view nameOrFile) = 0;
};

}  // namespace dorvik
