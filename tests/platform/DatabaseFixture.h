#pragma once

#include "base/BasicError.h"
#include "platform/database/Database.h"
#include "support/FilesystemPaths.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

inline std::int32_t ErrorNumberOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

/// A small database of the kinds of column that a results database has, opened.
class DatabaseFixture : public testing::Test {
protected:
    void SetUp() override {
        Run("CREATE TABLE Items (ItemID INTEGER PRIMARY KEY, Name TEXT COLLATE NOCASE, Size LONG,"
            " Done YESNO NOT NULL DEFAULT 0, [End] TEXT COLLATE NOCASE);"
            "CREATE TABLE Parts (PartID INTEGER PRIMARY KEY, ItemID LONG, Weight LONG);");
        m_database.Open(m_path);
    }

    /// Runs plain statements on the file through the engine itself.
    void Run(const std::string& sql) const {
        sqlite3* engine = nullptr;
        ASSERT_EQ(sqlite3_open(test::FilesystemPath(m_path).c_str(), &engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(engine, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(engine);
        sqlite3_close(engine);
    }

    void Add(std::string_view name, std::int32_t size) {
        auto rows = m_database.OpenRecordset("SELECT * FROM Items WHERE ItemID = 0");
        rows.AddNew();
        rows.SetValue("Name", name);
        rows.SetValue("Size", size);
        rows.Update();
    }

    std::vector<std::string> Texts(std::string_view sql) {
        std::vector<std::string> result;
        for (auto rows = m_database.OpenRecordset(sql, RecordsetType::Snapshot); !rows.EOF_();
             rows.MoveNext()) {
            result.push_back(rows.Value(0).AsText());
        }
        return result;
    }

    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.HostPath())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.Path() + "Test.mdb";
    Database m_database;
};

}  // namespace dorvik::test
