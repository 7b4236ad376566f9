#include "basic/program/PropertyCache.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

/// More than all rules together ask for at an event; a script that makes up names gets no further.
constexpr std::size_t kMostAnswers = 64;

bool CanBeAsked(const Value& argument) {
    return argument.Type() == ValueType::String || argument.Type() == ValueType::Empty;
}

const StringBody* BodyOf(const Value& argument) {
    return argument.Type() == ValueType::String ? argument.TextBody() : nullptr;
}

bool CanBeKept(const Value& answer) {
    return answer.Type() == ValueType::String || answer.IsNumber();
}

}  // namespace

std::optional<PropertyCache::Question>
PropertyCache::QuestionOf(std::size_t member, const Value& first, const Value& second) {
    if (!CanBeAsked(first) || !CanBeAsked(second)) {
        return std::nullopt;
    }
    return Question{member, BodyOf(first), BodyOf(second)};
}

const Value*
PropertyCache::Find(std::size_t member, const Value& first, const Value& second) const {
    const auto question = QuestionOf(member, first, second);
    if (!question) {
        return nullptr;
    }
    // The arguments first: most questions are put to one callback about one object.
    const auto found =
        std::find_if(m_questions.begin(), m_questions.end(), [&question](const Question& kept) {
            return kept.Second == question->Second && kept.First == question->First &&
                   kept.Member == question->Member;
        });
    return found == m_questions.end()
               ? nullptr
               : &m_answers[static_cast<std::size_t>(found - m_questions.begin())].Result;
}

void PropertyCache::Keep(
    std::size_t member, const Value& first, const Value& second, const Value& answer) {
    const auto question = QuestionOf(member, first, second);
    if (question && CanBeKept(answer) && m_questions.size() < kMostAnswers) {
        m_questions.push_back(*question);
        m_answers.push_back({first, second, answer});
    }
}

void PropertyCache::Clear() {
    m_questions.clear();
    m_answers.clear();
}

}  // namespace dorvik::basic
