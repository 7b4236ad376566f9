#include "review/ReviewManager.h"

#include "ReviewMachine.h"

#include <utility>

namespace dorvik {

ReviewManager::ReviewManager() : ReviewManager(ProjectReviewFactory()) {}

ReviewManager::ReviewManager(ProjectReviewFactory factory)
    : m_machine(std::make_shared<ReviewMachine>(std::move(factory))) {}

ReviewManager::~ReviewManager() {
    m_machine->Abandon();
}

std::int32_t ReviewManager::InitialiseReview(std::shared_ptr<ReviewCriteria> criteria) {
    return m_machine->InitialiseReview(std::move(criteria));
}

void ReviewManager::SetTypeLibraries(ITypeLibrarySource* typeLibraries) {
    m_machine->SetTypeLibraries(typeLibraries);
}

void ReviewManager::SetProgressHandler(ProgressHandler handler) {
    m_machine->SetProgressHandler(std::move(handler));
}

SliceResult ReviewManager::ReviewTimeSlice(std::int32_t ticks) {
    const std::shared_ptr<ReviewMachine> machine = m_machine;  // this may go in the slice
    return machine->ReviewTimeSlice(ticks);
}

void ReviewManager::Abandon() {
    m_machine->Abandon();
}

RuleEngine& ReviewManager::RuleEngine() {
    return m_machine->RuleEngine();
}

const ReportsEngine& ReviewManager::Reports() const {
    return m_machine->Reports();
}

bool ReviewManager::ReportsCancelled() const {
    return m_machine->ReportsCancelled();
}

const Rulebase* ReviewManager::LoadedRulebase() const {
    return m_machine->LoadedRulebase();
}

}  // namespace dorvik
