#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmOptions.h"

#include <string_view>

class QBoxLayout;
class QTabWidget;

namespace dorvik {

class OptionsWindow final : public FormWindow {
public:
    OptionsWindow(frmOptions& form, QWidget* parent);

private:
    /// What the options of one list of the hotspot view are.
    struct MemberList {
        std::string_view Title;
        std::string_view Caption;
        std::string_view ListName;
        std::string_view OrderName;
        std::string_view ZeroName;
        std::string_view ZeroCaption;
        ComboBox& SortBy;
        Observable<bool>& IsAscending;
        Observable<bool>& ShowsZero;
    };

    void AddGeneralPage();
    void AddReviewPage();
    void AddResultsViewPage();
    void AddCompletedItems(QWidget& page, QBoxLayout& layout);
    void AddMembers(QWidget& page, QBoxLayout& layout, const MemberList& members);
    void AddFoldersPage();
    void AddButtons(QBoxLayout& layout);

    frmOptions& m_form;
    QTabWidget& m_pages;
};

}  // namespace dorvik
