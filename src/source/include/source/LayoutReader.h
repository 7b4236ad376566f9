#pragma once

#include "source/modVOSource.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace dorvik {

/// Reads the objects of a layout one after the other. It gives what
/// `modVOSource::ExtractControlFromLayout` gives for the same ordinal, but continues from the object
/// before instead of from the first line; an ordinal before that starts anew.
/// REQUIRES: the lines outlive the reader and do not change.
class LayoutReader {
public:
    explicit LayoutReader(std::span<const std::string> lines) : m_lines(lines) {}

    /// An unexpected error is logged and gives false; properties found by then stay in the bag.
    bool Extract(std::int32_t ordinal, VirtualObject& object, modVOSource::LayoutControl& control);

    /// The line of the `Begin`, from 0 among the lines, of the object that was read last.
    std::size_t BeginLine() const { return m_next == 0 ? 0 : m_next - 1; }

    /// Where and why the last `Extract` failed.
    struct Fault {
        std::size_t Line = 0;  // from 0, among the lines
        std::string Reason;    // in words that say what is wrong in that line
    };
    const Fault& LastFault() const { return m_fault; }

private:
    void WalkTo(std::int32_t ordinal);
    std::string Container(std::int32_t ordinal) const;
    void ReadProperties(VirtualObject& object, modVOSource::LayoutControl& control);
    [[noreturn]] void Fail(std::int32_t errorNumber, std::size_t line, std::string reason);
    void NoteFailedProperty(std::int32_t errorNumber, const std::string& controlName);

    std::span<const std::string> m_lines;
    std::size_t m_next = 0;      // the line after the one read last
    std::int32_t m_count = 0;    // `Begin ` lines so far
    std::size_t m_line = 0;      // the line now being read
    std::string m_propertyPath;  // the names of the open blocks of properties, likewise
    Fault m_fault;
    std::string
        m_containerPath;  // the names of the open objects, as the walk sees them, with "." between
};

}  // namespace dorvik
