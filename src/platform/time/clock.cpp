#include "platform/time/clock.h"

#include <QList>
#include <QPointer>

#include <algorithm>
#include <atomic>

namespace {

using std::chrono::milliseconds;

std::atomic<milliseconds> passed{};
std::atomic<milliseconds> passingAtEachLook{};

QDateTime& stoppedAt()
{
    static QDateTime moment;
    return moment;
}

QList<Alarm*>& alarms()
{
    static auto* all = new QList<Alarm*>; // outlives those that end with the process
    return *all;
}

} // namespace

Clock::Time Clock::now()
{
    if (const milliseconds more = passingAtEachLook; more.count() != 0) passed = passed.load() + more;
    return std::chrono::steady_clock::now() + passed.load();
}

QDateTime Clock::moment()
{
    return stoppedAt().isValid() ? stoppedAt() : QDateTime::currentDateTime();
}

void Clock::stopAt(const QDateTime& moment)
{
    stoppedAt() = moment;
}

void Clock::pass(milliseconds time)
{
    passed = passed.load() + time;
    QList<QPointer<Alarm>> due; // what one of them does may end another
    for (Alarm* alarm : alarms())
        if (alarm->timer_.isActive() && alarm->due_ <= now()) due.append(alarm);
    std::stable_sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a->due_ < b->due_; });
    for (const QPointer<Alarm>& alarm : due)
        if (alarm && alarm->timer_.isActive() && alarm->due_ <= now()) alarm->ring();
}

void Clock::passAtEachLook(milliseconds time)
{
    passingAtEachLook = time;
}

Alarm::Alarm()
{
    alarms().append(this);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &Alarm::ring);
}

Alarm::~Alarm()
{
    alarms().removeOne(this);
}

void Alarm::set(milliseconds wait)
{
    due_ = Clock::now() + wait;
    timer_.start(wait);
}

void Alarm::off()
{
    timer_.stop();
}

void Alarm::ring()
{
    timer_.stop();
    emit rings();
}
