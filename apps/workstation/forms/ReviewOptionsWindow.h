#pragma once

#include "FormWindow.h"
#include "workstation/dialogs/frmReviewOptions.h"

#include <string>
#include <string_view>

class QBoxLayout;
class QTabWidget;

namespace dorvik {

/// The dialog of review options and, with fewer pages, that of the filter of results.
class ReviewOptionsWindow final : public FormWindow {
public:
    /// REQUIRES: `form` has its mode, and outlives this or is detached from it.
    ReviewOptionsWindow(frmReviewOptions& form, QWidget* parent);

private:
    void AddProjectsPage();
    void AddRulebaseBox(QWidget& page, QBoxLayout& layout);
    void AddResultsPage();
    void AddReports(QBoxLayout& layout);
    void AddListPage(
        CheckList& list,
        Observable<std::string>& heading,
        std::string_view name,
        std::string_view spoken);
    void AddTolerancesPage();
    void AddSelectButtons(QBoxLayout& layout, std::string_view page);
    void AddButtons(QBoxLayout& layout);
    void ShowOfferedPages();
    void Ok();
    void MoveFocus();

    frmReviewOptions& m_form;
    QTabWidget& m_pages;
};

}  // namespace dorvik
