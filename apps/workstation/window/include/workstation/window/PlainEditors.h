#pragma once

#include "workstation/window/IEditorArea.h"

#include <memory>

namespace dorvik {

class Desk;

/// Code to be read in plain tabs, one for each module whose window is shown. REQUIRES: the desk outlives it.
std::unique_ptr<IEditorArea> MakePlainEditors(Desk& desk);

}  // namespace dorvik
