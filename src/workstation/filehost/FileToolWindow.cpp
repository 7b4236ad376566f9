#include "workstation/filehost/FileToolWindow.h"

namespace dorvik {

void FileToolWindow::SetVisible(bool visible) {
    const bool isChange = visible != Visible();
    FileHostWindow::SetVisible(visible);
    if (isChange && m_document != nullptr) {
        m_document->VisibleChanged(visible);
    }
}

void FileToolWindow::Close() {
    m_document = nullptr;
    FileHostWindow::Close();
}

}  // namespace dorvik
