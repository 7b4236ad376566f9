#include "workstation/dialogs/modAllItems.h"

namespace dorvik::modAllItems {

ComboItem AllFiles() {
    return {std::string(kKey), {}, "(All Source Files)", std::string(kImage)};
}

}  // namespace dorvik::modAllItems
