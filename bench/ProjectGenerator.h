#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace dorvik {

/// Writes a Visual Basic project of about any size whose code has the shape of real programs: forms
/// with nested controls, classes with properties, modules with procedures of 5 to 60 lines, comments
/// on every sixth line, blank lines, continued lines, strings with quotes, multi-statement lines.
/// The same seed gives the same bytes.
class ProjectGenerator {
public:
    explicit ProjectGenerator(std::uint32_t seed) : m_random(seed) {}

    /// Writes "Generated.vbp" and its sources into the folder; at least `lines` lines of code. The
    /// project file.
    std::filesystem::path Write(const std::filesystem::path& folder, int lines);

    /// The source files written.
    const std::vector<std::filesystem::path>& SourceFiles() const { return m_sourceFiles; }

private:
    void WriteForm(const std::filesystem::path& folder, int number);
    void WriteClass(const std::filesystem::path& folder, int number);
    void WriteModule(const std::filesystem::path& folder, int number);
    void WriteFile(const std::filesystem::path& file);

    void Line(const std::string& text);
    void Attributes(const std::string& name);
    void Declarations();
    void Procedures(int count, bool isForm);
    void Procedure(int number, bool isForm);
    void Property(int number);
    void Body(int lines, int depth);
    void Statement(int depth);

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }
    std::string Name(const char* prefix);
    std::string Expression();

    std::mt19937 m_random;
    std::string m_text;
    int m_lines = 0;
    std::vector<std::filesystem::path> m_sourceFiles;
    std::string m_projectLines;
};

}  // namespace dorvik
