#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/CodeBoxes.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QComboBox;

namespace dorvik {

class FileComponent;

/// The boxes over an editor: the object and the procedure that the caret is in, and the way to others.
class BoxesBar final : public QWidget {
public:
    BoxesBar(FileComponent& component, QWidget* parent);

    /// Shows where a line is.
    void ShowLine(int line);
    /// Reads the module again now.
    void Refresh();

    /// The definition of a procedure that was chosen.
    Event<std::int32_t> LineChosen;

private:
    void ShowProcedures(const std::string& object, const std::string& procedure);
    void ChooseObject(int index);
    void ChooseProcedure(int index);

    FileComponent& m_component;
    QComboBox& m_objectBox;
    QComboBox& m_procedureBox;
    std::optional<CodeBoxes> m_boxes;
    std::vector<CodeBoxes::Entry> m_entries;  // of the procedure box
    CodeBoxes::Place m_place;
    int m_line = 1;
    QTimer m_later;
    Subscription m_changes;
};

}  // namespace dorvik
