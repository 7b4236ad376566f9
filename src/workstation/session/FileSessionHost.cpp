#include "workstation/session/FileSessionHost.h"

#include "base/BasicError.h"

namespace dorvik {

void FileSessionHost::SetDirty(std::string_view project, bool dirty) {
    m_host.Project(project).SetDirty(dirty);
}

void FileSessionHost::SetNeverSaved(std::string_view project, bool neverSaved) {
    m_host.Project(project).SetNeverSaved(neverSaved);
}

FileCodeModule& FileSessionHost::Module(std::string_view file) {
    FileComponent* const component = m_host.FindComponent(file);
    if (component == nullptr) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange, std::string(file));
    }
    return component->CodeModule();
}

void FileSessionHost::ReplaceLine(std::string_view file, std::int32_t line, std::string_view text) {
    Module(file).ReplaceLine(line, text);
}

void FileSessionHost::InsertLine(std::string_view file, std::int32_t line, std::string_view text) {
    Module(file).InsertLines(line, text);
}

void FileSessionHost::DeleteLine(std::string_view file, std::int32_t line) {
    Module(file).DeleteLines(line, 1);
}

}  // namespace dorvik
