#pragma once

#include "platform/host/IMessageBox.h"

#include <QPointer>
#include <QWidget>

namespace dorvik {

/// Shows messages in a modal box. Escape and the closing of the box answer as `Refusal` does.
class QtMessageBox final : public IMessageBox {
public:
    /// `owner` is the window that a box belongs to while no modal one is shown, null for none. It may go before this does.
    explicit QtMessageBox(QWidget* owner = nullptr) : m_owner(owner) {}

    void SetOwner(QWidget* owner) { m_owner = owner; }

    MessageAnswer Show(const MessageText& message) override;

private:
    QPointer<QWidget> m_owner;
};

}  // namespace dorvik
