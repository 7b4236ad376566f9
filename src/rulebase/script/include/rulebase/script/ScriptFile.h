#pragma once

#include "foundation/lists/StringKeyedArrayList.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The generated module that holds all rule scripts of a rulebase after one entry procedure, which
/// is called with the number of the rule to run.
///
/// Each object has a folder of its own below the temporary folder, so that two reviews at once do
/// not meet. The loader of the module removes it with `RemoveScriptFile` when it is done; what a killed
/// review left behind is removed when the next object is made.
class ScriptFile {
public:
    /// The lines of the module (from 1) that hold the text of a rule's script.
    struct ScriptLines {
        std::int32_t RuleID;
        std::int32_t First;
        std::int32_t Last;
    };

    ScriptFile();

    const std::string& FullFilename() const { return m_fullFilename; }
    /// The head of the entry procedure, as it is written in the module.
    static std::string_view ScriptPrototype();

    /// The name that the main procedure of a rule's script has in the module.
    static std::string MethodName(std::int32_t ruleID);
    /// A rule's script as it is written in the module.
    static std::string ScriptOfRule(std::int32_t ruleID, std::string_view script);

    /// An empty script and a rule that has one already are skipped.
    void AddScript(std::int32_t ruleID, std::string_view script);
    /// Writes the module; an old file of the name goes first. Raises the errors of `modFiles`.
    void CreateScriptFile() const;

    /// The text of the module, lines ended by CR LF.
    std::string ModuleText() const;
    /// Where each script is in that text, in its order.
    std::vector<ScriptLines> Lines() const;

    /// Removes a module and its folder; a file that is gone already is not an error.
    static void RemoveScriptFile(std::string_view fullFilename);

private:
    std::string CreateEntryMethod() const;

    std::string m_fullFilename;
    StringKeyedArrayList m_scripts;  // key: the rule number, item: the script
};

}  // namespace dorvik
