// What only a container on a server can meet.
#include "pwdHolder.h"
#include "tests/support/container_fixture.h"

class ServerContainerTest : public ContainerTest {
protected:
    void SetUp() override {
        if (!testEngine::isServer())
            GTEST_SKIP() << "of a server only";
        ContainerTest::SetUp();
    }
    [[nodiscard]] NORLEX_contDescription describe() const {
        return NORLEX_wellContainer::makeDescription(folder / L"wells.well2");
    }
    static void expectRefused(const NORLEX_contDescription& description, const wchar_t* says) {
        const NORLEX_wellContainer refused(description);
        EXPECT_FALSE(refused.isOK());
        EXPECT_NE(NORLEX_lastError().find(says), std::wstring::npos) << lastError();
        EXPECT_EQ(NORLEX_lastError().find(description.password), std::wstring::npos);
        EXPECT_FALSE(NORLEX_wellContainer::isContCanOpen(description));
    }
};

TEST_F(ServerContainerTest, aRefusedConnectionSaysWhy) {
    auto wrong = describe();
    wrong.password = L"no;{such}password";
    expectRefused(wrong, L"wrong user or password");
    auto nowhere = describe();
    const auto port = nowhere.connection.find(L"Port=") + 5;
    nowhere.connection.replace(port, nowhere.connection.find(L';', port) - port, L"1");
    expectRefused(nowhere, L"1");
    auto missing = describe();
    missing.connection.insert(missing.connection.size() - 1, L"_none");
    expectRefused(missing, L"_none");
    EXPECT_TRUE(NORLEX_wellContainer::isContCanOpen(describe()));
}

TEST_F(ServerContainerTest, credentialsAreAskedForOnce) {
    auto description = describe();
    const std::wstring user = description.user;
    const std::wstring password = description.password;
    EXPECT_FALSE(description.isNeedPwd());
    description.password.clear();
    EXPECT_TRUE(description.isNeedPwd());
    EXPECT_FALSE(description.isOK());
    EXPECT_FALSE(pwdHolder::Instance().fill(description)) << "nobody told it yet";
    pwdHolder::Instance().set(description.path, user, password);
    ASSERT_TRUE(pwdHolder::Instance().fill(description));
    EXPECT_TRUE(NORLEX_wellContainer(description).isOK());
}

TEST_F(ServerContainerTest, anOpenContainerMovesBetweenAFileAndAServer) {
    const std::wstring local = folder / L"local.well2";
    ASSERT_TRUE(NORLEX_wellContainer::create(NORLEX_wellContainer::makeDescription(local)));
    ASSERT_TRUE(db()->exec(L"INSERT INTO well_base (name) VALUES ('on the server')"));
    ASSERT_TRUE(container->updateConnectionPath(local)) << lastError();
    EXPECT_FALSE(db()->is_server());
    EXPECT_EQ(container->getWellCount(), 0);
    ASSERT_TRUE(container->updateConnectionPath(folder / L"wells.well2")) << lastError();
    EXPECT_TRUE(db()->is_server());
    EXPECT_EQ(all(L"SELECT name FROM well_base"), L"on the server");
}

TEST_F(ServerContainerTest, aLostConnectionTakesItsTransactionAlong) {
    const std::wstring own = cell(L"SELECT pg_backend_pid()");
    NORLEX_wellContainer other(describe());
    ASSERT_TRUE(other.isOK() && container->beginTransaction());
    ASSERT_TRUE(db()->exec(L"INSERT INTO well_base (name) VALUES ('lost')"));
    ASSERT_TRUE(other.getBaseLink()->query(L"SELECT pg_terminate_backend(" + own + L")"));
    EXPECT_FALSE(db()->exec(L"INSERT INTO well_base (name) VALUES ('later')"));
    EXPECT_FALSE(container->endTransaction());
    EXPECT_FALSE(db()->exec(L"INSERT INTO well_base (name) VALUES ('never')"));
    EXPECT_NE(NORLEX_lastError().find(L"connection"), std::wstring::npos) << lastError();
    EXPECT_EQ(other.getWellCount(), 0);
}

TEST_F(ServerContainerTest, creatingIsRefusedWhereThereIsOne) {
    EXPECT_FALSE(NORLEX_wellContainer::create(describe()));
    EXPECT_NE(NORLEX_lastError().find(L"already"), std::wstring::npos);
    EXPECT_EQ(container->getTemplateCount(), 8);
}
