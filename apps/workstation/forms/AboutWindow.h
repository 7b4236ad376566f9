#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmAbout.h"

#include <functional>
#include <string>

namespace dorvik {

class AboutWindow final : public FormWindow {
public:
    /// Addresses that the user clicks on go to `open`.
    AboutWindow(frmAbout& form, QWidget* parent, std::function<void(const std::string&)> open);
};

}  // namespace dorvik
