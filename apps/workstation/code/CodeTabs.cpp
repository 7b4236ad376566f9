#include "workstation/code/CodeTabs.h"

#include "workstation/filehost/FileProject.h"
#include "workstation/look/modPictures.h"
#include "workstation/look/modQt.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTabBar>

#include <algorithm>

namespace dorvik {

struct CodeTabs::Member {
    explicit Member(FileComponent& component) : Component(component) {}

    FileComponent& Component;
    CodePaneView* Pane = nullptr;
    DesignerView* Designer = nullptr;
    std::vector<Subscription> Kept;
    std::vector<Subscription> OfPane;  // as long as it is open
};

CodeTabs::CodeTabs(FileHost& host, QWidget* parent) : QTabWidget(parent), m_host(host) {
    setAccessibleName(modQt::Text("Open files"));
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    tabBar()->installEventFilter(this);
    connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) { CloseTab(index); });
    connect(this, &QTabWidget::currentChanged, this, [this] { CurrentChanged.Raise(); });
    const auto keep = [this](Subscription subscription) {
        m_kept.push_back(std::move(subscription));
    };
    keep(host.Events().ProjectAdded.Subscribe([this](IHostProject&) { TakeProjects(); }));
    keep(host.Events().ProjectRemoved.Subscribe([this](const std::string&) { TakeProjects(); }));
    keep(host.Events().FileRenamed.Subscribe([this](IHostComponent&, const std::string&) {
        for (const auto& member : m_members) {
            Name(*member);
        }
    }));
    TakeProjects();
}

CodeTabs::~CodeTabs() {
    m_kept.clear();
    disconnect(this, nullptr, this, nullptr);
    for (const auto& member : m_members) {
        // A view goes before what it shows is let go of.
        const std::unique_ptr<QWidget> pane(member->Pane);
        const std::unique_ptr<QWidget> designer(member->Designer);
    }
}

void CodeTabs::TakeProjects() {
    std::vector<const FileComponent*> open;
    for (std::int32_t project = 1; project <= m_host.ProjectCount(); ++project) {
        FileProject& owner = m_host.Project(project);
        for (std::int32_t number = 1; number <= owner.ComponentCount(); ++number) {
            FileComponent& component = owner.Component(number);
            open.push_back(&component);
            if (Find(component) == nullptr) {
                Watch(component);
            }
        }
    }
    for (const auto& member : m_members) {
        if (std::ranges::find(open, &member->Component) == open.end()) {
            Close(member->Pane);
            Close(member->Designer);
            member->Kept.clear();
        }
    }
    std::erase_if(m_members, [](const auto& member) { return member->Kept.empty(); });
}

CodeTabs::Member* CodeTabs::Find(const FileComponent& component) const {
    const auto found = std::ranges::find_if(
        m_members, [&](const auto& member) { return &member->Component == &component; });
    return found == m_members.end() ? nullptr : found->get();
}

CodeTabs::Member* CodeTabs::MemberOf(const QWidget* view) const {
    const auto found = std::ranges::find_if(m_members, [view](const auto& member) {
        return view != nullptr && (member->Pane == view || member->Designer == view);
    });
    return found == m_members.end() ? nullptr : found->get();
}

void CodeTabs::Watch(FileComponent& component) {
    m_members.push_back(std::make_unique<Member>(component));
    Member& member = *m_members.back();
    member.Kept.push_back(component.DirtyChanged.Subscribe([this, &member] { Name(member); }));
    member.Kept.push_back(
        component.Loaded.Subscribe([this, &member](FileCodeModule&) { WatchModule(member); }));
    if (component.LoadedModule() != nullptr) {
        WatchModule(member);
    }
    WatchDesigner(member);
}

void CodeTabs::WatchModule(Member& member) {
    FileHostWindow& window = member.Component.CodeModule().CodePane().Window();
    const auto show = [this, &member](bool isVisible) {
        if (isVisible) {
            OpenPane(member);
        } else {
            Close(member.Pane);
        }
    };
    member.Kept.push_back(window.IsVisible.Changed.Subscribe(show));
    member.Kept.push_back(window.Focused.Subscribe([this, &member] { Front(member.Pane); }));
    show(window.Visible());
}

void CodeTabs::WatchDesigner(Member& member) {
    FileHostWindow* window = member.Component.DesignerWindow();
    if (window == nullptr) {
        return;
    }
    const auto show = [this, &member](bool isVisible) {
        if (isVisible) {
            OpenDesigner(member);
        } else {
            Close(member.Designer);
        }
    };
    member.Kept.push_back(window->IsVisible.Changed.Subscribe(show));
    member.Kept.push_back(window->Focused.Subscribe([this, &member] { Front(member.Designer); }));
    show(window->Visible());
}

void CodeTabs::OpenPane(Member& member) {
    if (member.Pane != nullptr) {
        return;
    }
    auto& pane = modQt::Make<CodePaneView>(member.Component, this);
    member.Pane = &pane;
    pane.SetZoom(m_zoom);
    pane.focusProxy()->installEventFilter(this);  // it keeps keys that it has no use for
    const auto keep = [&member](Subscription subscription) {
        member.OfPane.push_back(std::move(subscription));
    };
    keep(pane.SaveRequested.Subscribe(
        [this](FileComponent& component) { SaveRequested.Raise(component); }));
    keep(pane.MarkChosen.Subscribe([this, &member](const MarkedViolation& violation) {
        MarkChosen.Raise(member.Component, violation);
    }));
    keep(pane.CaretMoved.Subscribe([this, &pane](std::int32_t line, std::int32_t column) {
        if (CurrentPane() == &pane) {
            CaretMoved.Raise(line, column);
        }
    }));
    keep(pane.Zoomed.Subscribe([this](int steps) { SetZoom(steps); }));
    addTab(&pane, modPictures::Icon("Code"), QString());
    Name(member);
    setCurrentWidget(&pane);
    PaneOpened.Raise(pane);
}

