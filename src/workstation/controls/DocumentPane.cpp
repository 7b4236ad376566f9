#include "workstation/controls/DocumentPane.h"

#include <utility>

namespace dorvik {

void DocumentPane::Navigate(std::string_view address) {
    m_address = address;
    m_innerHtml.clear();
    Changed.Raise();
}

void DocumentPane::SetBodyMargins(const Margins& margins) {
    m_margins = margins;
    Changed.Raise();
}

void DocumentPane::SetInnerHTML(std::string html) {
    m_innerHtml = std::move(html);
    Changed.Raise();
}

}  // namespace dorvik
