#include "workstation/window/PlainEditors.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"
#include "workstation/window/Desk.h"

#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextBlock>

#include <map>
#include <vector>

namespace dorvik {

namespace {

class PlainEditors final : public IEditorArea {
public:
    explicit PlainEditors(Desk& desk) : m_desk(desk), m_tabs(modQt::Make<QTabWidget>()) {
        m_tabs.setTabsClosable(true);
        QObject::connect(&m_tabs, &QTabWidget::tabCloseRequested, &m_tabs, [this](int index) {
            Close(index);
        });
        QObject::connect(&m_tabs, &QTabWidget::currentChanged, &m_tabs, [this] {
            PlaceChanged.Raise();
        });
        m_changed = m_desk.Explorer().Changed.Subscribe([this] { Follow(); });
    }

    QWidget& Widget() override { return m_tabs; }
    bool IsEmpty() const override { return m_tabs.count() == 0; }
    std::optional<EditorPlace> Place() const override {
        const auto* const text = qobject_cast<const QPlainTextEdit*>(m_tabs.currentWidget());
        const auto page = m_pages.find(text);
        if (page == m_pages.end()) {
            return std::nullopt;
        }
        const QTextCursor cursor = text->textCursor();
        return EditorPlace{
            page->second.Project,
            page->second.File->FileName(),
            cursor.blockNumber() + 1,
            cursor.positionInBlock() + 1};
    }
    void Do(EditorCommand command) override {
        if (command == EditorCommand::CloseTab) {
            Close(m_tabs.currentIndex());
        }
    }
    void ShowFindings() override {}

private:
    struct Page {
        std::string Project;
        FileComponent* File = nullptr;
        std::vector<Subscription> Events;
    };

    void Close(int index) {
        const auto page =
            m_pages.find(qobject_cast<const QPlainTextEdit*>(m_tabs.widget(index)));
        if (page != m_pages.end()) {
            page->second.File->CodeModule().CodePane().Window().SetVisible(false);
        }
    }

    /// The projects are others: a tab goes with its project.
    void Follow() {
        m_windows.clear();
        FileHost& host = m_desk.Host();
        std::vector<const QPlainTextEdit*> left;
        for (std::int32_t number = 1; number <= host.ProjectCount(); ++number) {
            FileProject& project = host.Project(number);
            for (std::int32_t index = 1; index <= project.ComponentCount(); ++index) {
                Watch(project.Name(), project.Component(index));
            }
        }
    }

    void Watch(const std::string& project, FileComponent& file) {
        FileHostWindow& window = file.CodeModule().CodePane().Window();
        m_windows.push_back(
            window.IsVisible.Changed.Subscribe([this, project, &file](const bool& visible) {
                visible ? Show(project, file) : Remove(file);
            }));
    }

    void Show(const std::string& project, FileComponent& file) {
        auto& text = modQt::Make<QPlainTextEdit>();
        text.setReadOnly(true);
        FileCodeModule& module = file.CodeModule();
        text.setPlainText(modQt::Text(module.Lines(1, module.CountOfLines())));
        Page& page = m_pages[&text];
        page.Project = project;
        page.File = &file;
        page.Events.push_back(module.CodePane().SelectionChanged.Subscribe([&text, &module] {
            const int line = module.CodePane().Selection().StartLine - 1;
            text.setTextCursor(QTextCursor(text.document()->findBlockByNumber(line)));
        }));
        m_tabs.setCurrentIndex(m_tabs.addTab(
            &text, modPictures::Icon("Module"), modQt::Text(file.Name())));
        PlaceChanged.Raise();
    }

    void Remove(const FileComponent& file) {
        for (auto page = m_pages.begin(); page != m_pages.end(); ++page) {
            if (page->second.File == &file) {
                QWidget* const widget = m_tabs.widget(m_tabs.indexOf(const_cast<QPlainTextEdit*>(page->first)));
                m_pages.erase(page);
                widget->deleteLater();
                m_tabs.removeTab(m_tabs.indexOf(widget));
                break;
            }
        }
        PlaceChanged.Raise();
    }

    Desk& m_desk;
    QTabWidget& m_tabs;
    std::map<const QPlainTextEdit*, Page> m_pages;
    std::vector<Subscription> m_windows;
    Subscription m_changed;
};

}  // namespace

std::unique_ptr<IEditorArea> MakePlainEditors(Desk& desk) {
    return std::make_unique<PlainEditors>(desk);
}

}  // namespace dorvik
