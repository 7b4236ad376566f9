#pragma once

#include "workstation/controls/Event.h"

#include <string>
#include <string_view>

namespace dorvik {

/// A pane that shows an HTML document: a page of its own ("about:blank" is an empty one), or what is put into the body
/// of the page that it has. A screen that loads pages takes its time: it says so by `SetLoading`, until the page is
/// there.
class DocumentPane {
public:
    struct Margins {
        int Top = 0;  // pixels, as the rest
        int Bottom = 0;
        int Left = 0;
        int Right = 0;
    };

    /// Empties the body.
    void Navigate(std::string_view address);
    const std::string& Address() const { return m_address; }
    bool Loading() const { return m_loading; }
    void SetLoading(bool loading) { m_loading = loading; }

    const Margins& BodyMargins() const { return m_margins; }
    void SetBodyMargins(const Margins& margins);
    /// The HTML inside the body; empty for a page that nothing was put into.
    const std::string& InnerHTML() const { return m_innerHtml; }
    void SetInnerHTML(std::string html);

    Event<> Changed;

private:
    std::string m_address = "about:blank";
    std::string m_innerHtml;
    Margins m_margins;
    bool m_loading = false;
};

}  // namespace dorvik
