#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Observable.h"
#include "workstation/host/ICodeModule.h"

namespace dorvik {

/// A window of the environment: whether it is open. A screen shows it, and says by `SetVisible` that the user closed it.
class FileHostWindow : public IHostWindow {
public:
    bool Visible() const override { return IsVisible.Value(); }
    void SetVisible(bool visible) override { IsVisible.Set(visible); }
    void SetFocus() override { Focused.Raise(); }
    void Close() override { IsVisible.Set(false); }

    Observable<bool> IsVisible{false};
    Event<> Focused;
};

}  // namespace dorvik
