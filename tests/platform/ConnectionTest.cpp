#include "platform/database/Connection.h"

#include "platform/DatabaseFixture.h"
#include "platform/host/modHostPath.h"

namespace dorvik {
namespace {

class ConnectionTest : public test::DatabaseFixture {
protected:
    void SetUp() override {
        DatabaseFixture::SetUp();
        m_connection =
            std::make_shared<Connection>(modHostPath::FromProgram(m_path), Database::kPatience);
    }

    std::shared_ptr<const UnderstoodText> Understood(std::string_view sql) {
        return m_connection->Translate(sql).Text;
    }

    int PreparedStatements() const {
        int count = 0;
        sqlite3_stmt* statement = nullptr;
        while ((statement = sqlite3_next_stmt(m_connection->Engine(), statement)) != nullptr) {
            ++count;
        }
        return count;
    }

    std::shared_ptr<Connection> m_connection;
};

TEST_F(ConnectionTest, TextsThatDifferOnlyInLiteralsAndBlanksShareOnePreparedStatement) {
    const auto first = Understood("SELECT Name FROM Items WHERE ItemID = 1 AND Name = 'a'");
    m_connection->Lease(first->Translation.Sql);
    const int before = PreparedStatements();
    for (int number = 2; number < 50; ++number) {
        const auto again = Understood(
            "SELECT Name  FROM Items WHERE ItemID = " + std::to_string(number) + " AND Name = 'b'");
        EXPECT_EQ(again, first);
        m_connection->Lease(again->Translation.Sql);
    }
    EXPECT_EQ(PreparedStatements(), before);
}

TEST_F(ConnectionTest, ATextOfParametersIsUnderstoodOnceAndItsValuesAreTakenAsTheyAre) {
    constexpr std::string_view kSql = "SELECT Name FROM Items WHERE Name = ? AND Size = ?";
    const auto literals = Understood("SELECT Name FROM Items WHERE Name = 'a' AND Size = 5");
    m_connection->Lease(literals->Translation.Sql);
    const int before = PreparedStatements();
    for (const char* const name : {"x", "x' OR ''='", "?", "\"", "]"}) {
        const BoundText bound = m_connection->Translate(kSql, {name, 7});
        EXPECT_EQ(bound.Text, literals);  // the same statement, too
        EXPECT_EQ(bound.Literals, (SqlValues{name, 7}));
        m_connection->Lease(bound.Text->Translation.Sql);
    }
    EXPECT_EQ(PreparedStatements(), before);
}

TEST_F(ConnectionTest, AFileThatIsDeletedBeforeItIsOpenedIsNotFound) {
    std::int32_t number = 0;
    try {
        const Connection late(modHostPath::FromProgram(m_path + "gone"), Database::kPatience);
    } catch (const BasicError& failure) {
        number = failure.Number();
    }
    EXPECT_EQ(number, databaseerror::kFileNotFound);
}

TEST_F(ConnectionTest, LiteralsAndParametersStandInOneTextInTheirOrder) {
    for (int round = 1; round <= 2; ++round) {
        const BoundText bound = m_connection->Translate(
            "SELECT Name FROM Items WHERE Size = 3 AND Name = ? AND Size = 4", {"it's"});
        EXPECT_EQ(bound.Literals, (SqlValues{3, "it's", 4}));
    }
}

TEST_F(ConnectionTest, AsManyValuesAsParametersAreNeeded) {
    const auto understand = [&](std::string_view sql, SqlValues values) {
        return test::ErrorNumberOf([&] { m_connection->Translate(sql, std::move(values)); });
    };
    EXPECT_EQ(understand("SELECT Name FROM Items WHERE Size = ?", {1}), 0);
    for (int round = 1; round <= 2; ++round) {  // also once the text is known
        EXPECT_EQ(understand("SELECT Name FROM Items WHERE Size = ?", {}), databaseerror::kSyntax);
        EXPECT_EQ(
            understand("SELECT Name FROM Items WHERE Size = ?", {1, 2}), databaseerror::kSyntax);
    }
}

TEST_F(ConnectionTest, AStatementInUseIsNotGivenOutASecondTime) {
    const auto text = Understood("SELECT Name FROM Items");
    const auto first = m_connection->Lease(text->Translation.Sql);
    const auto second = m_connection->Lease(text->Translation.Sql);
    EXPECT_NE(&*first, &*second);
}

}  // namespace
}  // namespace dorvik
