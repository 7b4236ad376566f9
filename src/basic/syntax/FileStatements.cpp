#include "FileStatements.h"

#include <algorithm>
#include <iterator>

namespace dorvik::basic {

namespace {

constexpr FileStatementRow kFileStatements[] = {
    {Keyword::Open, false, false, Keyword::As},
    {Keyword::Open, false, false, Keyword::For},
    {Keyword::Name, false, false, Keyword::As},
    {Keyword::Close, true, true, Keyword::None},
    {Keyword::Get, true, true, Keyword::None},
    {Keyword::Input, true, false, Keyword::None},
    {Keyword::Lock, true, true, Keyword::To},
    {Keyword::Print, true, false, Keyword::None},
    {Keyword::Put, true, true, Keyword::None},
    {Keyword::Reset, false, true, Keyword::None},
    {Keyword::Seek, true, true, Keyword::None},
    {Keyword::Unlock, true, true, Keyword::To},
    {Keyword::Width, true, true, Keyword::None},
    {Keyword::Write, true, false, Keyword::None},
};

}  // namespace

std::span<const FileStatementRow> FileStatements() {
    return kFileStatements;
}

bool IsFileStatementCall(Keyword word) {
    return std::any_of(
        std::begin(kFileStatements),
        std::end(kFileStatements),
        [word](const FileStatementRow& row) { return row.Word == word && row.IsCall; });
}

}  // namespace dorvik::basic
