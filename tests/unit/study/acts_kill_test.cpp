// A program that is killed while it stores or imports acts leaves each act whole, or nothing of it.
#include "parish/acts.h"
#include "study/killed.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"
#include "study/acts/register.h"
#include "study/acts/writer.h"
#include "study/transcripts/import.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <random>

using namespace study;
using killed::Confirm;
using killed::workAndKill;

namespace {

constexpr int rounds = 8;

int count(jet::Connection& bdp, const char* select)
{
    const jet::Recordset rows(bdp, jet::NativeSql(select));
    return rows[0].toInt();
}

class KilledWhileItStores : public testing::Test
{
protected:
    KilledWhileItStores()
    {
        jet::createDatabase(file_);
        jet::Connection bdp;
        bdp.open(file_);
        CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
    }

    // Every row that the acts say they have written is there, and nobody but the people of the acts.
    static void expectWholeActs(jet::Connection& bdp)
    {
        EXPECT_EQ(count(bdp, "select count(*) from individuo"),
                  count(bdp, "select count(distinct nind) from estudo_pessoa where identidade = 'nova'"));
        EXPECT_EQ(count(bdp, "select count(*) from estudo_escrita where tabela = 'individuo' and antes is null"),
                  count(bdp, "select count(*) from individuo"));
        EXPECT_EQ(count(bdp, "select count(*) from estudo_escrita where tabela = 'familia' and antes is null"),
                  count(bdp, "select count(*) from familia"));
        EXPECT_EQ(count(bdp, "select count(*) from estudo_escrita where tabela = 'assistente'"),
                  count(bdp, "select count(*) from assistente"));
        EXPECT_EQ(count(bdp, "select count(*) from estudo_pessoa where acto not in (select id from estudo_acto)"), 0);
        EXPECT_EQ(jet::jsonRows(bdp, jet::NativeSql("pragma integrity_check")).first()["integrity_check"], "ok");
    }

    QTemporaryDir folder_;
    QString file_ = folder_.filePath("a.orv");
    std::mt19937 random_{7};
};

Conclusions everybodyIsNew(const Act& act)
{
    Conclusions conclusions;
    for (const ActPerson& person : act.people)
        conclusions.people << Identity{.kind = nameOf(person).trimmed().isEmpty() ? Identity::Kind::Kept
                                                                                  : Identity::Kind::New};
    return conclusions;
}

} // namespace

TEST_F(KilledWhileItStores, LeavesWholeActsAndAllThatWereConfirmed)
{
    const QList<Act> acts = bench::parishActs(2000);
    const auto storeThemAll = [&](const Confirm& confirm) {
        jet::Connection bdp;
        bdp.open(file_);
        int stored = hasActs(bdp) ? count(bdp, "select count(*) from estudo_acto") : 0;
        for (const Act& act : acts) {
            try {
                storeAct(bdp, act, everybodyIsNew(act));
                confirm(++stored);
            } catch (const Refused&) { // an act that contradicts itself
            }
        }
    };
    int before = 0;
    for (int round = 0; round < rounds; ++round) {
        const int confirmed = workAndKill(storeThemAll, std::uniform_int_distribution(0, 60)(random_));
        EXPECT_GT(confirmed, before);
        jet::Connection bdp;
        bdp.open(file_);
        before = count(bdp, "select count(*) from estudo_acto");
        EXPECT_GE(before, confirmed);
        EXPECT_LE(before, confirmed + 1) << "one may have reached the disk before it could be confirmed";
        expectWholeActs(bdp);
    }
}

TEST_F(KilledWhileItStores, KeepsTheDraftOfTheActInWork)
{
    const QList<Act> acts = bench::parishActs(200);
    const auto typeForEver = [&](const Confirm& confirm) {
        jet::Connection bdp;
        bdp.open(file_);
        for (int turn = 0;; ++turn) {
            Act act = acts[turn % acts.size()];
            act.number = QString::number(turn);
            saveDraft(bdp, act, everybodyIsNew(act));
            confirm(turn);
        }
    };
    for (int round = 0; round < rounds; ++round) {
        const int confirmed = workAndKill(typeForEver, std::uniform_int_distribution(0, 40)(random_));
        jet::Connection bdp;
        bdp.open(file_);
        const auto draft = savedDraft(bdp);
        ASSERT_TRUE(draft);
        const int kept = draft->act.number.toInt();
        EXPECT_GE(kept, confirmed);
        EXPECT_LE(kept, confirmed + 1);
        Act expected = acts[kept % acts.size()];
        expected.number = draft->act.number;
        EXPECT_EQ(draft->act, expected);
        EXPECT_EQ(draft->conclusions, everybodyIsNew(expected));
    }
}

TEST_F(KilledWhileItStores, LeavesAllOfAnImportOrNothing)
{
    Transcript transcript;
    for (const Act& act : bench::parishActs(150))
        transcript.acts << TranscribedAct{.act = act};
    const ImportOptions options{.newPlaces = true, .newProfessions = true, .overruling = "prova"};
    const auto import = [&](const Confirm& confirm) {
        jet::Connection bdp;
        bdp.open(file_);
        confirm(-1);
        confirm(importActs(bdp, transcript, options).storedActs());
    };
    // The first round takes as long as it takes, whatever the machine; the others end somewhere in that time.
    int whole = 0, nothing = 0;
    QElapsedTimer clock;
    clock.start();
    qint64 all = 0;
    for (int round = 0; round < 2 * rounds; ++round) {
        const QString copy = folder_.filePath("antes.orv");
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(file_, copy));
        const int confirmed = round == 0 ? workAndKill(import, 0, 2) : workAndKill(import, int(all * round / 20));
        if (round == 0) all = clock.elapsed();
        jet::Connection bdp;
        bdp.open(file_);
        if (!hasActs(bdp)) {
            EXPECT_EQ(confirmed, -1);
            EXPECT_EQ(count(bdp, "select count(*) from individuo"), 0);
            EXPECT_EQ(count(bdp, "select count(*) from lugar"), 0);
            ++nothing;
        } else {
            const int stored = count(bdp, "select count(*) from estudo_acto");
            EXPECT_GT(stored, 100);
            if (confirmed >= 0) {
                EXPECT_EQ(stored, confirmed);
            }
            expectWholeActs(bdp);
            ++whole;
        }
        bdp.close();
        ASSERT_TRUE(QFile::remove(file_) && QFile::rename(copy, file_)); // as before for the next one
    }
    EXPECT_GT(nothing, 0);
    EXPECT_GT(whole, 0);
}
