// orv-estudo verificar.
#include "study/checked.h"
#include "study/checks/seen.h"
#include "study/checks/settings.h"
#include "study/command/command.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

using namespace study;

namespace {

class TheCommandThatChecks : public Checked
{
protected:
    int check(
        const QStringList& more = {}, const std::function<bool()>& goesOn = [] { return true; })
    {
        out_.clear();
        err_.clear();
        QTextStream out(&out_);
        QTextStream err(&err_);
        return runCommand(QStringList{"verificar", path()} + more, out, err, goesOn);
    }
    QByteArray bytes() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void onlyTheFirstRule()
    {
        checks::Settings settings;
        for (const checks::Rule& rule : checks::rules())
            settings.asked.insert(rule.id, QString(rule.id) == "P-01");
        checks::keepSettings(bdp, settings);
    }

    QString out_;
    QString err_;
};

TEST_F(TheCommandThatChecks, EndsWith0WhereNothingContradicts)
{
    onlyTheFirstRule();
    person({"Rui", 'm', "1702-02-14", "1702-02-15"});
    EXPECT_EQ(check(), nothingFound) << qPrintable(err_);
    EXPECT_EQ(out_, "Total: nada.\n");
    EXPECT_EQ(check({"--formato", "json"}), nothingFound);
    EXPECT_EQ(QJsonDocument::fromJson(out_.toUtf8()).array().size(), 0);
}

TEST_F(TheCommandThatChecks, TellsWhatItFindsAndWritesNothing)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    const QByteArray before = bytes();
    EXPECT_EQ(check({"--gravidade", "impossivel"}), somethingFound) << qPrintable(err_);
    EXPECT_EQ(out_, "P-01 impossível: Rui (nº 1) morreu em 13/02/1702, antes de nascer em 14/02/1702.\nTotal: 1 "
                    "impossível.\n");
    EXPECT_EQ(check({"--formato", "csv"}), somethingFound);
    EXPECT_TRUE(out_.startsWith(QChar(QChar::ByteOrderMark) + QString("\"Gravidade\";"))) << qPrintable(out_);
    EXPECT_EQ(out_.count(QChar(QChar::ByteOrderMark)), 1);
    EXPECT_EQ(check({"--formato", "json"}), somethingFound);
    EXPECT_GE(QJsonDocument::fromJson(out_.toUtf8()).array().size(), 1);
    EXPECT_TRUE(bytes() == before);
}

TEST_F(TheCommandThatChecks, TakesABdpThatIsInWorkAndLeavesItFree)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    bdp.close();
    bdp.open(path(), jet::Connection::Sharing::Alone);
    bool wrote = false;
    EXPECT_EQ(check({}, [&] { return wrote = run("update individuo set titulo = 'Dom'") == 1 || wrote, true; }),
              somethingFound)
        << qPrintable(err_);
    EXPECT_TRUE(wrote) << "whoever works on it can write while the rules are asked";
}

TEST_F(TheCommandThatChecks, HoldsToTheSettingsAndToWhatWasSeen)
{
    onlyTheFirstRule();
    const qint64 rui = person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    EXPECT_EQ(check(), somethingFound);
    checks::putAside(bdp, all(checks::keptSettings(bdp)), "engano do padre");
    EXPECT_EQ(check(), nothingFound);
    EXPECT_EQ(check({"--vistos"}), somethingFound);
    run("update individuo set nome = 'Gil' where nind = ?", {rui});
    EXPECT_EQ(check(), somethingFound);
}

TEST_F(TheCommandThatChecks, EndsWith2WhereItCannot)
{
    EXPECT_EQ(check({"--formato", "xml"}), notChecked);
    EXPECT_TRUE(err_.startsWith("O formato é texto, csv ou json, e não \"xml\".")) << qPrintable(err_);
    EXPECT_EQ(check({"--gravidade", "grave"}), notChecked);
    EXPECT_TRUE(err_.startsWith("A gravidade é ")) << qPrintable(err_);
    person({"Rui"});
    EXPECT_EQ(check({}, [] { return false; }), notChecked);
    EXPECT_EQ(err_, "Interrompido.\n");
    QTextStream out(&out_), err(&err_);
    EXPECT_EQ(runCommand({"verificar"}, out, err, [] { return true; }), notChecked);
    EXPECT_EQ(runCommand({"verificar", "nada.orv"}, out, err, [] { return true; }), notChecked);
    EXPECT_TRUE(err_.contains("nada.orv")) << qPrintable(err_);
    bdp.close();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("isto não é uma BDP");
    file.close();
    EXPECT_EQ(check(), notChecked);
    EXPECT_FALSE(err_.isEmpty());
}

TEST_F(TheCommandThatChecks, ReadsABdpThatNobodyMayWrite)
{
    onlyTheFirstRule();
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    checks::putAside(bdp, all(checks::keptSettings(bdp)), "engano do padre");
    bdp.close();
    QFile::setPermissions(path(), QFile::ReadOwner);
    EXPECT_EQ(check(), nothingFound) << qPrintable(err_);
    EXPECT_EQ(check({"--vistos"}), somethingFound) << qPrintable(err_);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(check({"--vistos"}), somethingFound) << qPrintable(err_);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.orv"));
}

TEST_F(TheCommandThatChecks, EndsWith2WhereItCannotBeTold)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    QFile full("/dev/full");
    if (!full.open(QIODevice::WriteOnly)) GTEST_SKIP() << "no disk that is always full";
    QTextStream out(&full), err(&err_);
    for (const QString format : {"texto", "csv", "json"})
        EXPECT_EQ(runCommand({"verificar", path(), "--formato", format}, out, err, [] { return true; }), notChecked);
    EXPECT_TRUE(err_.startsWith("Não foi possível escrever")) << qPrintable(err_);
}

} // namespace
