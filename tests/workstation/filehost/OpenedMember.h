#pragma once

#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"
#include "workstation/filehost/FileHost.h"

#include <string>

namespace dorvik::test {

/// A project of one member, opened.
class OpenedMember {
public:
    explicit OpenedMember(
        const std::string& bytes,
        int codePage = modEncoding::kDefaultCodePage,
        const std::string& line = "Module=m; m.bas")
        : Host(codePage) {
        const std::string file = line.substr(line.find_first_of("=;") + 1);
        Name = line.find(';') == std::string::npos ? file : line.substr(line.find(';') + 2);
        Folder.Write(Name, bytes);
        Host.Open(Folder.Write("P.vbp", line + "\r\nName=\"P\"\r\n"));
    }

    FileCodeModule& Module() { return Host.Project(1).Component(1).CodeModule(); }
    std::string Bytes() const { return Folder.Read(Name); }
    std::string SaveMessage() {
        Host.Project(1).Save();
        return Box.Messages.empty() ? std::string() : Box.Messages.back().Text;
    }

    TemporaryFolder Folder;
    RecordingMessageBox Box;
    FileHost Host;
    std::string Name;
};

}  // namespace dorvik::test
