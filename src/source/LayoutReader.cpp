#include "source/LayoutReader.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/Trap.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"
#include "source/modSource.h"

namespace dorvik {

namespace {

// A path is names joined by points, as one text: a name that itself holds a point counts as two.

void AppendName(std::string& path, std::string_view name) {
    if (!path.empty()) {
        path += '.';
    }
    path += name;
}

void DropLastName(std::string& path) {
    const std::size_t point = path.rfind('.');
    path.resize(point == std::string::npos ? 0 : point);
}

bool IsBegin(std::string_view line) {
    return modKeyword::StartsWith(line, "Begin ");
}

/// The line that ends an object, as its properties are read: the word alone.
bool IsObjectEnd(std::string_view line) {
    return line.size() == 3 && modKeyword::StartsWith(line, "End");
}

/// What stands behind the `Begin ` of a line, from its column 7 on.
std::string_view BehindBegin(std::string_view line) {
    return line.substr(modKeyword::Match(line, "Begin "));
}

std::string_view TextBehindBlank(std::string_view text) {
    const std::size_t blank = text.find(' ');
    return blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
}

/// The name of a property or a block of them: without brackets, and without a GUID and what follows.
/// A view of `text` or `buffer`.
std::string_view PropertyName(std::string_view text, std::string& buffer) {
    if (text.find_first_of("(){") == std::string_view::npos) {
        return modText::Trim(text);
    }
    buffer = text;
    std::erase_if(buffer, [](char character) { return character == '(' || character == ')'; });
    return modText::Trim(std::string_view(buffer).substr(0, buffer.find('{')));
}

/// Adds the property of a line `key = value`. Raises where it has no "=" or the key is there.
void AddProperty(
    std::string_view line,
    const std::string& propertyPath,
    VirtualObject& object,
    std::string& index) {
    const std::string_view text = modSource::StripInLineComment(line);
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
    }
    std::string buffer;
    std::string path;
    std::string_view key = PropertyName(text.substr(0, equals), buffer);
    if (!propertyPath.empty()) {
        path.append(propertyPath).append(1, '.').append(key);
        key = path;
    }
    const std::string_view value = modSource::RemoveQuotes(modText::Trim(text.substr(equals + 1)));
    object.Properties().Add(key, value);
    if (modTextCase::Equal(key, "Index")) {
        index = value;
    }
}

}  // namespace

bool LayoutReader::Extract(
    std::int32_t ordinal, VirtualObject& object, modVOSource::LayoutControl& control) {
    return Trap({"C_VOSource", "ExtractControlFromLayout"}, [&] {
        WalkTo(ordinal);
        const std::string_view definition = BehindBegin(modText::Trim(m_lines[m_next - 1]));
        const std::size_t blank = definition.find(' ');
        if (blank == std::string_view::npos) {
            RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
        }
        control.ControlType = definition.substr(0, blank);
        control.Name = definition.substr(blank + 1);
        control.Index.clear();
        control.Container = Container(ordinal);
        ReadProperties(object, control.Index);
    });
}

void LayoutReader::WalkTo(std::int32_t ordinal) {
    if (ordinal <= m_count) {
        m_next = 0;
        m_count = 0;
        m_containerPath.clear();
    }
    while (m_count < ordinal && m_next < m_lines.size()) {
        const std::string_view line = modText::Trim(m_lines[m_next++]);
        if (IsBegin(line)) {
            ++m_count;
            AppendName(m_containerPath, TextBehindBlank(BehindBegin(line)));
        } else if (modKeyword::StartsWith(line, "End")) {
            // Required: `EndProperty`, and any property whose name begins so, leaves a container too.
            DropLastName(m_containerPath);
        }
    }
    if (m_count == 0 || m_count < ordinal) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
}

std::string LayoutReader::Container(std::int32_t ordinal) const {
    const std::size_t own = m_containerPath.rfind('.');
    if (ordinal == 1 || own == std::string::npos) {
        return {};
    }
    const std::string_view around = std::string_view(m_containerPath).substr(0, own);
    return std::string(around.substr(around.rfind('.') + 1));
}

void LayoutReader::ReadProperties(VirtualObject& object, std::string& index) const {
    std::string propertyPath;
    std::string buffer;
    std::int32_t depth = 0;
    for (std::size_t i = m_next; i < m_lines.size(); ++i) {
        const std::string_view line = modText::Trim(m_lines[i]);
        if (IsObjectEnd(line)) {
            if (depth == 0) {
                return;
            }
            --depth;
        } else if (IsBegin(line)) {
            ++depth;
        } else if (depth > 0) {
            continue;
        } else if (modKeyword::StartsWith(line, "BeginProperty ")) {
            AppendName(propertyPath, PropertyName(TextBehindBlank(line), buffer));
        } else if (modKeyword::StartsWith(line, "EndProperty")) {
            DropLastName(propertyPath);
        } else {
            AddProperty(line, propertyPath, object, index);
        }
    }
    RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
}

}  // namespace dorvik
