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

/// The kind of type that a type name of the project denotes.
enum class TypeKind : std::int32_t {
    Unknown = 5,
    Enumeration = 6,
    Class = 7,
    UserDefinedType = 8,
    Control = 9,  // a class of a component, or an intrinsic control
};

/// Composes the patterns of naming conventions from tags, and determines the kinds of the type names of a project:
/// its own, collected from all source files before the review begins, and those of the type libraries of its
/// references and components.
///
/// A tag is a fragment of a regular expression and is copied into the pattern unchanged.
/// Failures are logged under "C_NCHelper".
class NamingConventionHelper {
public:
    /// What `ExtractGlobalNames` gives for a file that cannot be opened.
    static constexpr std::int32_t kNotConnected = 10;

    /// The objects whose names are tested, and the log for properties that are missing; null between projects.
    /// REQUIRES: these and the rulebase outlive their use here, and are set before a name is tested.
    void SetScope(VB6ParserState* state, const ReviewLog* log) {
        m_state = state;
        m_log = log;
    }
    void SetRulebase(const dorvik::Rulebase* rulebase) { m_rulebase = rulebase; }

    /// Adds the name of the file and the enumerations and types of its declarations section to the name table.
    /// 0 for success.
    std::int32_t ExtractGlobalNames(VirtualSourceFile& file);

    /// Adds a loaded library. False if the key is in use, which is logged; the library with that key is kept.
    bool AddTypeLibrary(std::string_view key, std::shared_ptr<VirtualTypeLibrary> library);

    /// The kind of a type name ("Name" or "Library.Name") in the loaded libraries. `qualifiedName` becomes
    /// "Library.Name" if the name is a class, and is left unchanged for an unknown name without a library. A name
    /// with a loaded library is looked up in that library only.
    TypeKind DetermineTypeKind(std::string_view typeName, std::string& qualifiedName) const;

    const VirtualNameTable& NameTable() const { return m_nameTable; }

    /// Composes the pattern of a prefix or suffix for the object in scope of that name. `pattern` is unchanged
    /// unless this succeeds.
    NamingResult ComputePrefixSuffixPattern(
        const ObjectArrayList<PrefixSuffixItem>& items,
        ParserEvent event,
        std::string_view objectName,
        std::string& pattern);

    /// Tests a text. `match`, which may be null, becomes the longest match at the first matching position.
    NamingResult TestPattern(
        std::string_view text, std::string_view pattern, bool caseSensitive, std::string* match);
    /// True if the last test was stopped because it took too many steps.
    bool WasStopped() const { return m_wasStopped; }
    /// True if the last test failed because its pattern is malformed.
    bool WasMalformed() const { return m_wasMalformed; }

    // Each stores its tag, so that rules can read it as a property of "NamingConvention".
    NamingResult
    GetAppropriateScopeTag(ParserEvent event, std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateControlTag(std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateDataTypeTag(std::string_view objectName, std::string& tag);
    NamingResult GetAppropriateArrayTag(std::string_view objectName, std::string& tag);

    /// Whether a class name is one of the controls of the language itself.
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
    /// The current rule, for the log entry of a failed test. Records whether the test was stopped.
    std::string DetailOfFailure();
    TypeKind KindInLibrary(const VirtualTypeLibrary& library, std::string_view name) const;

    VirtualNameTable m_nameTable;
    ObjectKeyedArrayList<VirtualTypeLibrary> m_typeLibraries;
    VB6ParserState* m_state = nullptr;
    const ReviewLog* m_log = nullptr;
    const dorvik::Rulebase* m_rulebase = nullptr;
    RegularExpression m_expression;
    bool m_wasStopped = false;
    bool m_wasMalformed = false;
};

}  // namespace dorvik
