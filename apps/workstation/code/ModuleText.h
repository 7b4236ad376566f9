#pragma once

#include "workstation/controls/Event.h"
#include "workstation/filehost/FileCodeModule.h"

#include <QObject>

#include <optional>

namespace dorvik {

class CodeEditor;

/// Keeps the text of an editor and the lines of a module alike: what is typed is done to the module, what happens to the
/// module otherwise is shown. The module undoes. REQUIRES: both outlive it.
class ModuleText {
public:
    ModuleText(CodeEditor& editor, FileCodeModule& module);
    ModuleText(const ModuleText&) = delete;
    ModuleText& operator=(const ModuleText&) = delete;
    ~ModuleText();

    void Undo();
    void Redo();
    /// While the module is given what was typed.
    bool IsMirroring() const { return m_isMirroring; }

    /// After the module took back or repeated a change, and the caret is there.
    Event<> Undone;

private:
    struct Modification {
        int Position = 0;
        int Length = 0;
        int LinesAdded = 0;
        bool IsInsertion = false;
    };

    void Mirror(const Modification& modification);
    void MirrorLines(const Modification& modification);
    bool ContinuesTyping(const Modification& modification) const;
    void Follow(const LinesChange& change);
    void FollowLines(const LinesChange& change);
    void Put(int start, int end, const std::string& text);
    void ShowAll();
    /// For what the module could not take.
    void ShowAllLater();
    void GoToFollowed();

    CodeEditor& m_editor;
    FileCodeModule& m_module;
    QObject m_context;  // of what is done later
    Subscription m_changes;
    Subscription m_begins;
    Subscription m_ends;
    std::optional<ChangeGroup> m_group;
    bool m_isMirroring = false;
    bool m_isFollowing = false;
    bool m_isInInput = false;
    bool m_hasTypedInInput = false;
    std::optional<Modification> m_typed;  // last
    int m_followedEnd = -1;               // of the last text that was put
};

}  // namespace dorvik
