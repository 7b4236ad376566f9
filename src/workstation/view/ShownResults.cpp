#include "ShownResults.h"

#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/view/modBenchDatabase.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kWrongVersion =
    "Incorrect results database version. Please perform a fresh review of this project to ensure "
    "that the results database is correctly updated.";

}  // namespace

ShownResults::ShownResults() : m_database(std::make_unique<ResultsDB>()) {}

/// A database stores its sort fields in the settings when it goes; those of the user are newer.
ShownResults::~ShownResults() {
    ReadSortFields();
}

bool ShownResults::Open(const std::string& file) {
    Close();
    ReadSortFields();
    if (!modBenchDatabase::Open(*m_database, file)) {
        modWorkstationMessage::Show(
            MessageIcon::Exclamation, modBenchDatabase::Objection(*m_database, kWrongVersion));
        return false;
    }
    m_available = true;
    ReadCriteria();
    return true;
}

void ShownResults::Take(std::unique_ptr<ResultsDB> database) {
    Close();
    ReadSortFields();
    m_database = std::move(database);
    m_available = true;
    ReadCriteria();
}

void ShownResults::Close() {
    m_available = false;
    m_database->CloseReview();
    m_lists = {};
}

void ShownResults::ReadSortFields() {
    if (!modGlobal::IsInUse()) {
        return;
    }
    const DVKWorkData& settings = modGlobal::WorkData();
    m_database->Order().Fields().FileSortKey = settings.RVFileSortKey;
    m_database->Order().Fields().FileSortAscending = settings.RVFileSortAscending;
    m_database->Order().Fields().ProcSortKey = settings.RVProcSortKey;
    m_database->Order().Fields().ProcSortAscending = settings.RVProcSortAscending;
}

/// The filter begins as the review was, which leaves out nothing until it is changed.
void ShownResults::ReadCriteria() {
    StoredReviewCriteria stored = m_database->Review().GetReviewCriteria();
    m_database->Filter() = std::move(stored.LoadCriteria);
    m_database->Filter().SetDirty(false);
    m_lists = std::move(stored.Lists);
}

std::string ShownResults::CategoryTitle(std::int32_t id) const {
    const std::string key = CategoryList::CategoryIDToKey(id);
    return m_lists.Categories.Contains(key) ? m_lists.Categories.Item(key)->Title() : std::string();
}

std::string ShownResults::SeverityTitle(std::int32_t level) const {
    const std::string key = SeverityKeyOf(level);
    return m_lists.Severities.Contains(key) ? m_lists.Severities.Item(key)->Title() : std::string();
}

}  // namespace dorvik
