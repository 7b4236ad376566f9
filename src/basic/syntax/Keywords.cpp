#include "Keywords.h"

#include <array>

namespace dorvik::basic {

namespace {

struct Row {
    std::string_view Text;  // lower case
    Keyword Word;
};

constexpr Row kRows[] = {
    {"addressof", Keyword::AddressOf},
    {"and", Keyword::And},
    {"as", Keyword::As},
    {"byref", Keyword::ByRef},
    {"byval", Keyword::ByVal},
    {"call", Keyword::Call},
    {"case", Keyword::Case},
    {"const", Keyword::Const},
    {"declare", Keyword::Declare},
    {"defbool", Keyword::DefaultType},
    {"defbyte", Keyword::DefaultType},
    {"defcur", Keyword::DefaultType},
    {"defdate", Keyword::DefaultType},
    {"defdbl", Keyword::DefaultType},
    {"defint", Keyword::DefaultType},
    {"deflng", Keyword::DefaultType},
    {"defobj", Keyword::DefaultType},
    {"defsng", Keyword::DefaultType},
    {"defstr", Keyword::DefaultType},
    {"defvar", Keyword::DefaultType},
    {"dim", Keyword::Dim},
    {"do", Keyword::Do},
    {"each", Keyword::Each},
    {"else", Keyword::Else},
    {"elseif", Keyword::ElseIf},
    {"empty", Keyword::Empty},
    {"end", Keyword::End},
    {"endif", Keyword::EndIf},
    {"enum", Keyword::Enum},
    {"eqv", Keyword::Eqv},
    {"erase", Keyword::Erase},
    {"exit", Keyword::Exit},
    {"false", Keyword::False},
    {"for", Keyword::For},
    {"friend", Keyword::Friend},
    {"function", Keyword::Function},
    {"global", Keyword::Global},
    {"gosub", Keyword::GoSub},
    {"goto", Keyword::GoTo},
    {"if", Keyword::If},
    {"imp", Keyword::Imp},
    {"in", Keyword::In},
    {"is", Keyword::Is},
    {"let", Keyword::Let},
    {"like", Keyword::Like},
    {"loop", Keyword::Loop},
    {"lset", Keyword::LSet},
    {"me", Keyword::Me},
    {"mod", Keyword::Mod},
    {"new", Keyword::New},
    {"next", Keyword::Next},
    {"not", Keyword::Not},
    {"nothing", Keyword::Nothing},
    {"null", Keyword::Null},
    {"on", Keyword::On},
    {"option", Keyword::Option},
    {"optional", Keyword::Optional},
    {"or", Keyword::Or},
    {"paramarray", Keyword::ParamArray},
    {"preserve", Keyword::Preserve},
    {"private", Keyword::Private},
    {"public", Keyword::Public},
    {"redim", Keyword::ReDim},
    {"rem", Keyword::Rem},
    {"resume", Keyword::Resume},
    {"return", Keyword::Return},
    {"rset", Keyword::RSet},
    {"select", Keyword::Select},
    {"set", Keyword::Set},
    {"static", Keyword::Static},
    {"stop", Keyword::Stop},
    {"sub", Keyword::Sub},
    {"then", Keyword::Then},
    {"to", Keyword::To},
    {"true", Keyword::True},
    {"typeof", Keyword::TypeOf},
    {"boolean", Keyword::TypeWord},
    {"byte", Keyword::TypeWord},
    {"currency", Keyword::TypeWord},
    {"double", Keyword::TypeWord},
    {"integer", Keyword::TypeWord},
    {"long", Keyword::TypeWord},
    {"single", Keyword::TypeWord},
    {"variant", Keyword::TypeWord},
    {"until", Keyword::Until},
    {"wend", Keyword::Wend},
    {"while", Keyword::While},
    {"with", Keyword::With},
    {"xor", Keyword::Xor},
    {"alias", Keyword::Alias},
    {"andalso", Keyword::AndAlso},
    {"assert", Keyword::Assert},
    {"attribute", Keyword::Attribute},
    {"base", Keyword::Base},
    {"begin", Keyword::Begin},
    {"binary", Keyword::Binary},
    {"catch", Keyword::Catch},
    {"class", Keyword::Class},
    {"close", Keyword::Close},
    {"compare", Keyword::Compare},
    {"date", Keyword::Date},
    {"debug", Keyword::Debug},
    {"dialog", Keyword::Dialog},
    {"error", Keyword::Error},
    {"event", Keyword::Event},
    {"explicit", Keyword::Explicit},
    {"finally", Keyword::Finally},
    {"get", Keyword::Get},
    {"implements", Keyword::Implements},
    {"input", Keyword::Input},
    {"isnot", Keyword::IsNot},
    {"lib", Keyword::Lib},
    {"line", Keyword::Line},
    {"local", Keyword::Local},
    {"lock", Keyword::Lock},
    {"mid", Keyword::Mid},
    {"module", Keyword::Module},
    {"name", Keyword::Name},
    {"open", Keyword::Open},
    {"orelse", Keyword::OrElse},
    {"print", Keyword::Print},
    {"property", Keyword::Property},
    {"ptrsafe", Keyword::PtrSafe},
    {"put", Keyword::Put},
    {"raiseevent", Keyword::RaiseEvent},
    {"reset", Keyword::Reset},
    {"seek", Keyword::Seek},
    {"spc", Keyword::Spc},
    {"step", Keyword::Step},
    {"tab", Keyword::Tab},
    {"text", Keyword::Text},
    {"time", Keyword::Time},
    {"try", Keyword::Try},
    {"type", Keyword::Type},
    {"unlock", Keyword::Unlock},
    {"width", Keyword::Width},
    {"withevents", Keyword::WithEvents},
    {"write", Keyword::Write},
};

constexpr std::size_t kSlots = 512;
constexpr std::size_t kLongestWord = 10;

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

constexpr std::size_t SlotOf(std::string_view word) {
    std::uint32_t hash = 2166136261u;
    for (char c : word) {
        hash = (hash ^ static_cast<unsigned char>(Lower(c))) * 16777619u;
    }
    return (hash ^ (hash >> 13)) % kSlots;
}

/// Row numbers by hash, from 1; 0 is free. A taken slot passes on to the next.
constexpr std::array<std::uint8_t, kSlots> MakeSlots() {
    std::array<std::uint8_t, kSlots> slots{};
    std::uint8_t number = 0;
    for (const Row& row : kRows) {
        std::size_t slot = SlotOf(row.Text);
        while (slots[slot] != 0) {
            slot = (slot + 1) % kSlots;
        }
        slots[slot] = ++number;
    }
    return slots;
}

constexpr auto kSlotTable = MakeSlots();

bool EqualsLower(std::string_view word, std::string_view lower) {
    if (word.size() != lower.size()) {
        return false;
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (Lower(word[i]) != lower[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace

Keyword FindKeyword(std::string_view word) {
    if (word.size() < 2 || word.size() > kLongestWord) {
        return Keyword::None;
    }
    for (std::size_t slot = SlotOf(word); kSlotTable[slot] != 0; slot = (slot + 1) % kSlots) {
        const Row& row = kRows[kSlotTable[slot] - 1];
        if (EqualsLower(word, row.Text)) {
            return row.Word;
        }
    }
    return Keyword::None;
}

}  // namespace dorvik::basic
