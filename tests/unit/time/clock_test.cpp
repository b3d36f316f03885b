// The clock of the program's waits, and the time that a test lets pass on it.
#include "platform/time/clock.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using std::chrono::hours;

namespace {

// An alarm, and how often it rang.
struct Counted
{
    explicit Counted(std::chrono::milliseconds wait) { alarm.set(wait); }

    Alarm alarm;
    QSignalSpy rung{&alarm, &Alarm::rings};
};

} // namespace

TEST(TheClock, GoesOnAndIsLaterByWhatHasPassed)
{
    const Clock::Time before = Clock::now();
    Clock::pass(hours(1));
    EXPECT_GE(Clock::now(), before + hours(1));
    EXPECT_LT(Clock::now(), before + hours(2));
}

TEST(TheClock, IsLaterAfterEachLookWhereItIsToldTo)
{
    Clock::passAtEachLook(hours(1));
    const Clock::Time before = Clock::now();
    EXPECT_GE(Clock::now(), before + hours(1));
    Clock::passAtEachLook({});
    const Clock::Time after = Clock::now();
    EXPECT_LT(Clock::now(), after + hours(1));
}

TEST(AnAlarm, RingsOnceByItself)
{
    Counted one(std::chrono::milliseconds(10));
    EXPECT_TRUE(QTest::qWaitFor([&] { return one.rung.count() > 0; }));
    QTest::qWait(30);
    EXPECT_EQ(one.rung.count(), 1);
}

TEST(AnAlarm, RingsAsSoonAsItsTimeHasPassedAndNotBefore)
{
    Counted one(hours(1));
    Clock::pass(std::chrono::minutes(59));
    EXPECT_EQ(one.rung.count(), 0);
    Clock::pass(std::chrono::minutes(1));
    EXPECT_EQ(one.rung.count(), 1);
    Clock::pass(hours(1));
    EXPECT_EQ(one.rung.count(), 1);
}

TEST(AnAlarm, RingsNoMoreWhereItIsOffOrSetAnew)
{
    Counted off(hours(1));
    Counted anew(hours(1));
    off.alarm.off();
    anew.alarm.set(hours(3));
    Clock::pass(hours(2));
    EXPECT_EQ(off.rung.count(), 0);
    EXPECT_EQ(anew.rung.count(), 0);
    Clock::pass(hours(1));
    EXPECT_EQ(anew.rung.count(), 1);
}

TEST(AnAlarm, ThatRingsMayEndOrSetOthers)
{
    Alarm first;
    auto second = std::make_unique<Counted>(hours(2));
    Counted third(hours(3));
    QObject::connect(&first, &Alarm::rings, [&] {
        second.reset();
        third.alarm.set(hours(1));
    });
    first.set(hours(1));
    Clock::pass(hours(4));
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(third.rung.count(), 0) << "set anew, from then on";
    Clock::pass(hours(1));
    EXPECT_EQ(third.rung.count(), 1);
}

TEST(TheClock, StandsStillAtAMomentWhereItIsStopped)
{
    const QDateTime moment(QDate(1755, 11, 1), QTime(9, 40));
    Clock::stopAt(moment);
    EXPECT_EQ(Clock::moment(), moment);
    Clock::stopAt({});
    EXPECT_GT(Clock::moment(), moment);
}
