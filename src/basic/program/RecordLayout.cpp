#include "basic/program/RecordLayout.h"

#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

namespace dorvik::basic::modRecordLayout {

namespace {

/// The size of a value, and what its offset in memory is a multiple of.
struct Extent {
    std::int64_t Size = 0;
    std::int64_t Alignment = 1;
};

constexpr Extent kAddress{4, 4};
constexpr Extent kVariantExtent{16, 4};

/// More than any script can have. Sizes saturate here, so that the widest bounds do not overflow them.
constexpr std::int64_t kMost = std::int64_t{1} << 40;

std::int64_t Aligned(std::int64_t offset, std::int64_t alignment) {
    return (offset + alignment - 1) / alignment * alignment;
}

std::int64_t Product(std::int64_t left, std::int64_t right) {
    std::int64_t product = 0;
    const bool isTooLarge = __builtin_mul_overflow(left, right, &product);
    return isTooLarge ? kMost : std::min(product, kMost);
}

std::int64_t CountOf(const VariableShape& shape) {
    std::int64_t count = 1;
    for (const Bounds& bounds : shape.Dimensions) {
        count = Product(count, std::int64_t{bounds.Upper} - bounds.Lower + 1);
    }
    return count;
}

DeclaredType ElementOf(const VariableShape& shape) {
    DeclaredType element = shape.Type;
    element.IsArray = false;
    return element;
}

/// The extents of a module's Types. Each is computed once, as it may be a member of others many times.
class Layout {
public:
    Layout(const Program& program, Form form)
        : m_program(program), m_form(form), m_known(program.Records.size()) {}

    Extent OfRecord(std::int32_t record);
    Extent OfElement(const DeclaredType& type);

private:
    Extent OfMember(const VariableShape& shape);

    const Program& m_program;
    Form m_form;
    std::vector<std::optional<Extent>> m_known;
};

Extent Layout::OfRecord(std::int32_t record) {
    const auto index = static_cast<std::size_t>(record);
    if (m_known[index]) {
        return *m_known[index];
    }
    Extent whole;
    for (const RecordMember& member : m_program.Records[index].Members) {
        const Extent extent = OfMember(member.Shape);
        if (m_form == Form::Memory) {
            whole.Size = Aligned(whole.Size, extent.Alignment);
            whole.Alignment = std::max(whole.Alignment, extent.Alignment);
        }
        whole.Size = std::min(whole.Size + extent.Size, kMost);
    }
    whole.Size = Aligned(whole.Size, whole.Alignment);
    m_known[index] = whole;
    return whole;
}

Extent Layout::OfMember(const VariableShape& shape) {
    if (shape.Type.IsArray && !shape.IsFixedArray) {
        return kAddress;
    }
    Extent extent = OfElement(ElementOf(shape));
    extent.Size = Product(extent.Size, CountOf(shape));
    return extent;
}

Extent Layout::OfElement(const DeclaredType& type) {
    switch (type.Kind) {
        case DeclaredKind::Byte: return {1, 1};
        case DeclaredKind::Boolean:
        case DeclaredKind::Integer: return {2, 2};
        case DeclaredKind::Long:
        case DeclaredKind::Single: return {4, 4};
        case DeclaredKind::Double:
        case DeclaredKind::Currency:
        case DeclaredKind::Date: return {8, 4};
        case DeclaredKind::FixedString:
            return m_form == Form::File ? Extent{type.Length, 1}
                                        : Extent{2 * std::int64_t{type.Length}, 2};
        case DeclaredKind::Record: return OfRecord(type.Record);
        case DeclaredKind::Variant: return kVariantExtent;
        case DeclaredKind::String:
        case DeclaredKind::Object: break;
    }
    return kAddress;
}

/// The members one after the other, with their offsets. Both directions visit them in the same way.
template <class Bytes>
class Walk {
public:
    Walk(const Program& program, Bytes& bytes)
        : m_program(program), m_layout(program, Form::Memory), m_bytes(bytes) {}

    template <class Record, class Visit>
    void Over(Record& record, std::size_t start, const Visit& visit) {
        const auto& members = m_program.Records[static_cast<std::size_t>(record.Type())].Members;
        std::int64_t offset = static_cast<std::int64_t>(start);
        for (std::size_t i = 0; i < members.size(); ++i) {
            const VariableShape& shape = members[i].Shape;
            const DeclaredType element = ElementOf(shape);
            const Extent extent = m_layout.OfElement(element);
            offset = Aligned(offset, extent.Alignment);
            auto& member = record.Members()[i];
            if (!shape.Type.IsArray) {
                One(member, element, static_cast<std::size_t>(offset), visit);
                offset += extent.Size;
                continue;
            }
            for (auto& value : member.AsArray()->Elements()) {
                One(value, element, static_cast<std::size_t>(offset), visit);
                offset += extent.Size;
            }
        }
    }

private:
    template <class Item, class Visit>
    void One(Item& value, const DeclaredType& type, std::size_t offset, const Visit& visit) {
        if (type.Kind == DeclaredKind::Record) {
            Over(*value.AsRecord(), offset, visit);
        } else {
            visit(value, type, m_bytes.data() + offset);
        }
    }

