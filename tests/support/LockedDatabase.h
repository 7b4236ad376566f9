#pragma once

#include "support/FilesystemPaths.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string_view>

namespace dorvik::test {

/// Keeps everyone else out of a database, as another program does that is changing it, until it goes. A test program that
/// includes this links the bare engine.
class LockedDatabase {
public:
    /// `path` is the program's own.
    explicit LockedDatabase(std::string_view path) {
        EXPECT_EQ(sqlite3_open(FilesystemPath(path).string().c_str(), &m_engine), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(m_engine, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(m_engine);
    }
    ~LockedDatabase() { sqlite3_close(m_engine); }
    LockedDatabase(const LockedDatabase&) = delete;
    LockedDatabase& operator=(const LockedDatabase&) = delete;

private:
    sqlite3* m_engine = nullptr;
};

}  // namespace dorvik::test
