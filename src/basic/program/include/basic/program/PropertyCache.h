#pragma once

#include "basic/values/Value.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace dorvik::basic {

/// Answers of an extension's callbacks that stay the same until it clears them, so that all scripts that ask for the
/// same share one answer. The extension owns the cache and fills it; the machine gets it with the extension, and
/// looks there before it calls.
///
/// A question is the number of the callback and up to two arguments before its out argument, each a String or Empty.
/// The names in scripts are constants of one module, which has each text once, so two texts are the same when they
/// are one heap object; a text that a script has computed is never found, and the callback is called.
class PropertyCache {
public:
    /// Null if there is none. Valid until the next `Keep` or `Clear`.
    const Value* Find(std::size_t member, const Value& first, const Value& second) const;
    /// Keeps a String or a number; anything else, and more answers than scripts reasonably ask for, is not kept.
    void Keep(std::size_t member, const Value& first, const Value& second, const Value& answer);
    void Clear();

private:
    struct Question {
        std::size_t Member;
        const StringBody* First;
        const StringBody* Second;

        bool operator==(const Question&) const = default;
    };
    struct Answer {
        Value First;  // the arguments, so that no other text gets their addresses
        Value Second;
        Value Result;
    };
    static std::optional<Question>
    QuestionOf(std::size_t member, const Value& first, const Value& second);

    std::vector<Question> m_questions;
    std::vector<Answer> m_answers;  // in the same order
};

}  // namespace dorvik::basic
