#include "rulebase/script/ScriptFile.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "platform/host/modPrivateFolder.h"

namespace dorvik {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kMainProcedure = "Sub Main";
constexpr std::string_view kFolderPrefix = "Dorvik";
constexpr std::string_view kFilename = "DorvikScripts.dvs";

/// Physical lines, however they end: CR LF, LF or CR.
std::int32_t CountLineEnds(std::string_view text) {
    std::int32_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool firstOfPair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        count += (text[at] == '\n' || text[at] == '\r') && !firstOfPair ? 1 : 0;
    }
    return count;
}

}  // namespace

ScriptFile::ScriptFile() {
    std::string folder = modHost::TemporaryFolder();
    if (folder.empty()) {
        folder = modHost::ProgramFolder();
    }
    modPrivateFolder::RemoveAbandoned(folder, kFolderPrefix, kFilename);
    m_fullFilename = modPrivateFolder::Create(folder, kFolderPrefix).append(kFilename);
}

std::string_view ScriptFile::ScriptPrototype() {
    return "Public Sub RunScript(ByVal v_lRuleID As Long)";
}

std::string ScriptFile::MethodName(std::int32_t ruleID) {
    return "Method_" + std::to_string(ruleID);
}

/// Required: the first occurrence, wherever it is, and nothing else.
std::string ScriptFile::ScriptOfRule(std::int32_t ruleID, std::string_view script) {
    std::string text(script);
    const std::size_t main = modTextCase::Find(text, kMainProcedure);
    if (main != std::string::npos) {
        text.replace(main, kMainProcedure.size(), "Sub " + MethodName(ruleID));
    }
    return text;
}

void ScriptFile::AddScript(std::int32_t ruleID, std::string_view script) {
    const std::string key = std::to_string(ruleID);
    if (!script.empty() && !m_scripts.Contains(key)) {
        m_scripts.Add(key, std::string(script));
    }
}

std::string ScriptFile::CreateEntryMethod() const {
    std::string text(ScriptPrototype());
    text.append(kLineEnd).append(kLineEnd);
    if (m_scripts.Count() > 0) {
        text.append("    Select Case v_lRuleID").append(kLineEnd);
        for (std::int32_t index = 1; index <= m_scripts.Count(); ++index) {
            const std::string& rule = m_scripts.Key(index);
            text.append("        Case ").append(rule).append(kLineEnd);
            text.append("            Call Method_").append(rule).append(kLineEnd);
        }
        text.append("    End Select").append(kLineEnd).append(kLineEnd);
    }
    return text.append("End Sub").append(kLineEnd);
}

std::string ScriptFile::ModuleText() const {
    std::string text = "Attribute VB_Name = \"DorvikScripts\"";
    text.append(kLineEnd).append(kLineEnd).append(CreateEntryMethod());
    for (std::int32_t index = 1; index <= m_scripts.Count(); ++index) {
        text.append(kLineEnd).append(kLineEnd);
        text.append(ScriptOfRule(std::stoi(m_scripts.Key(index)), m_scripts.Item(index)));
    }
    return text.append(kLineEnd).append(kLineEnd);
}

std::vector<ScriptFile::ScriptLines> ScriptFile::Lines() const {
    std::vector<ScriptLines> lines;
    // The header takes two lines.
    std::int32_t next = 3 + CountLineEnds(CreateEntryMethod());
    for (std::int32_t index = 1; index <= m_scripts.Count(); ++index) {
        const std::int32_t first = next + 2;
        next = first + CountLineEnds(m_scripts.Item(index));
        lines.push_back({std::stoi(m_scripts.Key(index)), first, next});
    }
    return lines;
}

void ScriptFile::CreateScriptFile() const {
    if (modFiles::FileExists(m_fullFilename)) {
        modFiles::DeleteFile(m_fullFilename);
    }
    std::string text = ModuleText();
    if (!modUtf8::IsAscii(text)) {
        text.insert(
            0, modUtf8::kByteOrderMark);  // the mark informs the engine that the text is UTF-8
    }
    modFiles::WriteBytesAtomically(m_fullFilename, text);
}

void ScriptFile::RemoveScriptFile(std::string_view fullFilename) {
    if (modFiles::FileExists(fullFilename)) {
        modFiles::DeleteFile(fullFilename);
    }
    const std::string folder = modUtilFunctions::PathFromFilename(fullFilename);
    if (modFiles::FolderExists(folder)) {
        modFiles::DeleteFolder(folder);
    }
}

}  // namespace dorvik
