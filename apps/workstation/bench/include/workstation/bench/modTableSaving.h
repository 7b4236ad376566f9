#pragma once

#include "workstation/controls/ITableRows.h"
#include "workstation/controls/TableExport.h"

#include <QString>

#include <string>

class QWidget;

/// Tables into files and the clipboard. A long one shows how far it is, in a box that can cancel it, and input is
/// processed meanwhile.
namespace dorvik::modTableSaving {

/// False where the user has cancelled it, or the file cannot be written: a message says so then. A file that
/// was there stays as it is in both cases.
bool SaveAs(
    const QString& file,
    ITableRows& rows,
    TableFormat format,
    const std::string& title,
    QWidget& parent);
/// False where the user has cancelled it.
bool CopyToClipboard(ITableRows& rows, QWidget& parent);

}  // namespace dorvik::modTableSaving