    const Program& m_program;
    Layout m_layout;
    Bytes& m_bytes;
};

template <class Number>
void Put(char* bytes, Number number) {
    std::memcpy(bytes, &number, sizeof(number));
}

template <class Number>
Number Taken(const char* bytes) {
    Number number{};
    std::memcpy(&number, bytes, sizeof(number));
    return number;
}

/// A character beyond the first plane does not fit into one unit.
void PutFixedText(char* bytes, std::string_view text) {
    for (std::size_t position = 0; position < text.size(); bytes += 2) {
        const char32_t character = modCharacters::Next(text, position);
        Put(bytes, static_cast<std::uint16_t>(character < 0x10000 ? character : U'?'));
    }
}

Value FixedTextAt(const char* bytes, std::int32_t length) {
    std::string text;
    for (std::int32_t i = 0; i < length; ++i) {
        modCharacters::Append(text, Taken<std::uint16_t>(bytes + 2 * std::ptrdiff_t{i}));
    }
    return Value::Text(std::move(text));
}

void PutValue(const Value& value, const DeclaredType& type, char* bytes) {
    switch (type.Kind) {
        case DeclaredKind::Byte: Put(bytes, value.AsByte()); break;
        case DeclaredKind::Boolean:
        case DeclaredKind::Integer: Put(bytes, value.AsInteger()); break;
        case DeclaredKind::Long: Put(bytes, value.AsLong()); break;
        case DeclaredKind::Single: Put(bytes, value.AsSingle()); break;
        case DeclaredKind::Double:
        case DeclaredKind::Date: Put(bytes, value.AsDouble()); break;
        case DeclaredKind::Currency: Put(bytes, value.AsCurrency()); break;
        case DeclaredKind::FixedString: PutFixedText(bytes, value.AsText()); break;
        case DeclaredKind::Variant:
        case DeclaredKind::String:
        case DeclaredKind::Object:
        case DeclaredKind::Record: break;
    }
}

template <class Number>
Number FiniteAt(const char* bytes) {
    const auto number = Taken<Number>(bytes);
    if (!std::isfinite(number)) {
        RaiseError(runtimeerror::kOverflow);
    }
    return number;
}

Value ValueAt(const char* bytes, const DeclaredType& type) {
    switch (type.Kind) {
        case DeclaredKind::Byte: return Value::Byte(Taken<std::uint8_t>(bytes));
        case DeclaredKind::Boolean: return Value::Boolean(Taken<std::int16_t>(bytes) != 0);
        case DeclaredKind::Integer: return Value::Integer(Taken<std::int16_t>(bytes));
        case DeclaredKind::Long: return Value::Long(Taken<std::int32_t>(bytes));
        case DeclaredKind::Single: return Value::Single(FiniteAt<float>(bytes));
        case DeclaredKind::Double: return Value::Double(FiniteAt<double>(bytes));
        case DeclaredKind::Date:
            return CoerceTo(Value::Double(FiniteAt<double>(bytes)), DeclaredKind::Date);
        case DeclaredKind::Currency: return Value::Currency(Taken<std::int64_t>(bytes));
        case DeclaredKind::FixedString: return FixedTextAt(bytes, type.Length);
        case DeclaredKind::Variant:
        case DeclaredKind::String:
        case DeclaredKind::Object:
        case DeclaredKind::Record: break;
    }
    return {};
}

}  // namespace

std::int64_t SizeOf(const Program& program, std::int32_t record, Form form) {
    return Layout(program, form).OfRecord(record).Size;
}

bool HasOnlyBytes(const Program& program, std::int32_t record) {
    std::vector<bool> isSeen(program.Records.size());
    std::vector<std::int32_t> waiting{record};
    while (!waiting.empty()) {
        const auto index = static_cast<std::size_t>(waiting.back());
        waiting.pop_back();
        if (isSeen[index]) {
            continue;
        }
        isSeen[index] = true;
        for (const RecordMember& member : program.Records[index].Members) {
            const DeclaredType& type = member.Shape.Type;
            const bool isDynamic = type.IsArray && !member.Shape.IsFixedArray;
            if (isDynamic || type.Kind == DeclaredKind::Variant ||
                type.Kind == DeclaredKind::String || type.Kind == DeclaredKind::Object) {
                return false;
            }
            if (type.Kind == DeclaredKind::Record) {
                waiting.push_back(type.Record);
            }
        }
    }
    return true;
}

std::string BytesOf(const Program& program, const RecordBody& record) {
    const std::int64_t size = SizeOf(program, record.Type(), Form::Memory);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    Walk(program, bytes).Over(record, 0, PutValue);
    return bytes;
}

Value WithBytes(const Program& program, const Value& record, std::string_view bytes) {
    Value changed = record.DeepCopy();
    Walk(program, bytes)
        .Over(*changed.AsRecord(), 0, [](Value& value, const DeclaredType& type, const char* from) {
            value = ValueAt(from, type);
        });
    return changed;
}

}  // namespace dorvik::basic::modRecordLayout
