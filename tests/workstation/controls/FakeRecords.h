#pragma once

#include "base/BasicError.h"
#include "workstation/controls/Grid.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// Records of a mark, a number and a text.
class FakeRecords final : public IGridRecords {
public:
    struct Record {
        bool Mark = false;
        std::optional<std::int32_t> Number = 0;
        std::string Text;
    };

    void VisitKeys(std::string_view, const std::function<void(std::int32_t key)>& visit) override {
        FailIfTold();
        // In no particular order.
        for (auto record = Records.rbegin(); record != Records.rend(); ++record) {
            visit(record->first);
        }
    }
    void VisitField(std::string_view, std::string_view field, const FieldVisitor& visit) override {
        FailIfTold();
        for (auto record = Records.rbegin(); record != Records.rend(); ++record) {
            visit(record->first, ValueOf(record->first, field));
        }
    }
    std::vector<Variant>
    ReadRecord(std::int32_t key, const std::vector<std::string_view>& fields) override {
        FailIfTold();
        ++Reads;
        std::vector<Variant> values;
        for (const std::string_view field : fields) {
            values.push_back(ValueOf(key, field));
        }
        return values;
    }
    bool WriteCheck(std::int32_t key, bool checked) override {
        Records.at(key).Mark = checked;
        return true;
    }

    std::map<std::int32_t, Record> Records;
    int Reads = 0;
    bool Fails = false;

private:
    void FailIfTold() const {
        if (Fails) {
            throw BasicError(3260, "locked");
        }
    }
    Variant ValueOf(std::int32_t key, std::string_view field) const {
        const Record& record = Records.at(key);
        if (field == "Mark") {
            return record.Mark;
        }
        if (field == "Text") {
            return record.Text;
        }
        return record.Number ? Variant(*record.Number) : Variant();
    }
};

inline std::vector<GridColumn> FakeColumns() {
    GridColumn mark;
    mark.Key = "Mark";
    mark.Field = "Mark";
    mark.Ordering = GridOrdering::Number;
    GridColumn number;
    number.Key = "Number";
    number.Field = "Number";
    number.Ordering = GridOrdering::Number;
    GridColumn text;
    text.Key = "Text";
    text.Field = "Text";
    GridColumn listed;
    listed.Key = "Listed";
    listed.Field = "Number";
    listed.Ordering = GridOrdering::ListText;
    listed.HasValueList = true;
    return {mark, number, text, listed};
}

inline constexpr std::int32_t kMark = 1;
inline constexpr std::int32_t kNumber = 2;
inline constexpr std::int32_t kText = 3;
inline constexpr std::int32_t kListed = 4;

}  // namespace dorvik::test
