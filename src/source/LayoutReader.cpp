#include "source/LayoutReader.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"
#include "source/modSource.h"

#include <utility>

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

/// What follows the `Begin ` of a line, from its column 7 on.
std::string_view AfterBegin(std::string_view line) {
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

/// The key under which the property of a line `key = value` goes into the bag. A view of `line` or `buffer`.
std::string_view
KeyOf(std::string_view line, const std::string& propertyPath, std::string& buffer) {
    const std::string_view name = PropertyName(line.substr(0, line.find('=')), buffer);
    if (propertyPath.empty()) {
        return name;
    }
    buffer = propertyPath + "." + std::string(name);
    return buffer;
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
    const std::string_view key = KeyOf(text, propertyPath, buffer);
    const std::string_view value = modSource::RemoveQuotes(modText::Trim(text.substr(equals + 1)));
    object.Properties().Add(key, value);
    if (modTextCase::Equal(key, "Index")) {
        index = value;
    }
}

}  // namespace

bool LayoutReader::Extract(
    std::int32_t ordinal, VirtualObject& object, modVOSource::LayoutControl& control) {
    m_fault = {};
    const auto extract = [&] {
        WalkTo(ordinal);
        const std::string_view definition = AfterBegin(modText::Trim(m_lines[m_next - 1]));
        const std::size_t blank = definition.find(' ');
        if (blank == std::string_view::npos) {
            Fail(runtimeerror::kInvalidProcedureCall, m_next - 1, "a 'Begin' names no control");
        }
        control.ControlType = definition.substr(0, blank);
        control.Name = definition.substr(blank + 1);
        control.Index.clear();
        control.Container = Container(ordinal);
        ReadProperties(object, control);
    };
    return Trap(
        {"C_VOSource", "ExtractControlFromLayout"}, extract, [&](const BasicError& failure) {
            if (m_fault.Reason.empty()) {
                NoteFailedProperty(failure.Number(), control.Name);
            }
            return false;  // logged all the same
        });
}

void LayoutReader::Fail(std::int32_t errorNumber, std::size_t line, std::string reason) {
    m_fault = {line, std::move(reason)};
    RaiseRuntimeError(errorNumber);
}

void LayoutReader::NoteFailedProperty(std::int32_t errorNumber, const std::string& controlName) {
    m_fault = {m_line, "there is no property of the form 'name = value'"};
    if (errorNumber == modKyErrors::kyErrKeyInUse) {
        std::string buffer;
        const std::string_view line = modText::Trim(m_lines[m_line]);
        m_fault.Reason = "the property '" + std::string(KeyOf(line, m_propertyPath, buffer)) +
                         "' of '" + controlName + "' is set twice";
    }
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
            AppendName(m_containerPath, TextBehindBlank(AfterBegin(line)));
        } else if (modKeyword::StartsWith(line, "End")) {
            // Required: `EndProperty`, and any property whose name begins so, leaves a container too.
            DropLastName(m_containerPath);
        }
    }
    if (m_count == 0 || m_count < ordinal) {
        Fail(
            runtimeerror::kSubscriptOutOfRange,
            m_lines.empty() ? 0 : m_lines.size() - 1,
            "the 'Begin' and 'End' lines of the layout do not match");
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

void LayoutReader::ReadProperties(VirtualObject& object, modVOSource::LayoutControl& control) {
    m_propertyPath.clear();
    std::string buffer;
    std::int32_t depth = 0;
    for (m_line = m_next; m_line < m_lines.size(); ++m_line) {
        const std::string_view line = modText::Trim(m_lines[m_line]);
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
            AppendName(m_propertyPath, PropertyName(TextBehindBlank(line), buffer));
        } else if (modKeyword::StartsWith(line, "EndProperty")) {
            DropLastName(m_propertyPath);
        } else {
            AddProperty(line, m_propertyPath, object, control.Index);
        }
    }
    Fail(
        runtimeerror::kSubscriptOutOfRange,
        m_lines.size() - 1,
        "the layout ends before '" + control.Name + "' does");
}

}  // namespace dorvik
