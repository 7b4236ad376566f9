#pragma once

#include "source/BasicObject.h"
#include "source/ItemType.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace dorvik {

class ResultsDB;

/// The files and procedures of a results database by their IDs: what a violation points at, and what a
/// user names on the command line. Holds names only, no figures.
class ResultsItems {
public:
    struct Procedure {
        std::string Name;
        std::string Type;  // empty for a section
        std::int32_t SourceID = 0;
    };

    explicit ResultsItems(ResultsDB& database);

    const std::map<std::int32_t, BasicObject>& Files() const { return m_files; }
    const std::map<std::int32_t, Procedure>& Procedures() const { return m_procedures; }
    /// The file that an item is, or is part of; null for the project and for what is not there.
    const BasicObject* FileOf(ItemType itemType, std::int32_t itemId) const;
    /// Null for anything but a procedure or section.
    const Procedure* ProcedureOf(ItemType itemType, std::int32_t itemId) const;

    /// The files of that file name, object name or path, in any case. A path is one of this machine; a
    /// part of it that begins after a separator is enough.
    std::set<std::int32_t> FilesNamed(const std::string& name) const;
    /// The procedures of that name within those files, in any case: all of a property, and a section
    /// with or without brackets.
    std::set<std::int32_t>
    ProceduresNamed(std::string_view name, const std::set<std::int32_t>& files) const;

    /// "Rate (Get)" for a property, "(Declarations)" for a section, else the name.
    static std::string ShownName(std::string_view name, std::string_view type);
    /// The full path of a file, in the program's form; empty without a file name.
    static std::string FullPath(std::string_view folder, std::string_view filename);
    static bool IsProjectFile(const BasicObject& file);

private:
    std::map<std::int32_t, BasicObject> m_files;
    std::map<std::int32_t, Procedure> m_procedures;
};

}  // namespace dorvik
