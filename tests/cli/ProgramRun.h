#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace dorvik::test {

/// Runs the program as a child process, the way a person at a shell does, and keeps what it says.
class ProgramRun {
public:
    struct Settings {
        std::vector<std::string> Arguments;
        std::filesystem::path WorkingFolder;
        /// A folder for the program's own state and for what it prints; it must exist.
        std::filesystem::path StateFolder;
        std::chrono::seconds Patience{120};
        /// Of temporary files; empty: where the machine has them.
        std::string TemporaryFolder{};
        /// No file may grow beyond so many bytes, as on a disk that is full; 0: no limit.
        std::uint64_t LargestFile = 0;
    };

    /// Starts the program.
    explicit ProgramRun(Settings settings);
    /// Ends the program if nobody has waited for it.
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// True while the program has not come to its end.
    bool IsRunning();
    /// What Ctrl-C in a terminal does.
    void Interrupt();
    /// Halts the program wherever it is, until `Continue`.
    void Halt();
    void Continue();
    /// Ends the program at once, whatever it is doing; wait for it afterwards.
    void Kill();
    /// Waits for the end. A program that takes longer than the patience of the settings is killed;
    /// its exit code is then `kKilled`.
    void Wait();

    /// REQUIRES: the run has been waited for, as for the two streams.
    int ExitCode() const { return m_exitCode; }
    const std::string& Output() const { return m_output; }
    const std::string& Error() const { return m_error; }

    /// Exit codes for a program that was ended by a signal of its own, and for one that hung.
    static constexpr int kCrashed = -1;
    static constexpr int kKilled = -2;

private:
    std::filesystem::path StreamFile(const char* name) const;
    void Signal(int signal);
    void Finish(int status);

    Settings m_settings;
    std::chrono::steady_clock::time_point m_deadline;
    int m_process = 0;  // 0 behind its end
    bool m_timedOut = false;
    int m_exitCode = 0;
    std::string m_output;
    std::string m_error;
};

}  // namespace dorvik::test
