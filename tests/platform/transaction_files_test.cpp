#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A connection with the one table that the commit markers need, and a file directory beside it.
class TransactionFilesTest : public testing::Test {
protected:
    void SetUp() override { open(db); }

    void open(odbc_database& connection) {
        ASSERT_TRUE(connection.connect(files::native(folder / L"a.well2").native()));
        ASSERT_TRUE(connection.exec(
            L"CREATE TABLE IF NOT EXISTS meta (m_id INTEGER PRIMARY KEY AUTOINCREMENT, m_group TEXT, "
            L"obj_id INTEGER, key TEXT, value TEXT)"));
        connection.set_file_container_path(root);
    }
    static bool write(odbc_database& connection, const std::wstring& path, const char* text) {
        return connection.files().write(path,
                                        [text](std::FILE* file) { return files::put(file, text); });
    }
    // Every file below the file directory with its content, one a line; the journal apart.
    std::string tree() const {
        std::string out;
        for (const auto& path : files::listTree(root))
            if (path.find(L".pending") == std::wstring::npos)
                out += files::native(path.substr(root.size())).native() + "="
                       + temp_folder::read(path) + "\n";
        return out;
    }
    std::wstring journalPath() const {
        for (const auto& path : files::listTree(root + L".pending"))
            if (path.ends_with(L".changes"))
                return path;
        return {};
    }
    // Where the journal says that the content of a removed file went.
    std::wstring keptPath(const std::wstring& path) const {
        const std::string text = temp_folder::read(journalPath());
        const std::string line = "R\t" + files::native(path.substr(root.size())).native() + "\t";
        const auto start = text.find(line);
        if (start == std::string::npos)
            return {};
        const auto kept = start + line.size();
        return root + files::wide(text.substr(kept, text.find('\n', kept) - kept));
    }
    std::int64_t markers() {
        const auto rows = db.query(L"SELECT count(*) FROM meta");
        return rows && rows->next() ? rows->get_counter(0) : -1;
    }
    // Runs `work` in a child that dies at the end of it without any clean-up.
    template <typename Work>
    void inDyingProcess(const Work& work) {
        db.disconnect();
        const pid_t child = fork();
        if (child == 0) {
            odbc_database own;
            open(own);
            work(own);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
        open(db);
    }

    temp_folder folder;
    std::wstring root = folder / L"a/";
    odbc_database db;
};

// Every kind of change on top of two files that were there before.
void changeEverything(odbc_database& db, const std::wstring& root) {
    const auto put = [&](const wchar_t* name, const char* text) {
        return db.files().write(root + name,
                                [text](std::FILE* file) { return files::put(file, text); });
    };
    EXPECT_TRUE(db.files().writeLater(root + L"well/new.wpdb",
                                      [](std::FILE* file) { return files::put(file, "new"); }));
    EXPECT_TRUE(put(L"old/kept.wpdb", "changed"));
    EXPECT_TRUE(db.files().move(root + L"old/", root + L"moved/deep/"));
    EXPECT_TRUE(put(L"moved/deep/kept.wpdb", "changed again"));
    EXPECT_TRUE(db.files().remove(root + L"gone.wpdb"));
}
constexpr const char* before = "gone.wpdb=gone\nold/kept.wpdb=kept\n";
constexpr const char* after = "moved/deep/kept.wpdb=changed again\nwell/new.wpdb=new\n";

TEST_F(TransactionFilesTest, filesFollowTheTransaction) {
    folder.write(L"a/old/kept.wpdb", "kept");
    folder.write(L"a/gone.wpdb", "gone");
    {
        transaction t(&db);
        changeEverything(db, root);
    }
    EXPECT_EQ(tree(), before);
    EXPECT_FALSE(files::isFolder(root + L"well")) << "folders made on the way go too";
    {
        transaction t(&db);
        changeEverything(db, root);
        ASSERT_TRUE(t.commit());
    }
    EXPECT_EQ(tree(), after);
    EXPECT_FALSE(files::isFolder(root + L"old")) << "an emptied folder goes";
    db.disconnect();
    EXPECT_FALSE(files::isFolder(root + L".pending"));
    open(db);
    EXPECT_EQ(markers(), 0);
}

TEST_F(TransactionFilesTest, anInnerLevelTakesItsOwnFilesBackOnly) {
    transaction outer(&db);
    ASSERT_TRUE(write(db, root + L"outer", "1"));
    {
        transaction inner(&db);
        ASSERT_TRUE(write(db, root + L"inner", "2"));
        ASSERT_TRUE(write(db, root + L"outer", "3"));
    }
    EXPECT_NE(tree().find("outer=1"), std::string::npos);
    ASSERT_TRUE(write(db, root + L"inner", "4"));
    ASSERT_TRUE(outer.commit());
    EXPECT_EQ(tree(), "inner=4\nouter=1\n");
}

TEST_F(TransactionFilesTest, aDeadProcessIsFinishedOrUndone) {
    folder.write(L"a/old/kept.wpdb", "kept");
    folder.write(L"a/gone.wpdb", "gone");
    inDyingProcess([this](odbc_database& own) {
        transaction finished(&own); // its changes stand in the same journal
        ASSERT_TRUE(write(own, root + L"early", "1") && own.files().remove(root + L"early"));
        ASSERT_TRUE(finished.commit());
        static_cast<void>(own.begin_transaction());
        changeEverything(own, root);
    });
    EXPECT_NE(tree(), before) << "the dead process left its changes";
    ASSERT_TRUE(db.files().recover());
    EXPECT_EQ(tree(), before);
    EXPECT_FALSE(files::isFolder(root + L".pending"));

    inDyingProcess([this](odbc_database& own) {
        static_cast<void>(own.begin_transaction());
        changeEverything(own, root);
        // As if it died between the commit and the end of its journal.
        const auto journal = journalPath();
        const std::string open = temp_folder::read(journal);
        EXPECT_TRUE(own.end_transaction());
        folder.write(journal.substr((folder / L"").size()), open);
    });
    ASSERT_TRUE(db.files().recover());
    EXPECT_EQ(tree(), after);
}

TEST_F(TransactionFilesTest, aListIsRemovedWhollyOrNotAtAll) {
    for (const wchar_t* name : {L"a/x/1", L"a/x/2", L"a/y/3", L"a/kept"})
        folder.write(name, "old");
    const std::string all = "kept=old\nx/1=old\nx/2=old\ny/3=old\n";
    const std::vector<std::wstring> list = {
        root + L"y/3", root + L"x/1", root + L"missing", root + L"x/2", root + L"y/3"};
    transaction outer(&db);
    {
        transaction inner(&db);
        ASSERT_TRUE(db.files().remove(list));
        EXPECT_EQ(tree(), "kept=old\n") << "at once";
        ASSERT_TRUE(write(db, root + L"x/1", "new"));
        ASSERT_TRUE(db.files().remove(list)) << "what has come back is removed again";
    }
    EXPECT_EQ(tree(), all);
    EXPECT_FALSE(db.files().remove({root + L"x/1", folder / L"outside", root + L"y/3"}));
    EXPECT_EQ(tree(), all) << "one path is refused";
    EXPECT_TRUE(db.files().remove(std::vector<std::wstring>()));
    ASSERT_TRUE(db.files().remove(list));
    ASSERT_TRUE(outer.commit());
    EXPECT_EQ(tree(), "kept=old\n");
    EXPECT_FALSE(files::isFolder(root + L"x") || files::isFolder(root + L"y"));
}

// The process dies while it moves the files of a list aside: all are noted, some are moved.
TEST_F(TransactionFilesTest, aHalfDoneListIsUndone) {
    const std::vector<std::wstring> list = {root + L"x/1", root + L"x/2", root + L"y/3"};
    for (std::size_t moved = 0; moved <= list.size(); ++moved) {
        for (const auto& path : list)
            folder.write(path.substr((folder / L"").size()), "old");
        inDyingProcess([&](odbc_database& own) {
            static_cast<void>(own.begin_transaction());
            EXPECT_TRUE(own.files().remove(list));
        });
        ASSERT_EQ(tree(), "");
        for (std::size_t i = moved; i < list.size(); ++i)
            ASSERT_TRUE(files::move(keptPath(list[i]), list[i])) << moved;
        ASSERT_TRUE(db.files().recover());
        EXPECT_EQ(tree(), "x/1=old\nx/2=old\ny/3=old\n") << moved;
        EXPECT_FALSE(files::isFolder(root + L".pending")) << moved;
    }
}

TEST_F(TransactionFilesTest, aFileInTheWayOfAFolderStays) {
    folder.write(L"a/well", "a user's own");
    {
        transaction t(&db);
        EXPECT_FALSE(write(db, root + L"well/log", "1"));
    }
    EXPECT_EQ(tree(), "well=a user's own\n");
}

TEST_F(TransactionFilesTest, aFileThatCannotBeWrittenLaterFailsTheCommit) {
    const auto fails = [](std::FILE* file) {
        return files::put(file, "half") && refuse(L"no more");
    };
    {
        transaction t(&db);
        ASSERT_TRUE(db.files().writeLater(root + L"well/a", fails));
        ASSERT_TRUE(db.exec(L"INSERT INTO meta (key) VALUES ('row')"));
        EXPECT_FALSE(t.commit());
        EXPECT_EQ(NORLEX_lastError(), L"no more") << "told by the thread that commits";
    }
    EXPECT_EQ(tree(), "");
    EXPECT_EQ(markers(), 0);

    transaction outer(&db);
    ASSERT_TRUE(write(db, root + L"kept", "1"));
    {
        transaction inner(&db);
        ASSERT_TRUE(db.files().writeLater(root + L"lost", fails));
    }
    EXPECT_TRUE(outer.commit()) << "the failure went with its level";
    EXPECT_EQ(tree(), "kept=1\n");
}

TEST_F(TransactionFilesTest, whatWasWrittenLaterCanBeChangedAtOnce) {
    transaction t(&db);
    for (const char c : std::string("abcdefghij"))
        ASSERT_TRUE(db.files().writeLater(root + L"x/" + wchar_t(c), [c](std::FILE* file) {
            return files::put(file, {&c, 1});
        }));
    ASSERT_TRUE(db.files().remove(root + L"x/j"));
    ASSERT_TRUE(db.files().writeLater(root + L"x/i",
                                      [](std::FILE* file) { return files::put(file, "again"); }));
    ASSERT_TRUE(db.files().move(root + L"x", root + L"y"));
    ASSERT_TRUE(t.commit());
    EXPECT_EQ(tree(), "y/a=a\ny/b=b\ny/c=c\ny/d=d\ny/e=e\ny/f=f\ny/g=g\ny/h=h\ny/i=again\n");
}

TEST_F(TransactionFilesTest, aLiveProcessIsLeftAlone) {
    transaction t(&db);
    ASSERT_TRUE(write(db, root + L"mine", "1"));
    odbc_database other;
    ASSERT_TRUE(other.connect(files::native(folder / L"a.well2").native()));
    other.set_file_container_path(root);
    ASSERT_TRUE(other.files().recover());
    ASSERT_TRUE(t.commit());
    EXPECT_EQ(tree(), "mine=1\n");
}

TEST_F(TransactionFilesTest, nothingOutsideTheFileDirectoryChanges) {
    folder.write(L"outside", "1");
    EXPECT_FALSE(write(db, root + L"a", "2")) << "no transaction is open";
    transaction t(&db);
    EXPECT_FALSE(write(db, folder / L"outside", "2"));
    EXPECT_FALSE(write(db, root + L"../outside", "2"));
    EXPECT_FALSE(db.files().removeFolder(root)) << "the file directory itself";
    EXPECT_FALSE(db.files().remove(root + L"x/../../outside"));
    ASSERT_TRUE(write(db, root + L"taken", "1"));
    ASSERT_TRUE(write(db, root + L"free", "2"));
    EXPECT_FALSE(db.files().move(root + L"free", root + L"taken"));
    ASSERT_TRUE(t.commit());
    EXPECT_EQ(temp_folder::read(folder / L"outside"), "1");
    EXPECT_EQ(tree(), "free=2\ntaken=1\n");
}

} // namespace
