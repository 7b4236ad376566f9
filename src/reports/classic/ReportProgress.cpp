#include "ReportProgress.h"

#include "platform/host/modHost.h"

namespace dorvik {

bool ReportProgress::Update(std::int32_t state) {
    bool cancel = false;
    if (m_events != nullptr) {
        m_events->ReportsProgress(m_info, state, cancel);
    }
    modHost::YieldToInput();
    return cancel;
}

}  // namespace dorvik
