#include "platform/host/UnfinishedFile.h"

#include "platform/host/modFiles.h"

#include <array>
#include <atomic>
#include <csignal>
#include <string>
#include <unistd.h>

namespace dorvik {

namespace {

/// The database and what is kept beside it. The journal goes after it: a file must not be left without the one
/// that says how to take its last changes back.
constexpr std::array<std::string_view, 5> kCompanions = {"-wal", "-shm", "", "-journal", "-lock"};

constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kSlots = 4;
constexpr std::size_t kNoSlot = kSlots;

/// All that a signal handler reads: no memory is taken, and `IsTaken` is set last and cleared first.
struct Slot {
    volatile std::sig_atomic_t IsTaken = 0;
    std::array<std::array<char, kLongestPath>, kCompanions.size()> Paths{};
};

std::array<Slot, kSlots> g_slots;

bool Fill(Slot& slot, const std::string& path) {
    for (std::size_t which = 0; which < kCompanions.size(); ++which) {
        const std::string file = path + std::string(kCompanions.at(which));
        if (file.size() >= kLongestPath) {
            return false;
        }
        file.copy(slot.Paths.at(which).data(), file.size());
        slot.Paths.at(which).at(file.size()) = '\0';
    }
    return true;
}

std::size_t Take(std::string_view path) {
    const std::string host = modFiles::HostPath(path).string();
    for (std::size_t slot = 0; slot < kSlots && !host.empty(); ++slot) {
        if (g_slots.at(slot).IsTaken == 0 && Fill(g_slots.at(slot), host)) {
            std::atomic_signal_fence(std::memory_order_seq_cst);
            g_slots.at(slot).IsTaken = 1;
            return slot;
        }
    }
    return kNoSlot;
}

}  // namespace

UnfinishedFile::UnfinishedFile(std::string_view path) : m_slot(Take(path)) {}

UnfinishedFile::~UnfinishedFile() {
    if (m_slot != kNoSlot) {
        g_slots.at(m_slot).IsTaken = 0;
    }
}

void UnfinishedFile::RemoveAll() noexcept {
    for (Slot& slot : g_slots) {
        if (slot.IsTaken != 0) {
            for (const auto& path : slot.Paths) {
                ::unlink(path.data());
            }
            slot.IsTaken = 0;
        }
    }
}

}  // namespace dorvik
