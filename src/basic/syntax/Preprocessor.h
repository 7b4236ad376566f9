#pragma once

#include "ExpressionParser.h"
#include "Lexer.h"
#include "basic/syntax/ConstantEvaluator.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace dorvik::basic {

/// Gives the lines of a module that count: `#Const`, `#If`, `#ElseIf`, `#Else` and `#End If` are obeyed,
/// and lines of a branch not taken are skipped unread.
/// REQUIRES: the lexer and the error list outlive it.
class Preprocessor final : public ITokenSource, private IConstantNames {
public:
    Preprocessor(Lexer& lexer, ErrorList& errors);

    bool NextLine(std::vector<Token>& tokens) override;

private:
    /// One `#If` that is open.
    struct Branch {
        SourcePlace Place;
        bool IsOuterLive = true;
        bool WasTaken = false;  // this branch or one before it
        bool IsLive = false;
        bool SawElse = false;
    };

    bool IsLive() const { return m_branches.empty() || m_branches.back().IsLive; }
    void Obey(std::vector<Token>& tokens);
    void ObeyConst();
    void ObeyIf(SourcePlace place);
    void ObeyElseIf(SourcePlace place);
    void ObeyElse(SourcePlace place);
    void ObeyEndIf(SourcePlace place);
    bool RequireOpen(SourcePlace place, std::string_view directive);
    bool ReadCondition();
    std::optional<Value> Evaluate(const ExpressionPointer& expression);
    const Value*
    FindConstant(const std::string& qualifier, const std::string& name, bool& wasReported) override;

    Lexer& m_lexer;
    ErrorList& m_errors;
    TokenCursor m_cursor;
    ExpressionParser m_expressions;
    std::vector<Branch> m_branches;
    std::unordered_map<std::string, Value> m_constants;  // by the lower-case name
    Value m_unknown;                                     // Empty
};

}  // namespace dorvik::basic
