#include "platform/host/UnfinishedFile.h"

#include "platform/host/modHostFolder.h"
#include "platform/host/modHostPath.h"

#include <array>
#include <atomic>
#include <string>

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
    std::atomic<bool> IsTaken = false;
    std::array<std::array<char, kLongestPath>, kCompanions.size()> Paths{};
};

static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait");

std::array<Slot, kSlots> g_slots;

bool Fill(Slot& slot, const HostPath& path) {
    for (std::size_t which = 0; which < kCompanions.size(); ++which) {
        const HostPath companion = path.WithEnding(kCompanions.at(which));
        const std::string& file = companion.Bytes();
        if (file.size() >= kLongestPath) {
            return false;
        }
        file.copy(slot.Paths.at(which).data(), file.size());
        slot.Paths.at(which).at(file.size()) = '\0';
    }
    return true;
}

std::size_t Take(std::string_view path) {
    const HostPath host = modHostPath::FromProgram(path);
    for (std::size_t slot = 0; slot < kSlots && !host.IsEmpty(); ++slot) {
        if (!g_slots.at(slot).IsTaken && Fill(g_slots.at(slot), host)) {
            g_slots.at(slot).IsTaken = true;
            return slot;
        }
    }
    return kNoSlot;
}

}  // namespace

UnfinishedFile::UnfinishedFile(std::string_view path) : m_slot(Take(path)) {}

UnfinishedFile::~UnfinishedFile() {
    if (m_slot != kNoSlot) {
        g_slots.at(m_slot).IsTaken = false;
    }
}

void UnfinishedFile::RemoveAll() noexcept {
    for (Slot& slot : g_slots) {
        if (slot.IsTaken) {
            for (const auto& path : slot.Paths) {
                modHostFolder::DeleteAtOnce(path.data());
            }
            slot.IsTaken = false;
        }
    }
}

}  // namespace dorvik
