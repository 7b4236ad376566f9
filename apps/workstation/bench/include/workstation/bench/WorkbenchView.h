#pragma once

#include "workstation/bench/DocumentationView.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/TableExport.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/widgets/Bindings.h"
#include "workstation/widgets/GridView.h"
#include "workstation/widgets/GroupByBar.h"
#include "workstation/widgets/ListTableView.h"

#include <QWidget>

#include <string>
#include <vector>

class QAction;
class QBoxLayout;
class QLabel;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace dorvik {

/// The work bench: the list of violations beside its documentation or the table of hotspots, with the boxes of files
/// and procedures above them.
class WorkbenchView final : public QWidget {
public:
    /// REQUIRES: `document` outlives this.
    explicit WorkbenchView(udocDorvik& document, QWidget* parent = nullptr);
    ~WorkbenchView() override;

    /// The whole list or table that is shown: commands of the menu.
    void CopyAsText();
    /// Lets the user choose a file.
    void Export(TableFormat format);
    bool ExportTo(const QString& file, TableFormat format);
    /// The selected rows.
    void CopySelection();

    GridView& List() { return m_list; }
    GroupByBar& Groups() { return m_groups; }
    ListTableView& Hotspots() { return m_hotspots; }
    DocumentationView& Documentation() { return m_documentation; }

    /// A link of the documentation is to be opened.
    Event<const std::string&> LinkActivated;

private:
    QToolButton& MakeViewButton(const QString& text, std::int32_t viewType);
    void MakeTopRow(QBoxLayout& page);
    QToolButton& MakeSourceButton();
    QToolButton& MakeExportButton();
    QWidget& MakeListPage();
    void MakeActions();
    void ShowView();
    void ShowPopup(CommandControl& popup);
    std::string Title() const;
    template <typename Use>
    auto WithShownRows(Use&& use);

    udocDorvik& m_document;
    WorkbenchControls& m_controls;
    GridView& m_list;
    GroupByBar& m_groups;
    DocumentationView& m_documentation;
    ListTableView& m_hotspots;
    QStackedWidget& m_pages;
    QLabel& m_panel;
    QToolButton* m_listButton = nullptr;
    QToolButton* m_hotspotsButton = nullptr;
    std::vector<QAction*> m_exports;
    Bindings m_bindings;
};

}  // namespace dorvik
