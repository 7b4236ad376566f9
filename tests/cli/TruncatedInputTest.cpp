#include "criteria/ReviewCriteria.h"
#include "review/IProjectEventListener.h"
#include "review/ProjectTraversal.h"
#include "settings/DVKWorkData.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace dorvik::test {

namespace {

using Number = dorvik::ParserEvent;

/// Watches that a walk keeps the order that every walk has, whatever the files hold.
class OrderlyListener final : public IProjectEventListener {
public:
    void EventFired(
        dorvik::ParserEvent event,
        const VB6ParserState& state,
        const VirtualSourceFile* file) override {
        ++m_events;
        m_last = event;
        static_cast<void>(state);
        if (event == Number::BeginFile) {
            EXPECT_EQ(m_open, nullptr);
            m_open = file;
        }
        if (event == Number::EndFile) {
            EXPECT_EQ(m_open, file);
            m_open = nullptr;
        }
    }
    void FileFailed(const VirtualSourceFile& file) override {
        EXPECT_TRUE(m_open == nullptr || m_open == &file);
        m_open = nullptr;
    }
    void LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) override {
        EXPECT_EQ(m_open, nullptr);
        EXPECT_GT(fault.PhysicalLine, 0) << file.Filename();
        EXPECT_FALSE(fault.Reason.empty());
    }
    bool StopRequested() override { return ++m_ticks > kTooManyTicks; }

    bool IsComplete() const { return m_open == nullptr && m_last == Number::EndProject; }
    int Events() const { return m_events; }

private:
    static constexpr int kTooManyTicks = 10000;

    const VirtualSourceFile* m_open = nullptr;
    Number m_last = Number::BeginProject;
    int m_events = 0;
    int m_ticks = 0;
};

std::string SampleBytes(const std::string& name) {
    std::ifstream stream(std::filesystem::path(DORVIK_SAMPLES_FOLDER) / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Walks a project of the folder and returns how many events it fired; -1 if it was not loaded.
int Walk(const std::string& projectFile, std::size_t position) {
    VirtualProject project;
    if (project.LoadProject(projectFile) != ProjectLoadStatus::Good) {
        return -1;
    }
    OrderlyListener listener;
    EXPECT_TRUE(ProjectTraversal(project, ReviewCriteria(DVKWorkData()), listener).Run())
        << "does not end, cut at " << position;
    EXPECT_TRUE(listener.IsComplete()) << "cut at " << position;
    return listener.Events();
}

struct TruncatedRow {
    const char* Name;
    const char* Sample;
    const char* ProjectLine;
};

void PrintTo(const TruncatedRow& row, std::ostream* out) {
    *out << row.Name;
}

class TruncatedSource : public ::testing::TestWithParam<TruncatedRow> {};

TEST_P(TruncatedSource, IsWalkedToItsEndWhereverItIsCut) {
    const CapturedLog log;
    const TemporaryFolder folder;
    const std::string bytes = SampleBytes(GetParam().Sample);
    ASSERT_GT(bytes.size(), 200U);
    const std::string projectFile = folder.Write(
        "P.vbp", "Type=Exe\r\n" + std::string(GetParam().ProjectLine) + "\r\nName=\"P\"\r\n");
    int most = 0;
    for (std::size_t position = 0; position <= bytes.size(); ++position) {
        folder.Write("Cut", std::string_view(bytes).substr(0, position));
        const int events = Walk(projectFile, position);
        ASSERT_GE(events, 7) << "cut at " << position;
        most = std::max(most, events);
    }
    EXPECT_EQ(most, Walk(projectFile, bytes.size())) << "the whole file has the most events";
}

INSTANTIATE_TEST_SUITE_P(
    Samples,
    TruncatedSource,
    ::testing::Values(
        TruncatedRow{"Form", "Warehouse/frmCount.frm", "Form=Cut"},
        TruncatedRow{"NestedForm", "Billing/Forms/frmLogin.frm", "Form=Cut"},
        TruncatedRow{"Class", "Warehouse/IStockItem.cls", "Class=Cut; Cut"},
        TruncatedRow{"Module", "Warehouse/modCodes.bas", "Module=Cut"},
        TruncatedRow{"Designer", "Warehouse/deWarehouse.Dsr", "Designer=Cut"},
        TruncatedRow{"PropertyPage", "Clinic/pagPulse.pag", "PropertyPage=Cut"}),
    [](const auto& row) { return row.param.Name; });

TEST(TruncatedProject, IsLoadedOrRefusedWhereverItIsCut) {
    const CapturedLog log;
    const TemporaryFolder folder;
    const std::string bytes = SampleBytes("Warehouse/Warehouse.vbp");
    for (const char* name :
         {"IStockItem.cls", "Stock.cls", "deWarehouse.Dsr", "modCodes.bas", "frmCount.frm"}) {
        // The files stand for themselves by their first lines.
        folder.Write(name, SampleBytes(std::string("Warehouse/") + name).substr(0, 200));
    }
    int refused = 0;
    for (std::size_t position = 0; position <= bytes.size(); ++position) {
        const std::string projectFile =
            folder.Write("P.vbp", std::string_view(bytes).substr(0, position));
        refused += Walk(projectFile, position) < 0 ? 1 : 0;
    }
    // A value of one lone quotation mark is no value: one position for each quoted value.
    int quoted = 0;
    for (std::size_t at = bytes.find("=\""); at != std::string::npos;
         at = bytes.find("=\"", at + 1)) {
        ++quoted;
    }
    EXPECT_EQ(refused, quoted);
}

}  // namespace

}  // namespace dorvik::test
