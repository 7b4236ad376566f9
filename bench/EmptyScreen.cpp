#include "EmptyScreen.h"

#include "workstation/dialogs/frmProgress.h"

namespace dorvik {

void EmptyScreen::ShowModal(frmProgress& form) {
    form.Activate();
}

}  // namespace dorvik
