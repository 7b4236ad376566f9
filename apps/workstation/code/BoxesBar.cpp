#include "BoxesBar.h"

#include "workstation/filehost/FileComponent.h"
#include "workstation/look/modQt.h"

#include <QComboBox>
#include <QHBoxLayout>

#include <algorithm>

namespace dorvik {

namespace {

constexpr int kIdle = 250;  // milliseconds without an edit

}  // namespace

BoxesBar::BoxesBar(FileComponent& component, QWidget* parent)
    : QWidget(parent),
      m_component(component),
      m_objectBox(modQt::Make<QComboBox>(this)),
      m_procedureBox(modQt::Make<QComboBox>(this)) {
    auto& row = modQt::Make<QHBoxLayout>(this);
    row.setContentsMargins(0, 0, 0, 0);
    row.setSpacing(fontMetrics().height() / 4);
    row.addWidget(&m_objectBox);
    row.addWidget(&m_procedureBox);
    for (QComboBox* box : {&m_objectBox, &m_procedureBox}) {
        box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        box->setMaxVisibleItems(25);
    }
    m_objectBox.setAccessibleName(modQt::Text("Object"));
    m_objectBox.setToolTip(modQt::Text("Object"));
    m_procedureBox.setAccessibleName(modQt::Text("Procedure"));
    m_procedureBox.setToolTip(modQt::Text("Procedure"));
    connect(&m_objectBox, &QComboBox::activated, this, [this](int index) { ChooseObject(index); });
    connect(&m_procedureBox, &QComboBox::activated, this, [this](int index) {
        ChooseProcedure(index);
    });
    m_later.setSingleShot(true);
    m_later.setInterval(kIdle);
    connect(&m_later, &QTimer::timeout, this, [this] { Refresh(); });
    m_changes =
        component.CodeModule().Changed.Subscribe([this](const LinesChange&) { m_later.start(); });
    Refresh();
}

void BoxesBar::Refresh() {
    m_later.stop();
    m_boxes.emplace(m_component.CodeModule().Procedures(), ObjectNamesOf(m_component));
    m_objectBox.clear();
    for (const std::string& object : m_boxes->Objects()) {
        m_objectBox.addItem(modQt::Text(object));
    }
    m_place = {};
    ShowLine(m_line);
}

void BoxesBar::ShowLine(int line) {
    m_line = line;
    const CodeBoxes::Place place = m_boxes->PlaceOf(line);
    if (place == m_place) {
        return;
    }
    m_place = place;
    m_objectBox.setCurrentIndex(m_objectBox.findText(modQt::Text(place.Object)));
    ShowProcedures(place.Object, place.Procedure);
}

void BoxesBar::ShowProcedures(const std::string& object, const std::string& procedure) {
    m_entries = m_boxes->ProceduresOf(object);
    m_procedureBox.clear();
    for (const CodeBoxes::Entry& entry : m_entries) {
        m_procedureBox.addItem(modQt::Text(entry.Text));
    }
    m_procedureBox.setCurrentIndex(m_procedureBox.findText(modQt::Text(procedure)));
}

void BoxesBar::ChooseObject(int index) {
    if (index < 0 || !m_boxes || static_cast<std::size_t>(index) >= m_boxes->Objects().size()) {
        return;
    }
    m_place = {m_boxes->Objects()[static_cast<std::size_t>(index)], {}};
    ShowProcedures(m_place.Object, {});
    if (!m_entries.empty()) {
        ChooseProcedure(0);
    }
}

void BoxesBar::ChooseProcedure(int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < m_entries.size()) {
        const std::int32_t line = m_entries[static_cast<std::size_t>(index)].Line;
        LineChosen.Raise(line);
    }
}

}  // namespace dorvik
