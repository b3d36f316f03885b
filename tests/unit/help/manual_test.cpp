#include "help/manual.h"

#include "help/manualFolder.h"

namespace {

class TheManual : public ManualFolder
{
protected:
    static QStringList ids(const QList<const help::Entry*>& entries)
    {
        QStringList ids;
        for (const help::Entry* entry : entries)
            ids << entry->id;
        return ids;
    }
};

} // namespace

TEST_F(TheManual, IsNotThereWithoutAnIndexThatCanBeRead)
{
    EXPECT_FALSE(help::Manual(path("")).isThere());
    write("indice.json", "[{");
    EXPECT_FALSE(help::Manual(path("")).isThere());
    write("indice.json", R"({"id": "a"})");
    EXPECT_FALSE(help::Manual(path("")).isThere());
    write("indice.json", R"([7, {"id": "sem ficheiro"}])");
    EXPECT_FALSE(help::Manual(path("")).isThere());
}

TEST_F(TheManual, FindsAPageByItsIdAndByWhereItStands)
{
    writeAll();
    const help::Manual manual(program.filePath("manual"));
    ASSERT_EQ(manual.entries().size(), 4);
    const help::Entry* window = manual.entryNamed("frmA");
    ASSERT_TRUE(window);
    EXPECT_EQ(window->kind, help::Kind::Window);
    EXPECT_EQ(window->page, 4);
    EXPECT_EQ(manual.url(*window), QUrl::fromLocalFile(path("10.html")).resolved(QUrl("#frmA")));
    EXPECT_EQ(manual.at(manual.url(*window)), window);
    EXPECT_EQ(manual.at(QUrl::fromLocalFile(path("10.html"))), manual.entryNamed("cap"));
    EXPECT_EQ(manual.at(QUrl::fromLocalFile(path("outra.html"))), nullptr);
    EXPECT_EQ(manual.entryNamed("frmB"), nullptr);
}

TEST_F(TheManual, PutsTheMessageSoughtBeforeTitlesAndTitlesBeforeTexts)
{
    writeAll();
    const help::Manual manual(program.filePath("manual"));
    EXPECT_EQ(ids(manual.search("datas")), (QStringList{"frmA", "cap", "msg-dia"}));
    EXPECT_EQ(ids(manual.search("DATAS jan")), QStringList("frmA"));
    EXPECT_EQ(ids(manual.search("óbito")), QStringList("cap"));
    EXPECT_EQ(ids(manual.search("Já existe o código 030101.")), QStringList("msg-codigo"));
    EXPECT_EQ(ids(manual.search("atas")), QStringList()); // the middle of a word
    EXPECT_EQ(ids(manual.search(" ?! ")), QStringList());
}
