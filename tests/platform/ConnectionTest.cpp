#include "platform/Connection.h"

#include "platform/DatabaseFixture.h"

namespace dorvik {
namespace {

class ConnectionTest : public test::DatabaseFixture {
protected:
    void SetUp() override {
        DatabaseFixture::SetUp();
        m_connection = std::make_shared<Connection>(modFiles::HostPath(m_path));
    }

    std::shared_ptr<const UnderstoodText> Understood(std::string_view sql) {
        return m_connection->Understand(modJetSql::Tokenise(sql), sql);
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

TEST_F(ConnectionTest, AStatementInUseIsNotGivenOutASecondTime) {
    const auto text = Understood("SELECT Name FROM Items");
    const auto first = m_connection->Lease(text->Translation.Sql);
    const auto second = m_connection->Lease(text->Translation.Sql);
    EXPECT_NE(&*first, &*second);
}

}  // namespace
}  // namespace dorvik
