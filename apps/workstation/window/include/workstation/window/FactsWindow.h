#pragma once

#include "workstation/desk/ProjectFacts.h"

#include <QDialog>

namespace dorvik {

/// Shows the facts of a project, with its properties or its references in front.
class FactsWindow final : public QDialog {
public:
    enum class Page { Properties, References };

    FactsWindow(const ProjectFacts& facts, Page page, QWidget* parent);
};

}  // namespace dorvik