void CodeTabs::OpenDesigner(Member& member) {
    FileDesigner* designer = member.Component.Designer();
    if (member.Designer != nullptr || designer == nullptr) {
        return;
    }
    auto& view = modQt::Make<DesignerView>(*designer, this);
    member.Designer = &view;
    addTab(&view, modPictures::Icon("Designer"), QString());
    Name(member);
    setCurrentWidget(&view);
    DesignerOpened.Raise(view);
}

void CodeTabs::Close(QWidget* view) {
    Member* member = MemberOf(view);
    if (member == nullptr) {
        return;
    }
    if (member->Pane == view) {
        member->Pane = nullptr;
        member->OfPane.clear();
    } else {
        member->Designer = nullptr;
    }
    const bool hadFocus = view->isAncestorOf(focusWidget());
    removeTab(indexOf(view));
    // At once, since what it shows may go with its project.
    view->hide();
    view->setParent(nullptr);
    const std::unique_ptr<QWidget> gone(view);
    if (hadFocus && currentWidget() != nullptr) {
        currentWidget()->setFocus();
    }
}

void CodeTabs::Name(const Member& member) {
    const std::string mark = member.Component.IsDirty() ? " *" : "";
    const auto name = [&](QWidget* view, const char* what) {
        const int index = view == nullptr ? -1 : indexOf(view);
        if (index >= 0) {
            QString text = modQt::Text(member.Component.Name() + what + mark);
            setTabText(index, text.replace(QLatin1Char('&'), QStringLiteral("&&")));
            setTabToolTip(index, modQt::Text(member.Component.FileName()));
        }
    };
    name(member.Pane, " (code)");
    name(member.Designer, " (layout)");
}

void CodeTabs::Front(QWidget* view) {
    if (view != nullptr) {
        setCurrentWidget(view);
        view->setFocus();
    }
}

void CodeTabs::ShowCode(FileComponent& component) {
    FileHostWindow& window = component.CodeModule().CodePane().Window();
    window.SetVisible(true);
    window.SetFocus();
}

void CodeTabs::ShowDesigner(FileComponent& component) {
    if (FileHostWindow* window = component.DesignerWindow()) {
        window->SetVisible(true);
        window->SetFocus();
    }
}

void CodeTabs::CloseTab(int index) {
    const QWidget* view = widget(index);
    Member* member = MemberOf(view);
    if (member == nullptr) {
        return;
    }
    if (member->Pane == view) {
        member->Component.CodeModule().CodePane().Window().SetVisible(false);
    } else {
        member->Component.DesignerWindow()->SetVisible(false);
    }
}

CodePaneView* CodeTabs::PaneOf(const FileComponent& component) const {
    const Member* member = Find(component);
    return member == nullptr ? nullptr : member->Pane;
}

DesignerView* CodeTabs::DesignerOf(const FileComponent& component) const {
    const Member* member = Find(component);
    return member == nullptr ? nullptr : member->Designer;
}

CodePaneView* CodeTabs::CurrentPane() const {
    const Member* member = MemberOf(currentWidget());
    return member != nullptr && member->Pane == currentWidget() ? member->Pane : nullptr;
}

FileComponent* CodeTabs::CurrentComponent() const {
    Member* member = MemberOf(currentWidget());
    return member == nullptr ? nullptr : &member->Component;
}

std::vector<CodePaneView*> CodeTabs::Panes() const {
    std::vector<CodePaneView*> panes;
    for (const auto& member : m_members) {
        if (member->Pane != nullptr) {
            panes.push_back(member->Pane);
        }
    }
    return panes;
}

void CodeTabs::SetZoom(int steps) {
    if (m_zoom == steps) {
        return;
    }
    m_zoom = steps;
    for (CodePaneView* pane : Panes()) {
        pane->SetZoom(steps);
    }
    Zoomed.Raise(steps);
}

void CodeTabs::Step(int by) {
    if (count() > 0) {
        setCurrentIndex((currentIndex() + by + count()) % count());
        currentWidget()->setFocus();
    }
}

bool CodeTabs::RunKey(QEvent& event) {
    const auto& key = static_cast<QKeyEvent&>(event);
    const bool isControl = (key.modifiers() & Qt::ControlModifier) != 0;
    const bool isClose = key.key() == Qt::Key_W || key.key() == Qt::Key_F4;
    const bool isNext = key.key() == Qt::Key_Tab || key.key() == Qt::Key_PageDown;
    const bool isPrevious = key.key() == Qt::Key_Backtab || key.key() == Qt::Key_PageUp;
    if (!isControl || !(isClose || isNext || isPrevious)) {
        return false;
    }
    event.accept();
    if (event.type() == QEvent::KeyPress) {
        if (isClose) {
            // The key is still on its way through the view that goes.
            QMetaObject::invokeMethod(
                this, [this] { CloseTab(currentIndex()); }, Qt::QueuedConnection);
        } else {
            Step(isNext ? 1 : -1);
        }
    }
    return true;
}

bool CodeTabs::event(QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    return (isKey && RunKey(*event)) || QTabWidget::event(event);
}

bool CodeTabs::eventFilter(QObject* object, QEvent* event) {
    if (object != tabBar()) {
        const bool isKey =
            event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
        return isKey && RunKey(*event);
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::MiddleButton) {
            CloseTab(tabBar()->tabAt(mouse->pos()));
            return true;
        }
    }
    return QTabWidget::eventFilter(object, event);
}

}  // namespace dorvik
