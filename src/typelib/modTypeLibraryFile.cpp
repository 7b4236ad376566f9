#include "typelib/modTypeLibraryFile.h"

#include "ByteView.h"
#include "FaultList.h"
#include "MsftReader.h"
#include "PeResources.h"
#include "SltgReader.h"
#include "platform/host/modFiles.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace dorvik::modTypeLibraryFile {

namespace {

constexpr std::string_view kResourceType = "TYPELIB";
constexpr std::int32_t kHighestNumber = 0xFFFF;
constexpr std::size_t kMostFaults = 20;  // of a file; no one reads more

/// What a file's faults begin with.
std::string FileText(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

/// One file on its way from bytes to libraries.
class FileReading {
public:
    FileReading(std::string_view bytes, std::string_view name, std::optional<std::int32_t> number)
        : m_file(bytes, "the file"), m_name(name), m_number(number) {}

    TypeLibraryFile Read() {
        if (MsftReader::Knows(m_file) || SltgReader::Knows(m_file)) {
            AddLibrary(1, m_file, " is damaged: ");
        } else {
            AddFaults(" is damaged: ", [this](auto& faults) { return TryProgram(faults); });
        }
        ReportMissing();
        LimitFaults();
        return std::move(m_result);
    }

private:
    /// What `read` says is wrong, as sentences about the file. Its failure to end is one of them.
    template <typename Reading>
    void AddFaults(const std::string& words, Reading&& read) {
        std::vector<std::string> faults;
        if (!Attempt(faults, [&] { read(faults); }) && faults.empty()) {
            faults.emplace_back("it cannot be read");
        }
        for (const std::string& fault : faults) {
            m_result.Faults.push_back(FileText(m_name) + words + fault + ".");
        }
    }

    void TryProgram(std::vector<std::string>& faults) {
        switch (PeResources::KindOf(m_file)) {
            case PeResources::FileKind::NoProgram:
                return ReportOther("is neither a type library nor a program");
            case PeResources::FileKind::DosProgram:
                return ReportOther("is a DOS program, which holds no type library");
            case PeResources::FileKind::WindowsProgram16Bit:
                return ReportOther("is a 16-bit program, whose type libraries cannot be read");
            case PeResources::FileKind::OtherProgram:
                return ReportOther("is a program of a kind that holds no type library");
            case PeResources::FileKind::Pe: return ReadProgram(faults);
        }
    }

    void ReadProgram(std::vector<std::string>& faults) {
        PeResources resources(m_file);
        const std::vector<PeResource> found = resources.OfType(kResourceType, faults);
        if (found.empty() && faults.empty()) {
            return ReportOther("is a program without type libraries");
        }
        std::uint64_t total = 0;
        for (const PeResource& resource : found) {
            total += resource.Size;
            if (total > m_file.Size()) {
                RaiseFormatError(
                    "its type libraries are larger than the file, from number " +
                    std::to_string(resource.Number) + " at offset " + HexText(resource.Start));
            }
            AddLibrary(
                resource.Number,
                m_file.Part(resource.Start, resource.Size, "the library"),
                ", type library " + std::to_string(resource.Number) + ", is damaged: ");
        }
    }

    void AddLibrary(std::int32_t number, const ByteView& library, const std::string& words) {
        m_numbers.push_back(number);
        if (m_number.value_or(number) == number) {
            AddFaults(words, [&](auto&) {
                m_result.Libraries.push_back({number, FactsOf(library)});
            });
        }
    }

    static TypeLibraryFacts FactsOf(const ByteView& library) {
        if (MsftReader::Knows(library)) {
            return MsftReader(library).Read();
        }
        if (SltgReader::Knows(library)) {
            return SltgReader(library).Read();
        }
        RaiseFormatError(
            "the data at offset " + HexText(library.FileOffset(0)) + " has an unknown format");
    }

    void ReportOther(std::string_view text) {
        m_result.IsOther = true;
        m_result.Faults.push_back(FileText(m_name) + " " + std::string(text) + ".");
    }

    /// One library was requested, and the file has others.
    void ReportMissing() {
        if (m_number && !m_numbers.empty() && std::ranges::count(m_numbers, *m_number) == 0) {
            m_result.Faults.push_back(
                FileText(m_name) + " has no type library " + std::to_string(*m_number) + ", only " +
                NumbersText() + ".");
        }
    }

    void LimitFaults() {
        const std::size_t count = m_result.Faults.size();
        if (count > kMostFaults) {
            m_result.Faults.resize(kMostFaults);
            m_result.Faults.push_back(
                FileText(m_name) + " has " + std::to_string(count - kMostFaults) + " more faults.");
        }
    }

    /// "1, 2 and 5"
    std::string NumbersText() const {
        std::vector<std::int32_t> numbers = m_numbers;
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        std::string text;
        for (std::size_t place = 0; place < numbers.size(); ++place) {
            const bool isLast = place + 1 == numbers.size();
            text += place == 0 ? "" : isLast ? " and " : ", ";
            text += std::to_string(numbers[place]);
        }
        return text;
    }

    ByteView m_file;
    std::string_view m_name;
    std::optional<std::int32_t> m_number;  // the one to read; all if there is none
    std::vector<std::int32_t> m_numbers;   // of all libraries in the file, in order
    TypeLibraryFile m_result;
};

TypeLibraryFile ReadFile(std::string_view path, std::optional<std::int32_t> number) {
    TypeLibraryFile result;
    const bool isRead = Attempt(result.Faults, [&] {
        if (const std::int64_t size = modFiles::FileSize(path); size > kLargestFile) {
            RaiseFormatError(
                FileText(path) + " is not read: it has more than " +
                std::to_string(kLargestFile / (1024 * 1024)) + " MB.");
        }
        const std::string bytes = modFiles::ReadBytes(path);
        result = FileReading(bytes, path, number).Read();
    });
    if (!isRead && result.Faults.empty()) {
        result.Faults.push_back(FileText(path) + " cannot be read.");
    }
    return result;
}

/// The number that the text is, whole; 0 for anything else.
std::int32_t NumberOf(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc{} && stop == end && number > 0;
    return isNumber && number <= kHighestNumber ? number : 0;
}

}  // namespace

TypeLibraryFile ReadAll(std::string_view path) {
    return ReadFile(path, std::nullopt);
}

TypeLibraryFile Read(std::string_view path, std::int32_t number) {
    return ReadFile(path, number);
}

TypeLibraryPlace PlaceOf(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    if (separator != std::string_view::npos && separator > 0) {
        if (const std::int32_t number = NumberOf(path.substr(separator + 1)); number != 0) {
            return {std::string(path.substr(0, separator)), number};
        }
    }
    return {std::string(path), 1};
}

TypeLibraryFile ReadBytes(std::string_view bytes, std::string_view name) {
    return FileReading(bytes, name, std::nullopt).Read();
}

}  // namespace dorvik::modTypeLibraryFile
