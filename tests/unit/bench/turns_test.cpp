// How the turns of a measure are taken and counted.
#include "kit/bare.h"
#include "kit/measure.h"
#include "kit/traffic.h"
#include "kit/turns.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace bench;

namespace {

struct Recorded : Sides
{
    int steps() const override { return 2; }
    void prepare(int step) override { calls << "prepare" + QString::number(step); }
    void ours(int step) override
    {
        calls << "ours" + QString::number(step);
        label.setText(QString::number(++texts));
    }
    void bare(int step) override { calls << "bare" + QString::number(step); }
    void finish(int step) override { calls << "finish" + QString::number(step); }

    QStringList calls;
    QLabel label;
    int texts = 0;
};

// Takes three hundredths of a second for a paint, and none for the event.
struct Slow : Sides
{
    struct Widget : QWidget
    {
        void paintEvent(QPaintEvent*) override { QThread::msleep(30); }
    };

    Slow() { widget.show(); }
    void ours(int) override { widget.update(); }
    void bare(int) override {}

    Widget widget;
};

Measure slow(int times)
{
    return {.name = {}, .event = {}, .make = [](int) { return std::make_unique<Slow>(); }, .turns = 3, .times = times};
}

} // namespace

TEST(Turns, EachStepIsTheProgramsFirstAndThenTheBareSides)
{
    Recorded sides;
    Side ours, bare;
    Turns(sides).run(ours, bare);
    EXPECT_EQ(sides.calls.join(' '), "prepare0 ours0 bare0 finish0 prepare1 ours1 bare1 finish1");
}

TEST(Turns, TheBareSidePaintsWhatTheProgramHasPainted)
{
    Recorded sides;
    sides.label.show();
    Side warming, ours, bare;
    Turns turns(sides);
    turns.run(warming, warming);
    turns.run(ours, bare, true);
    EXPECT_GT(ours.traffic.painted, 0);
    EXPECT_EQ(bare.traffic.painted, ours.traffic.painted);
}

TEST(Turns, ThePaintingIsTakenApartFromTheEvent)
{
    const AtSize at = measured(slow(1), 0);
    EXPECT_LT(at.ours.event.wall, 20);
    EXPECT_GE(at.ours.painted.wall, 30);
    EXPECT_GE(at.bare.painted.wall, 30);
    EXPECT_LT(at.ours.painted.cpu, 20) << "the processor had nothing to do";
}

TEST(Turns, TheFiguresAreThoseOfOneWorkWhereATurnDoesMany)
{
    const AtSize once = measured(slow(1), 0);
    const AtSize tenth = measured(slow(10), 0);
    EXPECT_LT(tenth.ours.painted.wall, once.ours.painted.wall / 5);
}

TEST(Traffic, CountsStatementsRowsAndWhatIsWritten)
{
    const QTemporaryDir folder;
    Bare engine(folder.filePath("a.db"));
    engine.execute("create table t (n); insert into t values (1), (2), (3)");
    const Traffic traffic = trafficOf(engine.handle(), [&] {
        EXPECT_EQ(engine.run("select n from t where n > ?", {1.0}), 2);
        engine.run("update t set n = n + 1");
    });
    EXPECT_EQ(traffic.statements, 2);
    EXPECT_EQ(traffic.rows, 2);
    EXPECT_EQ(traffic.changes, 3);
    EXPECT_EQ(statementsOf(engine.handle(), [&] { engine.run("select 1"); }), QStringList{"select 1"});
}

TEST(BareSide, BindsAndReadsWhatItIsGiven)
{
    const QTemporaryDir folder;
    Bare engine(folder.filePath("a.db"));
    engine.execute("create table t (n, t)");
    engine.run("insert into t values (?, ?)", {7.0, "São"});
    engine.run("insert into t values (?, ?)", {nullptr, QByteArray("Mamede")});
    EXPECT_EQ(engine.number("select n from t where t = ?", {"São"}), 7);
    EXPECT_EQ(engine.text("select t from t order by rowid"), "SãoMamede");
    EXPECT_EQ(engine.number("pragma synchronous"), 3) << "each commit is on the disk, the folder included";
}
