#include "workstation/host/modViolationSearch.h"

#include "base/modTextCase.h"
#include "source/Location.h"

namespace dorvik::modViolationSearch {

namespace {

constexpr std::string_view kContinuation = " _";

bool IsInDeclarations(const StoredPlace& place) {
    return static_cast<Location>(place.Location) == Location::Declarations;
}

struct KindRow {
    Location Place;
    ProcedureKind Kind;
};

constexpr KindRow kProperties[] = {
    {Location::PropertyGet, ProcedureKind::PropertyGet},
    {Location::PropertyLet, ProcedureKind::PropertyLet},
    {Location::PropertySet, ProcedureKind::PropertySet},
};

ProcedureKind KindOf(std::int32_t location) {
    for (const KindRow& row : kProperties) {
        if (row.Place == static_cast<Location>(location)) {
            return row.Kind;
        }
    }
    return ProcedureKind::SubOrFunction;
}

std::string_view FirstPhysicalLine(std::string_view sourceLine) {
    const std::size_t continuation = sourceLine.find(kContinuation);
    return continuation == std::string_view::npos
               ? sourceLine
               : sourceLine.substr(0, continuation + kContinuation.size());
}

bool HasText(std::string_view line) {
    return line.find_first_not_of(' ') != std::string_view::npos;
}

Result FindPlaceWithoutLine(const ICodeModule& module, const StoredPlace& place) {
    const std::int32_t line =
        IsInDeclarations(place)
            ? 1
            : module.ProcStartLine(place.LocationMember, KindOf(place.Location));
    return line > 0 ? Result{line, Failure::None} : Result{0, Failure::ProcedureMissing};
}

/// The lines in which a line that has moved is looked for.
CodeRange OldScope(const ICodeModule& module, const StoredPlace& place) {
    CodeRange scope{1, 1, 0, -1};
    if (IsInDeclarations(place)) {
        scope.EndLine = module.CountOfDeclarationLines();
    } else {
        const ProcedureKind kind = KindOf(place.Location);
        scope.StartLine = module.ProcStartLine(place.LocationMember, kind);
        scope.EndLine = scope.StartLine + module.ProcCountLines(place.LocationMember, kind);
    }
    if (scope.EndLine < module.CountOfLines()) {
        ++scope.EndLine;
    }
    return scope;
}

}  // namespace

Result Find(const ICodeModule& module, const StoredPlace& place) {
    const std::string_view text = FirstPhysicalLine(place.SourceLine);
    if (text.empty()) {
        return FindPlaceWithoutLine(module, place);
    }
    const std::string current = module.Lines(place.SourceLineNumber, 1);
    // Required: a blank line never counts as the line sought, although every text begins with an empty one.
    if (HasText(current) && modTextCase::StartsWith(text, current)) {
        return {place.SourceLineNumber, Failure::None};
    }
    const auto found = module.Find(text, OldScope(module, place), {});
    return found ? Result{found->StartLine, Failure::None} : Result{0, Failure::LineMissing};
}

std::string_view MessageOf(Failure failure) {
    switch (failure) {
        case Failure::None: return {};
        case Failure::ProcedureMissing:
            return "The procedure containing the violation cannot be found in the source and may "
                   "have been deleted. "
                   "You should review the source again to remove obsolete violations from the "
                   "results.";
        case Failure::LineMissing:
            return "The source line containing the violation cannot be found in the source and may "
                   "have been deleted "
                   "or modified to such an extent that it is no longer recognisable as the same "
                   "line. You should "
                   "review the source again to update/remove obsolete violations from the results.";
    }
    return {};
}

}  // namespace dorvik::modViolationSearch
