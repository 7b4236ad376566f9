#pragma once

#include "enforcement/NamingResult.h"
#include "enforcement/VirtualNameTable.h"
#include "enforcement/VirtualTypeLibrary.h"
#include "foundation/lists/ObjectArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "parser/ParserEvent.h"
#include "platform/regex/RegularExpression.h"
#include "rulebase/model/PrefixSuffixItem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class ReviewLog;
class Rulebase;
class VB6ParserState;
class VirtualSourceFile;

/// What a type name of the project stands for.
enum class TypeKind : std::int32_t {
    Unknown = 5,
    Enumeration = 6,
    Class = 7,
    UserDefinedType = 8,
    Control = 9,  // a class of a component, or an intrinsic control
};

/// Composes the patterns of naming conventions from tags, and knows what the type names of a project
/// stand for: its own, collected from all source files before the review begins, and those of the
/// type libraries of its references and components.
///
/// A tag is a fragment of a regular expression and goes into a pattern as it stands.
/// Failures are logged under "C_NCHelper".
class NamingConventionHelper {
public:
    /// What `ExtractGlobalNames` gives for a file that cannot be opened.
    static constexpr std::int32_t kNotConnected = 10;

    /// The objects whose names are tested, and where it is logged that something is missing; null between
    /// projects. REQUIRES: these and the rulebase outlive their time here, and are set before a name is tested.
    void SetScope(VB6ParserState* state, const ReviewLog* log) {
        m_state = state;
        m_log = log;
    }
    void SetRulebase(const dorvik::Rulebase* rulebase) { m_rulebase = rulebase; }
    const std::string& ProjectName() const { return m_projectName; }
    void SetProjectName(std::string_view name) { m_projectName = name; }

    /// Takes in the file's own name and the enumerations and types of its declarations section.
    /// 0 for success.
    std::int32_t ExtractGlobalNames(VirtualSourceFile& file);

    /// Takes in a loaded library. False if the key is in use, which is logged; the library that has it
    /// stays.
    bool AddTypeLibrary(std::string_view key, std::shared_ptr<VirtualTypeLibrary> library);

    /// What the loaded libraries know of a type name ("Name" or "Library.Name"). `qualifiedName`
    /// becomes "Library.Name" when the name is a class, and stays as it is for an unknown one without
    /// a library. A name with a loaded library is looked for in that library only.
    TypeKind DetermineTypeKind(std::string_view typeName, std::string& qualifiedName) const;

    const VirtualNameTable& NameTable() const { return m_nameTable; }

    /// Composes the pattern of a prefix or suffix for the object in scope of that name. Leaves
    /// `pattern` alone unless it succeeds.
    NamingResult ComputePrefixSuffixPattern(
        const ObjectArrayList<PrefixSuffixItem>& items,
        ParserEvent event,
        std::string_view objectName,
        std::string& pattern);

    /// Tests a text; `match` becomes what matched, the longest match at the first place. Null: the
    /// match is not wanted.
    NamingResult TestPattern(
        std::string_view text, std::string_view pattern, bool caseSensitive, std::string* match);
    /// True if the last test took too long and was given up.
    bool WasGivenUp() const { return m_wasGivenUp; }
    /// True if the last test failed because its pattern is none.
    bool WasMalformed() const { return m_wasMalformed; }

    // Each leaves its tag readable as a property of "NamingConvention".
    NamingResult
    GetAppropriateScopeTag(ParserEvent event, std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateControlTag(std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateDataTypeTag(std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateArrayTag(std::string_view objectName, std::string& tag);

    /// Controls that the language brings along, by class name.
    static bool IsIntrinsicVBControl(std::string_view name);

private:
    NamingResult TextOfItem(
        const PrefixSuffixItem& item,
        ParserEvent event,
        std::string_view objectName,
        std::string& text);
    std::string_view ScopeRow(ParserEvent event, std::string_view objectName);
    /// The tag of a data type; null if the rulebase has none for it.
    const std::string* DataTypeTag(const std::string& dataType, std::string_view file) const;
    const std::string* TagOfKind(TypeKind kind, const std::string& programId) const;
    /// Why a test failed, for the log: the rule at hand. Notes whether it was given up.
    std::string DetailOfFailure();
    TypeKind KindInLibrary(const VirtualTypeLibrary& library, std::string_view name) const;

    VirtualNameTable m_nameTable;
    ObjectKeyedArrayList<VirtualTypeLibrary> m_typeLibraries;
    VB6ParserState* m_state = nullptr;
    const ReviewLog* m_log = nullptr;
    const dorvik::Rulebase* m_rulebase = nullptr;
    std::string m_projectName;
    RegularExpression m_expression;
    bool m_wasGivenUp = false;
    bool m_wasMalformed = false;
};

}  // namespace dorvik
