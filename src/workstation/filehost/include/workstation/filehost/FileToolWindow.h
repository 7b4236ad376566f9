#pragma once

#include "workstation/filehost/FileHostWindow.h"
#include "workstation/host/IHostEnvironment.h"

#include <utility>

namespace dorvik {

/// A window of an add-in. The document is informed when it is shown or hidden, by whomever; after `Close` no more.
class FileToolWindow final : public FileHostWindow {
public:
    FileToolWindow(ToolWindowRequest request, IUserDocument& document)
        : m_request(std::move(request)), m_document(&document) {}

    const ToolWindowRequest& Request() const { return m_request; }
    /// Null after `Close`.
    IUserDocument* Document() const { return m_document; }
    void SetVisible(bool visible) override;
    void Close() override;

private:
    ToolWindowRequest m_request;
    IUserDocument* m_document;
};

}  // namespace dorvik
