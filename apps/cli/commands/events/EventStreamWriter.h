#pragma once

#include "cli/output/Interrupt.h"
#include "parser/VB6ParserState.h"
#include "review/IProjectEventListener.h"

#include <string>
#include <string_view>

namespace dorvik {

class VirtualObject;

/// Writes each parser event as one JSON object on a line of standard output.
class EventStreamWriter final : public IProjectEventListener {
public:
    /// REQUIRES: `interrupt` outlives this object.
    explicit EventStreamWriter(const Interrupt& interrupt) : m_interrupt(interrupt) {}
    ~EventStreamWriter() override;

    void EventFired(
        dorvik::ParserEvent event,
        const VB6ParserState& state,
        const VirtualSourceFile* file) override;
    void FileFailed(const VirtualSourceFile& file) override;
    void LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) override;
    bool StopRequested() override;

    /// False if a file, or a layout, was not read to its end.
    bool IsComplete() const { return m_isComplete; }

private:
    void Flush();

    const Interrupt& m_interrupt;
    std::string m_pending;  // lines not yet written
    const VirtualSourceFile* m_file = nullptr;
    std::string m_shownFile;
    bool m_isComplete = true;
};

}  // namespace dorvik
