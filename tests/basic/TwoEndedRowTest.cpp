#include "basic/library/TwoEndedRow.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace dorvik::basic {
namespace {

using OwnedNumber = std::unique_ptr<int>;

void ExpectSame(const TwoEndedRow<OwnedNumber>& row, const std::vector<int>& model) {
    ASSERT_EQ(row.Size(), model.size());
    for (std::size_t place = 0; place < model.size(); ++place) {
        ASSERT_EQ(*row[place], model[place]);
    }
}

TEST(TwoEndedRow, KeepsItsOrderWhereverElementsComeAndGo) {
    std::mt19937 random(1);
    TwoEndedRow<OwnedNumber> row;
    std::vector<int> model;
    for (int step = 0; step < 5000; ++step) {
        const bool grows = random() % 100 < (step < 2500 ? 60 : 40);
        if (grows || model.empty()) {
            const std::size_t place = random() % (model.size() + 1);
            row.Insert(place, std::make_unique<int>(step));
            model.insert(model.begin() + static_cast<std::ptrdiff_t>(place), step);
        } else {
            const std::size_t place = random() % model.size();
            EXPECT_EQ(*row.Take(place), model[place]);
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(place));
        }
        ExpectSame(row, model);
    }
}

TEST(TwoEndedRow, IsAQueueInBothDirections) {
    TwoEndedRow<OwnedNumber> row;
    for (int step = 0; step < 100; ++step) {
        row.Insert(row.Size(), std::make_unique<int>(step));
        row.Insert(row.Size(), std::make_unique<int>(step));
        EXPECT_EQ(*row.Take(0), step / 2);
    }
    row.Clear();
    EXPECT_EQ(row.Size(), 0U);
    for (int step = 0; step < 100; ++step) {
        row.Insert(0, std::make_unique<int>(step));
        row.Insert(0, std::make_unique<int>(step));
        EXPECT_EQ(*row.Take(row.Size() - 1), step / 2);
    }
}

}  // namespace
}  // namespace dorvik::basic
