#include "source/VirtualSourceFile.h"

#include "TextFileOpening.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "source/modLogicalLine.h"
#include "source/modStatementFront.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

namespace dorvik {

namespace {

struct CaseBlindHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return modTextCase::Hash(text); }
};

struct CaseBlindEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const {
        return modTextCase::Equal(left, right);
    }
};

bool IsAttributeLine(std::string_view raw) {
    return !raw.empty() && (raw.front() == 'A' || raw.front() == 'a') &&
           modTextCase::StartsWith(raw, "Attribute");
}

}  // namespace

/// The list that the outside sees, and a set of the same names, since the list can only be scanned.
struct VirtualSourceFile::EventNames {
    struct NameList : StringKeyedArrayList {
        /// REQUIRES: the name is not in the list.
        void AddNew(std::string_view name) { AddEntry(name, std::string(name), false, false); }
    };

    NameList List;
    std::unordered_set<std::string, CaseBlindHash, CaseBlindEqual> Names;
};

VirtualSourceFile::VirtualSourceFile(int codePage)
    : m_codePage(codePage), m_fileStats(std::make_shared<VirtualObject>()) {}

VirtualSourceFile::~VirtualSourceFile() = default;

SourceFileStatus VirtualSourceFile::Connect() {
    SourceFileStatus status = SourceFileStatus::UnexpectedError;
    m_physicalLine = 0;
    m_readingFailed = false;
    m_unreadable.clear();
    m_layoutFault.reset();
    Trap({"VirtualSourceFile", "Connect"}, [&] {
        TextFileOpening opening = OpenTextFile(m_filename, m_codePage);
        if (opening.IsMissing()) {
            status = SourceFileStatus::NotFound;
            modLog::Log().LogMessage(
                "Failed to open file " + m_filename + " - Error " +
                std::to_string(opening.ErrorNumber) + " " + RuntimeErrorText(opening.ErrorNumber));
            return;
        }
        if (opening.Reader == nullptr) {
            m_unreadable = opening.Unreadable;
            opening.Raise(m_filename);
        }
        constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
        m_size = static_cast<std::int32_t>(std::min(opening.Reader->Size(), kLargest));
        m_reader = std::move(opening.Reader);
        m_mayNeedBlanks = modStatementFront::MayNeedBlanks(*m_reader);
        status = SourceFileStatus::Good;
    });
    return status;
}

void VirtualSourceFile::Disconnect() {
    m_reader.reset();
    m_lineCountingEnabled = false;
    m_nameAttributeSeen = false;
}

bool VirtualSourceFile::GetNextSourceLine(SourceLine& line) {
    bool got = false;
    m_readingFailed = !Trap({"VirtualSourceFile", "GetNextSourceLine"}, [&] {
        if (m_reader == nullptr) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        if (m_reader->AtEnd()) {
            return;
        }
        ReadPhysicalLines(line);
        ClassifyAttributeOrCode(line);
        got = true;
    });
    return got;
}

void VirtualSourceFile::SetLayoutFault(LayoutFault fault) {
    if (!m_layoutFault) {
        m_layoutFault = std::move(fault);
    }
}

void VirtualSourceFile::ReadPhysicalLines(SourceLine& line) {
    line.Raw.clear();
    line.PhysicalLines = 0;
    const std::string_view physical = ReadPhysicalLine(line);
    if (modLogicalLine::IsContinued(physical)) {
        line.Logical.assign(modLogicalLine::WithoutContinuation(physical));
        ReadContinuations(line);
    } else {
        line.Logical.assign(physical);
    }
    line.RawLength = static_cast<std::int32_t>(modUtf8::Length(line.Raw));
}

std::string_view VirtualSourceFile::ReadPhysicalLine(SourceLine& line) {
    const std::string_view physical = m_reader->ReadLine();
    ++m_physicalLine;
    ++line.PhysicalLines;
    line.Raw += physical;
    return m_mayNeedBlanks ? modStatementFront::WithBlanks(physical, m_blankedLine) : physical;
}

void VirtualSourceFile::ReadContinuations(SourceLine& line) {
    bool continued = true;
    while (continued && !m_reader->AtEnd()) {
        line.Raw += modText::kLineEnd;
        const std::string_view physical = ReadPhysicalLine(line);
        continued = modLogicalLine::IsContinued(physical);
        modLogicalLine::AppendJoined(
            line.Logical, continued ? modLogicalLine::WithoutContinuation(physical) : physical);
    }
}

void VirtualSourceFile::ClassifyAttributeOrCode(SourceLine& line) {
    // Required: an attribute line is one wherever it is, also in a procedure.
    if (IsAttributeLine(line.Raw)) {
        line.PhysicalLines = 0;
        if (modTextCase::StartsWith(line.Raw, "Attribute VB_Name =")) {
            m_nameAttributeSeen = true;
        }
        return;
    }
    if (m_nameAttributeSeen) {
        m_lineCountingEnabled = true;
    }
    // The raw text keeps its number.
    modLogicalLine::RemoveLineNumber(line.Logical);
}

const StringKeyedArrayList& VirtualSourceFile::EventItems() const {
    return EventNamesAtFirstUse().List;
}

void VirtualSourceFile::AddEventItem(std::string_view name) {
    EventNames& names = EventNamesAtFirstUse();
    // A name already there is not added again, and nothing is raised.
    if (names.Names.emplace(name).second) {
        names.List.AddNew(name);
    }
}

bool VirtualSourceFile::HasEventItem(std::string_view name) const {
    return m_eventNames && m_eventNames->Names.contains(name);
}

VirtualSourceFile::EventNames& VirtualSourceFile::EventNamesAtFirstUse() const {
    if (!m_eventNames) {
        m_eventNames = std::make_unique<EventNames>();
    }
    return *m_eventNames;
}

}  // namespace dorvik
